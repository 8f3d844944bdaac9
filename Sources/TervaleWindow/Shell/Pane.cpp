#include "TervaleWindow/Shell/Pane.h"

namespace tervale {

QString title(Pane pane) {
    switch (pane) {
    case Pane::overview:
        return QStringLiteral("Overview");
    case Pane::sensors:
        return QStringLiteral("Sensors");
    case Pane::profiles:
        return QStringLiteral("Profiles");
    case Pane::settings:
        return QStringLiteral("Settings");
    }
    return {};
}

Symbol symbol(Pane pane) {
    switch (pane) {
    case Pane::overview:
        return Symbol::fan;
    case Pane::sensors:
        return Symbol::thermometerMedium;
    case Pane::profiles:
        return Symbol::sliderHorizontal3;
    case Pane::settings:
        return Symbol::gearshape;
    }
    return {};
}

std::optional<Pane> paneTitled(const QString& name) {
    for (const Pane pane : allPanes) {
        if (title(pane).compare(name, Qt::CaseInsensitive) == 0)
            return pane;
    }
    return std::nullopt;
}

} // namespace tervale
