#include "TervaleWindow/Shell/SystemAppearance.h"

#include "TervaleWindow/Appearance/Colors.h"
#include "TervaleWindow/Appearance/Fonts.h"
#include "TervaleWindow/Controls/WindowStyle.h"

#include <QApplication>
#include <QStyle>

namespace tervale {

void useSystemAppearance(QApplication& application) {
    // Where no desktop brings a palette, the toolkit's own style does.
    const bool desktopHasPalette =
        QApplication::palette() != QApplication::style()->standardPalette();
    QApplication::setStyle(new WindowStyle);
    if (!desktopHasPalette)
        QApplication::setPalette(lightPalette());
    application.setFont(systemFont(fontSize::body));
}

} // namespace tervale
