#include "TervaleWindow/Style/FocusRing.h"

#include "TervaleWindow/Style/ControlPainting.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QSlider>

namespace tervale {

namespace {

bool isField(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget);
}

bool isControl(const QWidget& widget) {
    return qobject_cast<const QAbstractButton*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QSlider*>(&widget);
}

/// A field inside another control shares that one's ring.
bool isPartOfControl(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return parent && (isField(*parent) || isControl(*parent));
}

bool drawsItsOwnRing(const QWidget& widget) {
    return qobject_cast<const QSlider*>(&widget);
}

bool comesFromKeyboard(Qt::FocusReason reason) {
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason ||
           reason == Qt::ShortcutFocusReason;
}

/// The focus only pauses: it comes back to the same widget.
bool isInterruption(Qt::FocusReason reason) {
    return reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

} // namespace

FocusRing::~FocusRing() {
    delete frame;
}

void FocusRing::watch(QWidget* widget) {
    if ((isField(*widget) || isControl(*widget)) && !isPartOfControl(*widget))
        widget->installEventFilter(this);
}

void FocusRing::unwatch(QWidget* widget) {
    widget->removeEventFilter(this);
}

bool FocusRing::eventFilter(QObject* object, QEvent* event) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (widget && event->type() == QEvent::FocusIn)
        focusIn(*widget, static_cast<QFocusEvent*>(event)->reason());
    else if (widget && event->type() == QEvent::FocusOut)
        focusOut(*widget, static_cast<QFocusEvent*>(event)->reason());
    return QObject::eventFilter(object, event);
}

void FocusRing::focusIn(QWidget& widget, Qt::FocusReason reason) {
    if (!isInterruption(reason)) {
        const bool keyboard = isField(widget) || comesFromKeyboard(reason);
        setFocusOrigin(widget, keyboard ? FocusOrigin::keyboard : FocusOrigin::other);
    }
    if (hasKeyboardFocus(widget))
        surround(widget);
}

void FocusRing::focusOut(QWidget& widget, Qt::FocusReason reason) {
    if (!isInterruption(reason))
        setFocusOrigin(widget, FocusOrigin::other);
    if (frame && frame->widget() == &widget && reason != Qt::PopupFocusReason)
        frame->setWidget(nullptr);
}

void FocusRing::surround(QWidget& widget) {
    if (drawsItsOwnRing(widget))
        return;
    if (!frame)
        frame = new QFocusFrame;
    frame->setWidget(&widget);
}

} // namespace tervale
