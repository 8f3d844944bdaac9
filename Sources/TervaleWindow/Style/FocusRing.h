#pragma once

#include <QFocusFrame>
#include <QPointer>

namespace tervale {

/// Shows where the focus is: around fields always, around other controls once the keyboard moved
/// the focus there. Sliders draw the ring around their knob themselves.
class FocusRing : public QObject {
    Q_OBJECT

  public:
    ~FocusRing() override;

    /// From now on `widget` gets the ring while it has the focus. Widgets without one are let be.
    void watch(QWidget* widget);
    void unwatch(QWidget* widget);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    void focusIn(QWidget& widget, Qt::FocusReason reason);
    void focusOut(QWidget& widget, Qt::FocusReason reason);
    void surround(QWidget& widget);

    QPointer<QFocusFrame> frame;
};

} // namespace tervale
