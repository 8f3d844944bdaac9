#pragma once

#include "TervaleWindow/Appearance/Colors.h"

#include <QCommonStyle>
#include <QFocusFrame>
#include <QPainter>
#include <QPointer>
#include <QRectF>

namespace tervale {

inline constexpr int focusRingWidth = 3;

/// What a ring stands out from: the ground around it; the accent-coloured shape that it lies in; or
/// both an accent-coloured shape and the ground around that.
enum class RingGround { window, accent, aroundAccent };
/// At least three times as light or as dark as that, in every palette.
QColor focusRingColor(const Colors& colors, RingGround ground);
/// The one look of the focus, around the outside of a shape.
void paintFocusRing(QPainter& painter, const QRectF& shape, qreal radius, const Colors& colors,
                    RingGround ground = RingGround::window);

/// The corner radius of the ring around a widget that is not the usual box.
void setFocusRadius(QWidget& widget, int radius);
int focusRadius(const QWidget& widget);
/// What the ring around a widget stands out from.
RingGround focusGround(const QWidget& widget);
/// Whether the focus is here and shows: the keyboard brought it, or the widget is a field.
bool hasKeyboardFocus(const QWidget& widget);
/// Moves the focus on, with its ring if it has one, before a control that may have it goes or is
/// disabled. The toolkit would choose the next one on its own.
void handFocusOn(const QWidget& from, QWidget& to);

/// Draws the ring of a FocusRing, whatever the application's style.
class FocusRingStyle : public QCommonStyle {
    Q_OBJECT

  public:
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
};

/// Shows where the focus is: around fields always, around other controls once the keyboard moved
/// the focus there. Sliders draw the ring around their knob themselves. The controls that the
/// window paints itself ask for it with any style; those of the toolkit get it from WindowStyle.
class FocusRing : public QObject {
    Q_OBJECT

  public:
    /// The application's only one, which goes with the application object.
    static FocusRing& shared();
    ~FocusRing() override;

    /// From now on `widget` gets the ring while it has the focus.
    void watch(QWidget& widget);
    /// As `watch`, for a control that no style of the toolkit draws.
    void surround(QWidget& widget, int radius);
    /// For a control that is filled with the accent colour, or no longer is.
    void setGround(QWidget& widget, RingGround ground);
    /// As `watch` for the toolkit's fields and controls; other widgets are let be.
    void watchStandardWidget(QWidget& widget);
    void unwatch(QWidget& widget);

  protected:
    bool eventFilter(QObject* object, QEvent* event) override;

  private:
    explicit FocusRing(QObject* parent);
    void focusIn(QWidget& widget, Qt::FocusReason reason);
    void focusOut(QWidget& widget, Qt::FocusReason reason);
    void show(QWidget& widget);

    FocusRingStyle style;
    QPointer<QFocusFrame> frame;
};

} // namespace tervale
