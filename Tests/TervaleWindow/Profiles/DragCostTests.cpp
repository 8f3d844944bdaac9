#include "Profiles/Validation.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfilesListModel.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>

namespace tervale {
namespace {

/// Counts paint events.
class Paints final : public QObject {
  public:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }
    int count = 0;
};

/// What moving a point of one of forty curves costs.
class DragCost : public ModelFixture {
  protected:
    static constexpr int moves = 100;

    void SetUp() override {
        BridgeState state;
        for (std::uint8_t number = 1; number <= 40; ++number)
            state.profiles.push_back({UUID{{number}}, "Profile " + std::to_string(number),
                                      kind::Load{ProfileDefaults::loadCurve()}});
        makeModel();
        publish(state);
        view = std::make_unique<ProfilesView>(
            *model, bridge, nullptr, [this](const Profile& profile, std::span<const Profile> all) {
                ++validations;
                return problems(profile, all);
            });
        view->resize(790, 680);
        view->show();
        QCoreApplication::processEvents();
        canvas = view->findChild<CurveCanvas*>();
        validations = 0;
    }

    QPoint at(double x, double speed) const {
        const PlotPoint point = CurvePlot{canvas->plot(), {0, 100}}.position({x, speed});
        return QPointF(point.x, point.y).toPoint();
    }
    void moveTo(QPoint place) {
        QMouseEvent event(QEvent::MouseMove, place, canvas->mapToGlobal(place), Qt::NoButton,
                          Qt::LeftButton, {});
        QApplication::sendEvent(canvas, &event);
    }
    /// Each move is to another value.
    void drag(int count) {
        for (int move = 1; move <= count; ++move)
            moveTo(at(50, 0.4 + (move % 2 == 0 ? 0.0 : 0.1)));
    }

    QLineEdit* nameField() const {
        for (auto* field : view->findChildren<QLineEdit*>()) {
            if (field->accessibleName() == "Name")
                return field;
        }
        return nullptr;
    }

    int validations = 0;
    std::unique_ptr<ProfilesView> view;
    CurveCanvas* canvas = nullptr;
};

TEST_F(DragCost, IsOneEditAndOneValidationForEachMove) {
    QSignalSpy asked(canvas, &CurveCanvas::edited);
    QTest::mousePress(canvas, Qt::LeftButton, {}, at(50, 0.4));
    asked.clear();
    validations = 0;
    drag(moves);
    EXPECT_EQ(asked.size(), moves);
    EXPECT_EQ(validations, moves);
}

TEST_F(DragCost, IsNothingForAMoveThatChangesNoValue) {
    QTest::mousePress(canvas, Qt::LeftButton, {}, at(50, 0.4));
    validations = 0;
    for (int move = 0; move < moves; ++move)
        moveTo(at(50, 0.4));
    EXPECT_EQ(validations, 0);
}

TEST_F(DragCost, UpdatesNoRowOfTheList) {
    auto* rows = view->findChild<ProfilesListModel*>();
    QSignalSpy changed(rows, &ProfilesListModel::dataChanged);
    QSignalSpy inserted(rows, &ProfilesListModel::rowsInserted);
    QSignalSpy removed(rows, &ProfilesListModel::rowsRemoved);
    QTest::mousePress(canvas, Qt::LeftButton, {}, at(50, 0.4));
    drag(moves);
    EXPECT_EQ(changed.size() + inserted.size() + removed.size(), 0);
}

TEST_F(DragCost, IsOneRepaintOfTheCanvasAFrameAndNoneOfTheRest) {
    QTest::mousePress(canvas, Qt::LeftButton, {}, at(50, 0.4));
    // The first move enables Save and Revert.
    drag(1);
    QCoreApplication::processEvents();
    Paints ofCanvas;
    Paints ofTheRest;
    canvas->installEventFilter(&ofCanvas);
    for (QWidget* widget : view->findChildren<QWidget*>()) {
        // What lies under the canvas shines through, and the position moves along.
        if (widget != canvas && !widget->isAncestorOf(canvas) && !widget->isWindow())
            widget->installEventFilter(&ofTheRest);
    }
    for (int move = 0; move < moves; ++move) {
        moveTo(at(50, move % 2 == 0 ? 0.6 : 0.5));
        QCoreApplication::sendPostedEvents();
    }
    EXPECT_EQ(ofCanvas.count, moves);
    EXPECT_EQ(ofTheRest.count, 0);
}

TEST_F(DragCost, IsOneRowForAKeyInTheName) {
    const auto* rows = view->findChild<ProfilesListModel*>();
    QSignalSpy changed(rows, &ProfilesListModel::dataChanged);
    QTest::keyClicks(nameField(), "x");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(validations, 1);
}

} // namespace
} // namespace tervale
