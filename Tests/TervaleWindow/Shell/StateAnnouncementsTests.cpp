#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Support/HeardEvents.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <memory>

using namespace tervale;

class StateAnnouncement : public ModelFixture {
  protected:
    StateAnnouncement() {
        controller.setFan(0, 2893, 3100);
        controller.set("Tp01", 57);
        makeModel();
        state.selection = action::Fixed{0.5};
        publish(state);
        window = std::make_unique<ContentView>(*model, bridge);
        window->show();
    }

    void tellStatus(const std::optional<std::string>& status) {
        state.status = status;
        publish(state);
    }

    BridgeState state;
    std::unique_ptr<ContentView> window;
    HeardEvents heard;
};

TEST_F(StateAnnouncement, TellsAStatusThatComesOrChanges) {
    tellStatus("Too hot: Max until every CPU and GPU sensor is below 85 °C.");
    EXPECT_EQ(heard.takeAnnouncements(),
              QStringList{"Too hot: Max until every CPU and GPU sensor is below 85 °C."});
    publish(state);
    state.launchAtLogin = true;
    publish(state);
    EXPECT_EQ(heard.takeAnnouncements(), QStringList());
    tellStatus("The fans are automatic until a CPU or GPU temperature can be read again.");
    EXPECT_EQ(
        heard.takeAnnouncements(),
        QStringList{"The fans are automatic until a CPU or GPU temperature can be read again."});
    tellStatus(std::nullopt);
    EXPECT_EQ(heard.takeAnnouncements(), QStringList());
}

TEST_F(StateAnnouncement, TellsThatATimerHasEndedAndWhatRunsNow) {
    state.timerAction = action::Fixed{1};
    state.timerEnds = Date{3600};
    publish(state);
    state.timerAction = action::Automatic{};
    publish(state);
    EXPECT_EQ(heard.takeAnnouncements(), QStringList());
    state.timerAction.reset();
    state.timerEnds.reset();
    publish(state);
    EXPECT_EQ(heard.takeAnnouncements(), QStringList{"Timer ended, now 50%"});
}

TEST_F(StateAnnouncement, TellsNothingOfWhatTicks) {
    for (int second = 0; second < 10; ++second) {
        controller.setFan(0, 2000 + 100 * second, 3100);
        controller.set("Tp01", 50 + 2 * second);
        timer.runOut();
    }
    state.selection = action::Automatic{};
    publish(state);
    EXPECT_EQ(heard.takeAnnouncements(), QStringList());
}

TEST_F(StateAnnouncement, TellsItWhateverPaneIsShown) {
    for (const Pane pane : allPanes) {
        window->setSection(pane);
        tellStatus("On pane " + std::to_string(static_cast<int>(pane)));
        EXPECT_EQ(heard.takeAnnouncements().size(), 1);
    }
}
