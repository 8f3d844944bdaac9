#include "TervaleWindow/Accessibility/AccessibleFactory.h"

#include "TervaleWindow/Accessibility/AccessibleChoice.h"
#include "TervaleWindow/Accessibility/AccessibleContainer.h"
#include "TervaleWindow/Accessibility/AccessibleFractionSlider.h"
#include "TervaleWindow/Accessibility/AccessibleGauge.h"
#include "TervaleWindow/Accessibility/AccessibleList.h"
#include "TervaleWindow/Accessibility/AccessibleMenuButton.h"
#include "TervaleWindow/Accessibility/AccessiblePopUp.h"
#include "TervaleWindow/Accessibility/AccessibleTimeField.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/MenuButton.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"

#include <QListView>

#include <algorithm>
#include <vector>

namespace tervale {

namespace {

std::vector<AccessibleMaker>& makers() {
    static std::vector<AccessibleMaker> all{
        makeAccessible<ModeButton, AccessibleRadioButton>,
        makeAccessible<SegmentButton, AccessibleRadioButton>,
        makeAccessible<ToggleSwitch, AccessibleSwitch>,
        makeAccessible<PopUpButton, AccessiblePopUp>,
        makeAccessible<FractionSlider, AccessibleFractionSlider>,
        makeAccessible<TimeField, AccessibleTimeField>,
        makeAccessible<MenuButton, AccessibleMenuButton>,
        makeAccessible<SymbolButton, AccessibleMenuButton>,
        makeAccessible<QListView, AccessibleList>,
        makeAccessible<FanDial, AccessibleGauge>,
        makeAccessible<ThermalBar, AccessibleGauge>,
    };
    return all;
}

QAccessibleInterface* askMakers(const QString& kind, QObject* object) {
    for (const AccessibleMaker maker : makers()) {
        if (QAccessibleInterface* made = maker(object))
            return made;
    }
    // Asked for each class of the object, the most general one last.
    return kind == QLatin1String("QWidget") ? makeAccessible<QWidget, AccessibleContainer>(object)
                                            : nullptr;
}

} // namespace

void installAccessibleFactory() {
    // A factory that is there already is not installed again.
    QAccessible::installFactory(askMakers);
}

void registerAccessible(AccessibleMaker maker) {
    if (std::find(makers().begin(), makers().end(), maker) == makers().end())
        makers().push_back(maker);
    installAccessibleFactory();
}

} // namespace tervale
