#include "TervaleWindow/Controls/ModeButton.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Shell/SimulatedWindow.h"
#include "TervaleWindow/Support/Choosing.h"

#include <QApplication>
#include <QLabel>

#include <gtest/gtest.h>

using namespace tervale;

class Journey : public testing::Test, protected SimulatedWindow {
  protected:
    Journey() {
        window.resize(980, 680);
        window.show();
    }

    void pass(int seconds) {
        for (int i = 0; i < seconds; ++i) {
            simulation.advance(1);
            clock.time = clock.time + 1;
            timer.runOut();
        }
    }

    double fanFraction(std::size_t index) const {
        const Model::DisplayFan& fan = model.fans().at(index);
        return (fan.actual - fan.min) / (fan.max - fan.min);
    }
};

TEST_F(Journey, AClickOnAPresetComesBackFromTheAgentAndTurnsTheFans) {
    EXPECT_TRUE(model.connected());
    pass(5);
    ASSERT_EQ(model.fans().size(), 2U);
    EXPECT_FALSE(model.fans().front().manual);
    auto* half = find<ModeButton>("50%");
    ASSERT_NE(half, nullptr);
    QTest::mouseClick(half, Qt::LeftButton);
    EXPECT_EQ(model.selection(), Action(action::Fixed{0.5}));
    EXPECT_TRUE(half->isSelected());
    pass(60);
    for (const std::size_t fan : {0U, 1U}) {
        EXPECT_TRUE(model.fans().at(fan).manual);
        EXPECT_NEAR(fanFraction(fan), 0.5, 0.03);
    }
    QTest::mouseClick(find<ModeButton>("Automatic"), Qt::LeftButton);
    pass(2);
    EXPECT_FALSE(model.fans().front().manual);
}

TEST_F(Journey, ACurveIsAddedDraggedSavedFollowedAndDeleted) {
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.setSection(Pane::profiles);
    const auto offered = model.profiles().size();
    choose(*find<SymbolButton>("Add profile")->menu(), {"Temperature curve"});

    // All points are dragged up, so that the fans run at full speed at any temperature.
    auto* canvas = window.findChild<CurveCanvas*>();
    ASSERT_NE(canvas, nullptr);
    window.grab();
    const PlotRect plot = canvas->plot();
    const auto placeOf = [&](const CurvePoint& point) {
        return QPoint(qRound(plot.left + (point.x - 20) / 90 * plot.width),
                      qRound(plot.bottom() - point.speed * plot.height));
    };
    for (const CurvePoint& point : Curve(canvas->state().curve).points) {
        const QPoint from = placeOf(point);
        QTest::mousePress(canvas, Qt::LeftButton, {}, from);
        QTest::mouseMove(canvas, QPoint(from.x(), 4));
        QTest::mouseRelease(canvas, Qt::LeftButton, {}, QPoint(from.x(), 4));
    }
    EXPECT_EQ(model.profiles().size(), offered);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    ASSERT_EQ(model.profiles().size(), offered + 1);
    const Profile saved = model.profiles().back();
    for (const CurvePoint& point : std::get<kind::Temperature>(saved.kind).curve.points)
        EXPECT_EQ(point.speed, 1.0);

    window.setSection(Pane::overview);
    auto* picker = find<PopUpButton>("Profile");
    ASSERT_NE(picker, nullptr);
    choose(*picker, picker->count() - 1);
    EXPECT_EQ(model.selection(), Action(action::Profile{saved.id}));
    EXPECT_EQ(picker->currentText(), QString::fromStdString(saved.name));
    pass(90);
    EXPECT_NEAR(fanFraction(0), 1.0, 0.03);
    EXPECT_NEAR(fanFraction(1), 1.0, 0.03);

    window.setSection(Pane::profiles);
    selectProfile(static_cast<int>(offered));
    QTest::mouseClick(find<SymbolButton>("Remove profile"), Qt::LeftButton);
    QTest::keyClick(&window, Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(model.profiles().size(), offered);
    window.setSection(Pane::overview);
    EXPECT_NE(find<QLabel>("Missing profile"), nullptr);
    EXPECT_EQ(find<PopUpButton>("Profile")->currentText(), "No profile");
    pass(2);
    EXPECT_FALSE(model.fans().front().manual);
}

TEST_F(Journey, WhatIsSavedIsThereForTheNextAgent) {
    auto profiles = model.profiles();
    profiles.front().name = "Renamed";
    bridge.send(command::SaveProfiles{profiles});
    const Simulation next({}, center, preferences, clock);
    EXPECT_EQ(model.profiles().front().name, "Renamed");
}
