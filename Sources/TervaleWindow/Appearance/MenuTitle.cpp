#include "TervaleWindow/Appearance/MenuTitle.h"

namespace tervale {

QString menuTitle(QString name) {
    return name.replace(u'&', QLatin1String("&&")).replace(u'\t', u' ');
}

} // namespace tervale
