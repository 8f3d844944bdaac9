#pragma once

#include "TervaleWindow/Style/FloatingPanels.h"

#include <QProxyStyle>

namespace tervale {

/// The window's look of the toolkit's standard widgets, in the colours of their palettes, for a
/// system that has no look of its own to keep. Nothing else depends on it: with another style the
/// window works, and is laid out, as well. Install it on the application; it also sets the
/// application's font.
/// A push button is prominent when it is a default button, and shows up-down chevrons when it has a
/// menu. The focus ring shows on fields, and elsewhere only once the keyboard moved the focus.
class WindowStyle : public QProxyStyle {
    Q_OBJECT

  public:
    WindowStyle();

    void polish(QApplication* application) override;
    void polish(QPalette& palette) override;
    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QRect subElementRect(SubElement element, const QStyleOption* option,
                         const QWidget* widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                         SubControl subControl, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                       const QWidget* widget) const override;

  private:
    FloatingPanels panels;
};

} // namespace tervale
