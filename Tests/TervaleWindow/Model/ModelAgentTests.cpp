#include "TervaleWindow/Model/Notifications.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QSignalSpy>

namespace tervale {
namespace {

constexpr UUID quietId{{1, 2, 3}};

Profile quiet() {
    return {quietId, "Quiet", kind::Load{Curve{{{10, 0}, {90, 1}}}}};
}

BridgeState busyState() {
    return {action::Fixed{0.5},           action::Automatic{}, Date{900}, "Checking…", true,
            std::vector<Profile>{quiet()}};
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

} // namespace
} // namespace tervale
