#include "TervaleWindow/Overview/FanChoices.h"
#include "TervaleWindow/Overview/OverviewFixture.h"
#include "TervaleWindow/Support/Choosing.h"

#include <QMenu>

namespace tervale {
namespace {

class OverviewProfiles : public OverviewFixture {};

TEST_F(OverviewProfiles, HasNoPickerWithoutProfiles) {
    show();
    EXPECT_EQ(picker(), nullptr);
    BridgeState state;
    state.profiles = twoProfiles();
    publish(state);
    ASSERT_NE(picker(), nullptr);
    QStringList entries;
    for (int i = 0; i < picker()->count(); ++i)
        entries << picker()->itemText(i);
    EXPECT_EQ(entries, (QStringList{"No profile", "Quiet", "Loud & clear"}));
}

TEST_F(OverviewProfiles, SelectsAProfileAndShowsItOnceConfirmed) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    publish(state);
    choose(*picker(), 2);
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::Select{action::Profile{loudId}}});
    EXPECT_EQ(picker()->currentText(), "No profile");
    state.selection = action::Profile{loudId};
    publish(state);
    EXPECT_EQ(picker()->currentText(), "Loud & clear");
    EXPECT_TRUE(shows("Following the profile."));
}

TEST_F(OverviewProfiles, SendsNothingForNoProfile) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    state.selection = action::Profile{quietId};
    publish(state);
    choose(*picker(), 0);
    EXPECT_TRUE(takeCommands().empty());
    EXPECT_EQ(picker()->currentText(), "Quiet");
}

TEST_F(OverviewProfiles, ShowsAMissingProfile) {
    show();
    BridgeState state;
    state.profiles = twoProfiles();
    state.selection = action::Profile{};
    publish(state);
    EXPECT_TRUE(shows("Missing profile"));
    EXPECT_EQ(picker()->currentText(), "No profile");
}

TEST_F(OverviewProfiles, ReadsANamelessProfileAndOneOfTwoLinesTheSameEverywhere) {
    for (const auto& [name, read] :
         {std::pair("", "Untitled"), {"Quiet\nand cool", "Quiet and cool"}}) {
        show();
        BridgeState state;
        state.profiles = {{quietId, name, kind::Load{}}};
        state.selection = action::Profile{quietId};
        publish(state);
        EXPECT_EQ(heading(), read);
        EXPECT_EQ(picker()->currentText(), read);
        EXPECT_EQ(timerMenu()->menu()->actions().back()->text(), read);
        state.timerAction = state.selection;
        state.timerEnds = Date{0};
        publish(state);
        EXPECT_TRUE(timerText().startsWith(QString(read) + " until "));
        EXPECT_TRUE(timerText().endsWith(QString("then ") + read));
    }
}

} // namespace
} // namespace tervale
