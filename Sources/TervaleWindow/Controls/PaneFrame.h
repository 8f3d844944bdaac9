#pragma once

#include <QVBoxLayout>
#include <QWidget>

class QScrollArea;

namespace tervale {

class Divider;

/// What the panes share: a title at the top, perhaps with a smaller line under it, and below them
/// panels one under the other, which scroll when they do not fit, under a hairline below the title.
class PaneFrame : public QWidget {
    Q_OBJECT

  public:
    /// In logical pixels.
    static constexpr int headerHeight = 52;
    static constexpr int margin = 20;
    static constexpr int panelSpacing = 14;

    explicit PaneFrame(const QString& title, QWidget* parent = nullptr);

    void setSubtitle(const QString& subtitle);
    void addPanel(QWidget* panel);
    /// The row of the title, for controls at its trailing end.
    QHBoxLayout& header() { return *headerRow; }

    void scrollToTop();
    /// Scrolls as little as it takes to show `area` of a panel, with `room` pixels around it.
    void scrollTo(const QWidget& panel, const QRect& area, int room);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QHBoxLayout* headerRow;
    QVBoxLayout* titles;
    QScrollArea* scrollArea;
    QVBoxLayout* panels;
    Divider* edge;
};

} // namespace tervale
