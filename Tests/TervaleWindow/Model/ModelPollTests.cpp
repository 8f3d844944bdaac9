#include "TervaleWindow/Model/Notifications.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QSignalSpy>

#include <limits>

namespace tervale {
namespace {

class ModelPoll : public ModelFixture {
  protected:
    void SetUp() override {
        controller.setFan(0, 1200, 1300);
        controller.set("Tp01", 50);
    }

    double shownSpeed() const { return model->fans().at(0).actual; }
};

TEST_F(ModelPoll, ReplacesTheFansFromTwentyFiveRevolutionsOn) {
    Model& shown = makeModel();
    QSignalSpy spy(&shown, &Model::fansChanged);
    controller.setFan(0, 1224, 1324);
    shown.refresh();
    EXPECT_EQ(shownSpeed(), 1200);
    EXPECT_EQ(spy.count(), 0);
    controller.setFan(0, 1225, 1324);
    shown.refresh();
    EXPECT_EQ(shownSpeed(), 1225);
    EXPECT_EQ(spy.count(), 1);
    controller.setFan(0, 1225, 1299);
    shown.refresh();
    EXPECT_EQ(shown.fans().at(0).target, 1299);
    EXPECT_EQ(spy.count(), 2);
}

TEST_F(ModelPoll, ReplacesTheFansForAModeButNotForALimit) {
    Model& shown = makeModel();
    controller.setFan(0, 1200, 1300, 1000, 7000);
    shown.refresh();
    EXPECT_EQ(shown.fans().at(0).max, 6000);
    controller.setFan(0, 1200, 1300, 1000, 7000, 1);
    shown.refresh();
    EXPECT_TRUE(shown.fans().at(0).manual);
    EXPECT_EQ(shown.fans().at(0).max, 7000);
}

TEST_F(ModelPoll, ReplacesTheFansWhenThereAreFewer) {
    controller.setFan(1, 3000, 3000);
    Model& shown = makeModel();
    ASSERT_EQ(shown.fans().size(), 2U);
    controller.setFanCount(1);
    shown.refresh();
    EXPECT_EQ(shown.fans().size(), 1U);
}

TEST_F(ModelPoll, ShowsNoFansWhenOneOfThemFails) {
    Model& shown = makeModel();
    controller.remove("F0Ac");
    shown.refresh();
    EXPECT_TRUE(shown.fans().empty());
    EXPECT_TRUE(shown.summary().at(TemperatureInput::hottestOf(SensorGroup::cpu)).has_value());
}

TEST_F(ModelPoll, CallsNothingWhileHidden) {
    Model& shown = makeModel();
    const Notifications notifications(shown);
    visibility.shown = false;
    shown.setSensorsVisible(true);
    controller.calls = 0;
    controller.setFan(0, 5000, 5000);
    for (int i = 0; i < 10; ++i)
        shown.refresh();
    EXPECT_EQ(controller.calls, 0);
    EXPECT_EQ(notifications.counts(), std::vector<int>(11, 0));
}

TEST_F(ModelPoll, CallsTheControllerOnceForEachValue) {
    controller.setFan(1, 3000, 3000);
    for (int i = 0; i < 20; ++i)
        controller.set("Tp" + std::to_string(10 + i), 40 + i);
    Model& shown = makeModel();
    controller.calls = 0;
    shown.refresh();
    // The count of fans, five values of each of two fans, and of the CPU's 21 sensors the four
    // hottest and a panel of eight, which share the hottest and one more.
    const int shared = 2;
    EXPECT_EQ(controller.calls, 1 + 2 * 5 + 4 + 8 - shared);
}

TEST_F(ModelPoll, ReplacesTheSummaryFromOneDegreeOn) {
    Model& shown = makeModel();
    QSignalSpy spy(&shown, &Model::summaryChanged);
    controller.set("Tp01", 50.875);
    shown.refresh();
    EXPECT_EQ(spy.count(), 0);
    controller.set("Tp01", 51);
    shown.refresh();
    EXPECT_EQ(spy.count(), 1);
    EXPECT_EQ(shown.summary().at(TemperatureInput::hottestOf(SensorGroup::cpu)), 51);
}

TEST_F(ModelPoll, ReplacesTheSummaryWhenAKeyGoesOrComes) {
    controller.set("Tg05", 40);
    Model& shown = makeModel();
    const auto gpu = TemperatureInput::hottestOf(SensorGroup::gpu);
    controller.remove("Tg05");
    shown.refresh();
    EXPECT_EQ(shown.summary().at(gpu), std::nullopt);
    controller.set("Tg05", 40);
    shown.refresh();
    EXPECT_EQ(shown.summary().at(gpu), 40);
}

TEST_F(ModelPoll, TakesAReadingThatIsNoNumberForAFailedOne) {
    Model& shown = makeModel();
    controller.set("Tp01", std::numeric_limits<double>::quiet_NaN());
    shown.refresh();
    EXPECT_EQ(shown.summary(), TemperatureReadings());
}

TEST_F(ModelPoll, TakesAReadingThatNobodyCouldShowForAFailedOne) {
    Model& shown = makeModel();
    controller.set("Tp01", 1e20);
    shown.refresh();
    EXPECT_EQ(shown.summary(), TemperatureReadings());
    for (const double speed : {std::numeric_limits<double>::quiet_NaN(), 1e20,
                               -std::numeric_limits<double>::infinity()}) {
        controller.setFan(0, 1200, 1300);
        shown.refresh();
        EXPECT_EQ(shown.fans().size(), 1U);
        controller.setFan(0, 1200, 1300, 1200, speed);
        shown.refresh();
        EXPECT_TRUE(shown.fans().empty());
    }
}

TEST_F(ModelPoll, ReplacesTheWholeSummaryWhenOneOfItsValuesMoved) {
    controller.set("Tg05", 40);
    Model& shown = makeModel();
    controller.set("Tp01", 50.5);
    controller.set("Tg05", 42);
    shown.refresh();
    EXPECT_EQ(shown.summary().at(TemperatureInput::hottestOf(SensorGroup::cpu)), 50.5);
    EXPECT_EQ(shown.summary().at(TemperatureInput::hottestOf(SensorGroup::gpu)), 42);
}

} // namespace
} // namespace tervale
