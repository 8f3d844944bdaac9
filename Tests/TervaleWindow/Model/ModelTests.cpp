#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <limits>

using namespace tervale;

namespace {

constexpr UUID quietId{{1, 2, 3}};

Profile quiet() {
    return {quietId, "Quiet", kind::Load{Curve{{{10, 0}, {90, 1}}}}};
}

BridgeState busyState() {
    return {action::Fixed{0.5},           action::Automatic{}, Date{900}, "Checking…", true,
            std::vector<Profile>{quiet()}};
}

/// Counts every notification of a model.
class Notifications {
  public:
    explicit Notifications(Model& model)
        : spies{{QSignalSpy(&model, &Model::fansChanged),
                 QSignalSpy(&model, &Model::summaryChanged),
                 QSignalSpy(&model, &Model::readingsChanged),
                 QSignalSpy(&model, &Model::connectedChanged),
                 QSignalSpy(&model, &Model::selectionChanged),
                 QSignalSpy(&model, &Model::timerActionChanged),
                 QSignalSpy(&model, &Model::timerEndsChanged),
                 QSignalSpy(&model, &Model::statusChanged),
                 QSignalSpy(&model, &Model::launchAtLoginChanged),
                 QSignalSpy(&model, &Model::profilesChanged),
                 QSignalSpy(&model, &Model::stateChanged)}} {}

    std::vector<int> counts() const {
        std::vector<int> result;
        for (const QSignalSpy& spy : spies)
            result.push_back(static_cast<int>(spy.count()));
        return result;
    }

  private:
    std::array<QSignalSpy, 11> spies;
};

} // namespace

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
    publish(busyState());
    EXPECT_TRUE(shown.connected());
}

TEST_F(ModelStart, PollsOnceASecond) {
    controller.setFan(0, 1200, 1200);
    auto* timer = makeModel().findChild<QTimer*>();
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(timer->interval(), 1000);
    EXPECT_FALSE(timer->isSingleShot());
    controller.setFan(0, 5000, 5000);
    timer->setInterval(0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return model->fans().front().actual == 5000; }));
}

TEST_F(ModelStart, LeavesThePollsToATimerOfTheSystemsAndKeepsIt) {
    const auto* timer = makeModel().findChild<QTimer*>();
    auto system = std::make_shared<int>();
    const std::weak_ptr<int> kept = system;
    model->pollWith(std::move(system));
    EXPECT_FALSE(timer->isActive());
    EXPECT_FALSE(kept.expired());
    model.reset();
    EXPECT_TRUE(kept.expired());
}

TEST_F(ModelStart, LetsGoOfTheBridgeWithTheModel) {
    QSignalSpy spy(&makeModel(), &Model::connectedChanged);
    model.reset();
    publish(busyState());
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

TEST_F(ModelPoll, ReadsAllSensorsOnEveryFifthPollWhileTheyAreShown) {
    Model& shown = makeModel();
    // The poll at the start was number 0.
    shown.setSensorsVisible(true);
    std::vector<int> pollsWithReadings;
    for (int number = 1; number <= 11; ++number) {
        controller.set("Tp01", 50 + 2 * number);
        const auto before = shown.readings();
        shown.refresh();
        if (shown.readings() != before)
            pollsWithReadings.push_back(number);
    }
    EXPECT_EQ(pollsWithReadings, (std::vector{5, 10}));
}

TEST_F(ModelPoll, CountsOnlyVisiblePolls) {
    Model& shown = makeModel();
    shown.setSensorsVisible(true);
    for (int i = 0; i < 4; ++i)
        shown.refresh();
    visibility.shown = false;
    for (int i = 0; i < 3; ++i)
        shown.refresh();
    EXPECT_TRUE(shown.readings().empty());
    visibility.shown = true;
    shown.refresh();
    EXPECT_EQ(shown.readings().size(), 1U);
}

TEST_F(ModelPoll, KeepsTheReadingsWhenTheSensorsAreNoLongerShown) {
    Model& shown = makeModel();
    shown.setSensorsVisible(true);
    for (int i = 0; i < 5; ++i)
        shown.refresh();
    const auto before = shown.readings();
    ASSERT_EQ(before.size(), 1U);
    shown.setSensorsVisible(false);
    controller.set("Tp01", 90);
    for (int i = 0; i < 10; ++i)
        shown.refresh();
    EXPECT_EQ(shown.readings(), before);
}

TEST_F(ModelPoll, ReadsAllSensorsAtOnceWhateverTheChange) {
    Model& shown = makeModel();
    QSignalSpy spy(&shown, &Model::readingsChanged);
    shown.readAllSensors();
    controller.set("Tp01", 50.25);
    shown.readAllSensors();
    EXPECT_EQ(shown.readings().at(shown.sensors().front()), 50.25);
    EXPECT_EQ(spy.count(), 2);
    shown.readAllSensors();
    EXPECT_EQ(spy.count(), 2);
}

class ModelAgent : public ModelFixture {};

TEST_F(ModelAgent, MirrorsEveryFieldAndTellsEachOnce) {
    Model& shown = makeModel();
    const Notifications notifications(shown);
    publish(busyState());
    EXPECT_TRUE(shown.connected());
    EXPECT_EQ(shown.selection(), busyState().selection);
    EXPECT_EQ(shown.timerAction(), busyState().timerAction);
    EXPECT_EQ(shown.timerEnds(), busyState().timerEnds);
    EXPECT_EQ(shown.status(), busyState().status);
    EXPECT_TRUE(shown.launchAtLogin());
    EXPECT_EQ(shown.profiles(), busyState().profiles);
    const std::vector once{0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1};
    EXPECT_EQ(notifications.counts(), once);
    publish(busyState());
    EXPECT_EQ(notifications.counts(), once);
}

TEST_F(ModelAgent, TellsOnlyTheFieldThatChanged) {
    Model& shown = makeModel();
    publish(busyState());
    const Notifications notifications(shown);
    BridgeState state = busyState();
    state.timerEnds.reset();
    publish(state);
    EXPECT_EQ(shown.timerEnds(), std::nullopt);
    EXPECT_EQ(notifications.counts(), (std::vector{0, 0, 0, 0, 0, 0, 1, 0, 0, 0, 1}));
}

TEST_F(ModelAgent, ShowsObserversTheWholeNewState) {
    Model& shown = makeModel();
    std::vector<Profile> seen;
    QObject::connect(&shown, &Model::connectedChanged, &shown, [&] { seen = shown.profiles(); });
    publish(busyState());
    EXPECT_EQ(seen, busyState().profiles);
}

TEST_F(ModelAgent, StaysConnected) {
    Model& shown = makeModel();
    publish({});
    QSignalSpy spy(&shown, &Model::connectedChanged);
    for (int i = 0; i < 10; ++i)
        shown.refresh();
    EXPECT_TRUE(shown.connected());
    EXPECT_EQ(spy.count(), 0);
}

TEST_F(ModelAgent, NamesActions) {
    Model& shown = makeModel();
    publish(busyState());
    EXPECT_EQ(shown.nameOf(action::Automatic{}), "Automatic");
    EXPECT_EQ(shown.nameOf(action::Fixed{1.0}), "Max");
    EXPECT_EQ(shown.nameOf(action::Fixed{1.2}), "Max");
    EXPECT_EQ(shown.nameOf(action::Fixed{0.995}), "100%");
    EXPECT_EQ(shown.nameOf(action::Fixed{0.5}), "50%");
    EXPECT_EQ(shown.nameOf(action::Fixed{0.004}), "0%");
    EXPECT_EQ(shown.nameOf(action::Fixed{-0.004}), "0%");
    EXPECT_EQ(shown.nameOf(action::Profile{quietId}), "Quiet");
    EXPECT_EQ(shown.nameOf(action::Profile{}), "Missing profile");
}

TEST_F(ModelAgent, NamesEvenAbsurdSpeeds) {
    const Model& shown = makeModel();
    EXPECT_TRUE(shown.nameOf(action::Fixed{-1e300}).endsWith('%'));
}
