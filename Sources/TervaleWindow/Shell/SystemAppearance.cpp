#include "TervaleWindow/Shell/SystemAppearance.h"

#include "Platform/Platform.h"
#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Appearance/Motion.h"
#include "TervaleWindow/Appearance/Symbol.h"
#include "TervaleWindow/Appearance/Theme.h"
#include "TervaleWindow/Style/WindowStyle.h"

#include <QApplication>
#include <QOperatingSystemVersion>
#include <QStyle>
#include <QStyleHints>

namespace tervale {

namespace {

/// Where no desktop brings a palette, the toolkit's own style does.
bool desktopHasPalette() {
    return QApplication::palette() != QApplication::style()->standardPalette();
}

/// The window's own palette, in the scheme that the desktop asks for where the toolkit can tell.
void useOwnPalette() {
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    const bool dark = QApplication::styleHints()->colorScheme() == Qt::ColorScheme::Dark;
    QApplication::setPalette(dark ? darkPalette() : lightPalette());
#else
    QApplication::setPalette(lightPalette());
#endif
}

/// Only what is selected is tinted; every other colour stays the desktop's, and follows it.
void tintDesktopPalette() {
    QPalette tint;
    tint.setColor(QPalette::Highlight, Theme::accent());
    tint.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(tint);
}

/// The symbols of the system where it has some.
void useSystemSymbols() {
    const auto symbols = makeSystemSymbols();
    if (!symbols)
        return;
    useSymbolShapes([symbols](const QString& name, int side, qreal weight) {
        const auto mask = symbols(name.toStdString(), side, weight);
        return mask ? std::optional(imageOf(*mask)) : std::nullopt;
    });
}

} // namespace

QImage imageOf(const SymbolMask& mask) {
    return QImage(mask.coverage.data(), mask.side, mask.side, mask.side, QImage::Format_Alpha8)
        .copy();
}

ControlDrawing controlDrawing() {
    return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS
               ? ControlDrawing::system
               : ControlDrawing::window;
}

void useSystemAppearance([[maybe_unused]] QApplication& application, ControlDrawing drawing) {
    useSystemSymbols();
    askForHighContrast(makeIncreasedContrast());
    askForReducedMotion(makeReducedMotion());
    if (drawing == ControlDrawing::system)
        return;
    keepDesignedWeight();
    const bool themed = desktopHasPalette();
    // Brings the fonts along, each kind of control its own.
    QApplication::setStyle(new WindowStyle);
    if (themed) {
        tintDesktopPalette();
        return;
    }
    useOwnPalette();
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    QObject::connect(QApplication::styleHints(), &QStyleHints::colorSchemeChanged, &application,
                     &useOwnPalette);
#endif
}

} // namespace tervale
