#pragma once

#include <QWidget>

namespace tervale {

/// A rounded panel with a hairline around it. Its contents margins keep its layout, which needs
/// none of its own, at the usual distance from the edges; `setPadding` sets another one.
class Card : public QWidget {
    Q_OBJECT

  public:
    /// The lowest pixels of the widget hold the shadow, so cards that are to be 14 apart need a
    /// spacing of 14 - shadowHeight.
    static constexpr int shadowHeight = 2;
    static constexpr int cornerRadius = 12;

    explicit Card(QWidget* parent = nullptr);

    /// The distances from the panel's edges to its contents.
    void setPadding(const QMargins& padding);
    /// The panel in the widget's coordinates.
    QRect panel() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tervale
