#include "TervaleWindow/Accessibility/AccessibleFactory.h"
#include "Thermostat.h"

#include <QAccessibleWidget>
#include <QProgressBar>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

class AccessibleThermostat final : public QAccessibleWidget {
  public:
    explicit AccessibleThermostat(Thermostat& described)
        : QAccessibleWidget(&described, QAccessible::Dial) {}
};

} // namespace

TEST(AccessibleFactory, HandsOutWhatAPaneRegisters) {
    registerAccessible(makeAccessible<Thermostat, AccessibleThermostat>);
    Thermostat thermostat;
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&thermostat)->role(), QAccessible::Dial);
}

TEST(AccessibleFactory, LeavesEveryOtherWidgetToTheToolkit) {
    registerAccessible(makeAccessible<Thermostat, AccessibleThermostat>);
    QProgressBar widget;
    EXPECT_EQ(QAccessible::queryAccessibleInterface(&widget)->role(), QAccessible::ProgressBar);
}
