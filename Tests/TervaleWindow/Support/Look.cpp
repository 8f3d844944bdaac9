#include "TervaleWindow/Support/Look.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Style/WindowStyle.h"

#include <QApplication>

namespace tervale {

namespace {

/// As the toolkit makes it of a Mac's colours: buttons have the window's, text is translucent, and
/// in the dark the ground of lists and fields is darker than the window.
QPalette macPalette(Scheme scheme) {
    const bool dark = scheme == Scheme::dark;
    const QColor window = dark ? QColor(0x32, 0x32, 0x32) : QColor(0xec, 0xec, 0xec);
    QColor label = dark ? Qt::white : Qt::black;
    QColor faint = label;
    label.setAlphaF(0.847f);
    faint.setAlphaF(0.247f);
    QPalette palette(Qt::black, window, window.lighter(110), window.darker(160), window.darker(140),
                     Qt::black, dark ? QColor(0x1e, 0x1e, 0x1e) : QColor(Qt::white));
    palette.setColor(QPalette::Window, window);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::All, role, label);
        palette.setColor(QPalette::Disabled, role, faint);
    }
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::ToolTipBase, window);
    palette.setColor(QPalette::ToolTipText, label);
    palette.setColor(QPalette::Highlight, QColor(0x00, 0x63, 0xe1));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    return palette;
}

} // namespace

Look lookUnderTest() {
    return qEnvironmentVariable("TERVALE_LOOK") == QLatin1String("stock") ? Look::stock : Look::own;
}

void wear(Look look) {
    keepDesignedWeight();
    if (look == Look::own) {
        QApplication::setStyle(new WindowStyle);
    } else {
        QApplication::setStyle(QStringLiteral("Fusion"));
        QApplication::setFont(systemFont(fontSize::body));
    }
    QApplication::setPalette(paletteOf(look, Scheme::light));
}

QPalette paletteOf(Look look, Scheme scheme) {
    if (look == Look::stock)
        return macPalette(scheme);
    return scheme == Scheme::dark ? darkPalette() : lightPalette();
}

QPalette lightLook() {
    return paletteOf(lookUnderTest(), Scheme::light);
}

QPalette darkLook() {
    return paletteOf(lookUnderTest(), Scheme::dark);
}

} // namespace tervale
