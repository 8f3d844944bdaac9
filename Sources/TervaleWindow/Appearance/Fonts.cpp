#include "TervaleWindow/Appearance/Fonts.h"

#include <QByteArray>
#include <QFile>
#include <QFontDatabase>
#include <QOperatingSystemVersion>

namespace tervale {

namespace {

bool runsOnMac() {
    return QOperatingSystemVersion::currentType() == QOperatingSystemVersion::MacOS;
}

// Asking the font database is slow, and what is installed does not change while the window is open.
const QString& systemFamily() {
    static const QString family =
        firstInstalledFamily(runsOnMac() ? QStringList{} : QStringList{"Inter"},
                             QFontDatabase::systemFont(QFontDatabase::GeneralFont).family());
    return family;
}

QString findRoundedFamily() {
    if (!runsOnMac())
        return systemFamily();
    // The one that people install, and the system's own under the names that it has had.
    QString known = firstInstalledFamily(
        {"SF Pro Rounded", ".AppleSystemUIFontRounded", ".SF NS Rounded"}, QString());
    if (!known.isEmpty())
        return known;
    // Families that begin with a dot are not shown to everybody who asks.
    return familiesInFile("/System/Library/Fonts/SFNSRounded.ttf").value(0, systemFamily());
}

const QString& roundedFamily() {
    static const QString family = findRoundedFamily();
    return family;
}

QFont fontOf(const QString& family, int size, QFont::Weight weight) {
    QFont font(family);
    font.setPixelSize(size);
    font.setWeight(weight);
    return font;
}

} // namespace

QString firstInstalledFamily(const QStringList& families, const QString& otherwise) {
    for (const QString& family : families) {
        if (QFontDatabase::hasFamily(family))
            return family;
    }
    return otherwise;
}

QStringList familiesInFile(const QString& path) {
    const int file = QFile::exists(path) ? QFontDatabase::addApplicationFont(path) : -1;
    return file < 0 ? QStringList() : QFontDatabase::applicationFontFamilies(file);
}

void keepDesignedWeight() {
    constexpr const char* variable = "FREETYPE_PROPERTIES";
    const QByteArray property = "cff:darkening-parameters";
    const QByteArray set = qgetenv(variable);
    if (set.contains(property))
        return;
    // The toolkit switches the emboldening on by itself, whatever the environment says; how much it
    // comes to, for four widths of a stem, is left to choose.
    const QByteArray none = property + "=500,0,1000,0,1667,0,2333,0";
    qputenv(variable, (set + ' ' + none).trimmed());
}

QFont systemFont(int size, QFont::Weight weight) {
    return fontOf(systemFamily(), size, weight);
}

QFont roundedFont(int size, QFont::Weight weight) {
    return fontOf(roundedFamily(), size, weight);
}

} // namespace tervale
