#include "TervaleWindow/Accessibility/AccessibleFactory.h"

#include "TervaleWindow/Accessibility/AccessibleChoice.h"
#include "TervaleWindow/Accessibility/AccessibleFractionSlider.h"
#include "TervaleWindow/Accessibility/AccessibleGauge.h"
#include "TervaleWindow/Accessibility/AccessiblePopUp.h"
#include "TervaleWindow/Accessibility/AccessibleTimeField.h"
#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentButton.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Controls/ToggleSwitch.h"
#include "TervaleWindow/Gauges/FanDial.h"
#include "TervaleWindow/Gauges/ThermalBar.h"

#include <algorithm>
#include <vector>

namespace tervale {

namespace {

QAccessibleInterface* makeTimeField(QObject* object) {
    return AccessiblePopUp::usualValues() == ChoiceValues::inValueInterface
               ? makeAccessible<TimeField, AccessibleTimeField>(object)
               : nullptr;
}

std::vector<AccessibleMaker>& makers() {
    static std::vector<AccessibleMaker> all{
        makeAccessible<ModeButton, AccessibleRadioButton>,
        makeAccessible<SegmentButton, AccessibleRadioButton>,
        makeAccessible<ToggleSwitch, AccessibleSwitch>,
        makeAccessible<PopUpButton, AccessiblePopUp>,
        makeAccessible<FractionSlider, AccessibleFractionSlider>,
        makeTimeField,
        makeAccessible<FanDial, AccessibleGauge>,
        makeAccessible<ThermalBar, AccessibleGauge>,
    };
    return all;
}

QAccessibleInterface* askMakers(const QString&, QObject* object) {
    for (const AccessibleMaker maker : makers()) {
        if (QAccessibleInterface* made = maker(object))
            return made;
    }
    return nullptr;
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
