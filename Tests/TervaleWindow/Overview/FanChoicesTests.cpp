#include "TervaleWindow/Overview/FanChoices.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QDateTime>
#include <QLocale>

#include <limits>

using namespace tervale;

namespace {

constexpr UUID quietId{{7}};

Profile quiet() {
    return {quietId, "Quiet", kind::Load{}};
}

Date dateOf(const QTime& time) {
    const QDateTime moment(QDate(2026, 3, 4), time);
    return {static_cast<double>(moment.toSecsSinceEpoch()) - Date::referenceSinceUnixEpoch};
}

/// The line on a running timer; empty while none runs.
QString timerText(const Model& model) {
    const auto line = timerLine(model);
    return line ? line->text() : QString();
}

} // namespace

class FanChoices : public ModelFixture {
  protected:
    void SetUp() override { makeModel(); }

    BridgeState timerState() const {
        BridgeState state;
        state.timerAction = action::Fixed{0.5};
        state.timerEnds = dateOf(QTime(14, 30));
        return state;
    }
};

TEST_F(FanChoices, HaveTheirTitlesAndValues) {
    QStringList presets;
    for (const SpeedPreset& preset : speedPresets)
        presets << QStringLiteral("%1 %2").arg(preset.title).arg(preset.fraction);
    EXPECT_EQ(presets, (QStringList{"25% 0.25", "50% 0.5", "75% 0.75", "Max 1"}));
    QStringList durations;
    for (const TimerDuration& duration : timerDurations)
        durations << QStringLiteral("%1 %2").arg(duration.title).arg(duration.seconds);
    EXPECT_EQ(durations,
              (QStringList{"15 minutes 900", "30 minutes 1800", "1 hour 3600", "2 hours 7200"}));
}

TEST_F(FanChoices, SelectTheAgentsSelectionAndNothingElse) {
    BridgeState state;
    state.selection = action::Fixed{0.5};
    publish(state);
    EXPECT_TRUE(isSelected(*model, action::Fixed{0.5}));
    EXPECT_FALSE(isSelected(*model, action::Fixed{0.25}));
    EXPECT_FALSE(isSelected(*model, action::Automatic{}));
}

TEST_F(FanChoices, SelectNothingWhileATimerRuns) {
    publish(timerState());
    EXPECT_FALSE(isSelected(*model, action::Automatic{}));
    EXPECT_FALSE(isSelected(*model, action::Fixed{0.5}));
}

TEST_F(FanChoices, OfferPresetsAndAutomaticToTheTimerAndThenTheProfiles) {
    const auto titles = [this] {
        QStringList list;
        for (const TimerTarget& target : timerTargets(*model))
            list << target.title;
        return list;
    };
    EXPECT_EQ(titles(), (QStringList{"25%", "50%", "75%", "Max", "Automatic"}));
    BridgeState state;
    state.profiles = {quiet()};
    publish(state);
    EXPECT_EQ(titles(), (QStringList{"25%", "50%", "75%", "Max", "Automatic", "Quiet"}));
    EXPECT_EQ(timerTargets(*model).back().action, Action(action::Profile{quietId}));
    EXPECT_EQ(timerTargets(*model).front().action, Action(action::Fixed{0.25}));
}

TEST_F(FanChoices, RoundTheSliderToWholePercent) {
    EXPECT_EQ(fixedAt(0.4567), Action(action::Fixed{0.46}));
    EXPECT_EQ(fixedAt(0.005), Action(action::Fixed{0.01}));
    EXPECT_EQ(fixedAt(1.0), Action(action::Fixed{1.0}));
    EXPECT_EQ(fixedAt(0.0), Action(action::Fixed{0.0}));
}

TEST_F(FanChoices, ExplainWhatRuns) {
    EXPECT_EQ(subtitle(*model), "macOS decides the fan speed.");
    BridgeState state;
    state.selection = action::Profile{quietId};
    publish(state);
    EXPECT_EQ(subtitle(*model), "Following the profile.");
    publish(timerState());
    EXPECT_EQ(subtitle(*model), "Fixed speed, held until you change it.");
}

TEST_F(FanChoices, LetTheAgentsStatusExplainInstead) {
    for (BridgeState state : {BridgeState(), timerState()}) {
        state.status = "The fans do not answer.";
        publish(state);
        EXPECT_EQ(subtitle(*model), "The fans do not answer.");
    }
}

TEST_F(FanChoices, TellATimersEndInTheUsersShortStyle) {
    publish(timerState());
    {
        const InLocale locale(QLocale(QLocale::German, QLocale::Germany));
        EXPECT_EQ(timerText(*model), "50% until 14:30, then Automatic");
    }
    const InLocale locale(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(timerText(*model).startsWith("50% until 2:30")) << timerText(*model).toStdString();
    EXPECT_TRUE(timerText(*model).endsWith("PM, then Automatic"));
}

TEST_F(FanChoices, TellNoTimerUnlessBothItsPartsAreThere) {
    EXPECT_EQ(timerText(*model), "");
    BridgeState state = timerState();
    state.timerEnds.reset();
    publish(state);
    EXPECT_EQ(timerText(*model), "");
    state = timerState();
    state.timerAction.reset();
    publish(state);
    EXPECT_EQ(timerText(*model), "");
}

TEST_F(FanChoices, SurviveATimerBeyondAllCalendars) {
    for (const double seconds : {1e300, -1e300, 1e18, 0.0}) {
        BridgeState state = timerState();
        state.timerEnds = Date{seconds};
        publish(state);
        EXPECT_TRUE(timerText(*model).startsWith("50% until "));
    }
}
