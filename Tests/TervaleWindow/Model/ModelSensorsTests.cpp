#include "TervaleWindow/Support/ModelFixture.h"

#include <QSignalSpy>

namespace tervale {
namespace {

class ModelSensors : public ModelFixture {
  protected:
    void SetUp() override { controller.set("Tp01", 50); }
};

TEST_F(ModelSensors, ReadsAllSensorsOnEveryFifthPollWhileTheyAreShown) {
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

TEST_F(ModelSensors, CountsOnlyVisiblePolls) {
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

TEST_F(ModelSensors, KeepsTheReadingsWhenTheSensorsAreNoLongerShown) {
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

TEST_F(ModelSensors, ReadsAllSensorsAtOnceWhateverTheChange) {
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

} // namespace
} // namespace tervale
