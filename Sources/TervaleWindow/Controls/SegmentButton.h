#pragma once

#include <QRadioButton>

namespace tervale {

/// One segment of a SegmentedPicker. As a radio button it comes with the arrow keys that move the
/// selection.
class SegmentButton : public QRadioButton {
    Q_OBJECT

  public:
    SegmentButton(const QString& title, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool hitButton(const QPoint& point) const override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tervale
