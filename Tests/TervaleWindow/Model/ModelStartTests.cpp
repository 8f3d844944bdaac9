#include "TervaleWindow/Support/ModelFixture.h"

#include <QSignalSpy>

#include <chrono>

namespace tervale {
namespace {

class ModelStart : public ModelFixture {};

TEST_F(ModelStart, ReadsTheMachineAndAsksTheAgentForItsState) {
    controller.setFan(0, 2000, 2100, 1200, 5777, 1);
    controller.set("Tp01", 50);
    const Model& shown = makeModel();
    const Model::DisplayFan expected{0, 2000, 2100, 1200, 5777, true};
    EXPECT_EQ(shown.fans(), std::vector{expected});
    EXPECT_EQ(shown.sensors(), (std::vector{TemperatureSensor{"Tp01", SensorGroup::cpu}}));
    EXPECT_EQ(shown.summary().at(TemperatureInput::averageOf(SensorGroup::cpu)), 50);
    EXPECT_TRUE(shown.readings().empty());
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::RequestState{}});
    EXPECT_FALSE(shown.connected());
    EXPECT_EQ(shown.selection(), Action(action::Automatic{}));
}

TEST_F(ModelStart, GoesOnWithoutAController) {
    controller.absent = true;
    Model& shown = makeModel();
    shown.setSensorsVisible(true);
    shown.refresh();
    shown.readAllSensors();
    EXPECT_TRUE(shown.fans().empty());
    EXPECT_TRUE(shown.sensors().empty());
    EXPECT_TRUE(shown.readings().empty());
    EXPECT_EQ(shown.summary(), TemperatureReadings());
    EXPECT_EQ(controller.calls, 0);
    publish({});
    EXPECT_TRUE(shown.connected());
}

TEST_F(ModelStart, PollsOnceASecondAsLongAsItLives) {
    controller.setFan(0, 1200, 1200);
    makeModel();
    ASSERT_TRUE(timer.runs());
    EXPECT_EQ(timer.interval(), std::chrono::seconds(1));
    EXPECT_LE(timer.tolerance(), timer.interval() / 5);
    controller.setFan(0, 5000, 5000);
    timer.runOut();
    EXPECT_EQ(model->fans().front().actual, 5000);
    controller.setFan(0, 2500, 2500);
    timer.runOut();
    EXPECT_EQ(model->fans().front().actual, 2500);
    model.reset();
    EXPECT_FALSE(timer.runs());
}

TEST_F(ModelStart, LetsGoOfTheBridgeWithTheModel) {
    QSignalSpy spy(&makeModel(), &Model::connectedChanged);
    model.reset();
    publish({});
    EXPECT_EQ(spy.count(), 0);
    makeModel();
    EXPECT_FALSE(model->connected());
}

TEST_F(ModelStart, ShowsFansWhenTheSensorsCannotBeListed) {
    controller.setFan(0, 1200, 1200);
    controller.failCount = true;
    Model& shown = makeModel();
    shown.setSensorsVisible(true);
    shown.refresh();
    EXPECT_EQ(shown.fans().size(), 1U);
    EXPECT_TRUE(shown.sensors().empty());
    EXPECT_EQ(shown.summary(), TemperatureReadings());
}

TEST(ModelSummary, HoldsTheHottestOfFiveGroupsAndTheAverageOfTwo) {
    TemperatureInputSet expected;
    for (const auto group : {SensorGroup::cpu, SensorGroup::gpu, SensorGroup::memory,
                             SensorGroup::ssd, SensorGroup::power})
        expected.insert(TemperatureInput::hottestOf(group));
    expected.insert(TemperatureInput::averageOf(SensorGroup::cpu));
    expected.insert(TemperatureInput::averageOf(SensorGroup::gpu));
    EXPECT_EQ(Model::summaryInputs(), expected);
}

} // namespace
} // namespace tervale
