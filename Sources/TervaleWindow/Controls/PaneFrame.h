#pragma once

#include <QVBoxLayout>
#include <QWidget>

namespace tervale {

/// What the panes share: a title at the top, and under it panels one below the other, which scroll
/// when they do not fit.
class PaneFrame : public QWidget {
    Q_OBJECT

  public:
    /// In logical pixels.
    static constexpr int headerHeight = 52;
    static constexpr int margin = 20;
    static constexpr int panelSpacing = 14;

    explicit PaneFrame(const QString& title, QWidget* parent = nullptr);

    void addPanel(QWidget* panel);
    /// The row of the title, for controls at its trailing end.
    QHBoxLayout& header() { return *headerRow; }

  private:
    QHBoxLayout* headerRow;
    QVBoxLayout* panels;
};

} // namespace tervale
