#include "TervaleWindow/Style/FocusRing.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QStyleOption>
#include <QVariant>

namespace tervale {

namespace {

constexpr const char* radiusProperty = "tervaleFocusRadius";
constexpr const char* groundProperty = "tervaleFocusGround";
constexpr const char* keyboardFocusProperty = "tervaleKeyboardFocus";

/// The radius of the usual box of a control.
constexpr int usualRadius = 7;
/// Paler than the accent colour as text is there, since a groove is less dark than a card.
constexpr QRgb ringOnDark = 0xff8cb9ff;

/// What brought the focus to a widget. Only the keyboard's leaves a ring around most controls.
enum class FocusOrigin { other, keyboard };

void setFocusOrigin(QWidget& widget, FocusOrigin origin) {
    widget.setProperty(keyboardFocusProperty, origin == FocusOrigin::keyboard);
}

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

QColor focusRingColor(const Colors& colors, RingGround ground) {
    switch (ground) {
    case RingGround::accent:
        return Qt::white;
    case RingGround::aroundAccent: {
        QColor color = colors.label;
        color.setAlpha(255);
        return color;
    }
    case RingGround::window:
        break;
    }
    return colors.dark ? QColor(ringOnDark) : colors.accentLabel;
}

void paintFocusRing(QPainter& painter, const QRectF& shape, qreal radius, const Colors& colors,
                    RingGround ground) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(focusRingColor(colors, ground), focusRingWidth));
    painter.setBrush(Qt::NoBrush);
    const qreal half = focusRingWidth / 2.0;
    painter.drawRoundedRect(shape.adjusted(-half, -half, half, half), radius + half, radius + half);
}

void setFocusRadius(QWidget& widget, int radius) {
    widget.setProperty(radiusProperty, radius);
}

int focusRadius(const QWidget& widget) {
    const QVariant radius = widget.property(radiusProperty);
    return radius.isValid() ? radius.toInt() : usualRadius;
}

RingGround focusGround(const QWidget& widget) {
    const QVariant ground = widget.property(groundProperty);
    if (ground.isValid())
        return static_cast<RingGround>(ground.toInt());
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    return button && button->isDefault() ? RingGround::aroundAccent : RingGround::window;
}

bool hasKeyboardFocus(const QWidget& widget) {
    return widget.hasFocus() && widget.property(keyboardFocusProperty).toBool();
}

void handFocusOn(const QWidget& from, QWidget& to) {
    if (from.hasFocus())
        to.setFocus(hasKeyboardFocus(from) ? Qt::TabFocusReason : Qt::OtherFocusReason);
}

void FocusRingStyle::drawControl(ControlElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
    const auto* frame = qobject_cast<const QFocusFrame*>(widget);
    if (element != CE_FocusFrame || !frame || !frame->widget())
        return;
    const int margin = focusRingWidth;
    paintFocusRing(*painter, QRectF(option->rect).adjusted(margin, margin, -margin, -margin),
                   focusRadius(*frame->widget()), Colors::of(option->palette),
                   focusGround(*frame->widget()));
}

int FocusRingStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                const QWidget* widget) const {
    const bool margin = metric == PM_FocusFrameHMargin || metric == PM_FocusFrameVMargin;
    return margin ? focusRingWidth : QCommonStyle::pixelMetric(metric, option, widget);
}

int FocusRingStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                              QStyleHintReturn* result) const {
    if (hint == SH_FocusFrame_AboveWidget)
        return 1;
    // The ring is painted on nothing, so there is nothing to cut out.
    return hint == SH_FocusFrame_Mask ? 0 : QCommonStyle::styleHint(hint, option, widget, result);
}

FocusRing::FocusRing(QObject* parent) : QObject(parent) {}

FocusRing& FocusRing::shared() {
    static QPointer<FocusRing> ring;
    if (!ring)
        ring = new FocusRing(qApp);
    return *ring;
}

FocusRing::~FocusRing() {
    delete frame;
}

void FocusRing::watch(QWidget& widget) {
    widget.installEventFilter(this);
}

void FocusRing::surround(QWidget& widget, int radius) {
    setFocusRadius(widget, radius);
    // A Mac's style would add its own.
    widget.setAttribute(Qt::WA_MacShowFocusRect, false);
    watch(widget);
}

void FocusRing::setGround(QWidget& widget, RingGround ground) {
    if (ground == focusGround(widget))
        return;
    widget.setProperty(groundProperty, static_cast<int>(ground));
    if (frame && frame->widget() == &widget)
        frame->update();
}

void FocusRing::watchStandardWidget(QWidget& widget) {
    if ((isField(widget) || isControl(widget)) && !isPartOfControl(widget))
        watch(widget);
}

void FocusRing::unwatch(QWidget& widget) {
    widget.removeEventFilter(this);
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
    if (hasKeyboardFocus(widget) && !drawsItsOwnRing(widget))
        show(widget);
}

void FocusRing::focusOut(QWidget& widget, Qt::FocusReason reason) {
    if (!isInterruption(reason))
        setFocusOrigin(widget, FocusOrigin::other);
    if (frame && frame->widget() == &widget && reason != Qt::PopupFocusReason)
        frame->setWidget(nullptr);
}

void FocusRing::show(QWidget& widget) {
    if (!frame) {
        frame = new QFocusFrame;
        frame->setStyle(&style);
    }
    frame->setWidget(&widget);
    // The toolkit refuses a window, which has nobody to draw around it. It hides the frame of what
    // is out of sight, which Tab scrolls to only now.
    if (frame->widget() == &widget) {
        frame->show();
        frame->raise();
    }
}

} // namespace tervale
