#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Overview/OverviewView.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QTest>

#include <cmath>

using namespace tervale;

namespace {

/// The Overview's slider, with an agent that confirms each command at once.
class SpeedSlider : public ModelFixture {
  protected:
    SpeedSlider() : view(makeModel(), bridge), slider(*view.findChild<FractionSlider*>()) {
        confirm(0.2);
        view.resize(790, 1200);
        view.show();
        view.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&view));
    }

    void confirm(double speed) {
        BridgeState state;
        state.selection = action::Fixed{speed};
        // Something else is new, too, as in a running program.
        state.status = std::to_string(++states);
        publish(state);
    }
    double selected() const {
        const auto* fixed = std::get_if<action::Fixed>(&model->selection());
        return fixed ? fixed->speed : -1;
    }

    const InLocale leftToRight{QLocale::c()};
    int states = 0;
    OverviewView view;
    FractionSlider& slider;
    std::vector<double> sent;
    ObserverToken confirming = bridge.onCommand([this](const BridgeCommand& command) {
        const auto* select = std::get_if<command::Select>(&command);
        if (!select)
            return;
        sent.push_back(std::get<action::Fixed>(select->action).speed);
        confirm(sent.back());
    });
};

} // namespace

TEST_F(SpeedSlider, CountsEachOfSixtyTurnsOfAKey) {
    slider.setFocus();
    for (int turn = 1; turn <= 60; ++turn) {
        QTest::keyClick(&slider, Qt::Key_Right);
        EXPECT_DOUBLE_EQ(selected(), (20 + turn) / 100.0);
    }
    for (int turn = 1; turn <= 60; ++turn)
        QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_DOUBLE_EQ(selected(), 0.2);
    EXPECT_EQ(sent.size(), 120U);
}

TEST_F(SpeedSlider, AddsUpSixtyMovesOfLessThanAPercentWhateverTheAgentSaysMeanwhile) {
    slider.setFixedWidth(1280);
    QCoreApplication::processEvents();
    const QPoint start(500, slider.height() / 2);
    QTest::mousePress(&slider, Qt::LeftButton, {}, start);
    const double from = slider.fraction();
    double last = from;
    for (int move = 1; move <= 60; ++move) {
        QTest::mouseMove(&slider, start + QPoint(move, 0));
        EXPECT_GT(slider.fraction(), last) << move;
        EXPECT_LT(slider.fraction() - last, 0.002) << move;
        last = slider.fraction();
        confirm(move % 2 == 0 ? 0.2 : 0.9);
        EXPECT_EQ(slider.fraction(), last) << move;
    }
    EXPECT_TRUE(sent.empty());
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, start + QPoint(60, 0));
    EXPECT_NEAR(last - from, 60.0 / (1280 - 20), 0.002);
    EXPECT_EQ(sent, std::vector<double>{std::round(last * 100) / 100});
}
