#include "TervaleWindow/Appearance/Fonts.h"

#include <QFontDatabase>
#include <QOperatingSystemVersion>
#include <QStringList>

namespace tervale {

namespace {

QString firstInstalled(const QStringList& families, const QString& otherwise) {
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family))
            return family;
    }
    return otherwise;
}

bool runsOnMac() {
    return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS;
}

// Asking the font database is slow, and what is installed does not change while the window is open.
const QString& systemFamily() {
    static const QString family =
        firstInstalled(runsOnMac() ? QStringList{} : QStringList{"Inter"},
                       QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
    return family;
}

const QString& roundedFamily() {
    static const QString family = firstInstalled(
        runsOnMac() ? QStringList{"SF Pro Rounded", ".AppleSystemUIFontRounded"} : QStringList{},
        systemFamily());
    return family;
}

QFont fontOf(const QString& family, int size, QFont::Weight weight) {
    QFont font(family);
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

} // namespace

QFont systemFont(int size, QFont::Weight weight) {
    return fontOf(systemFamily(), size, weight);
}

QFont roundedFont(int size, QFont::Weight weight) {
    return fontOf(roundedFamily(), size, weight);
}

} // namespace tervale
