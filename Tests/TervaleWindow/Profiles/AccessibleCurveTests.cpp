#include "TervaleWindow/Profiles/CurveCanvasFixture.h"
#include "TervaleWindow/Support/HeardEvents.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QLineEdit>

#include <limits>

namespace tervale {
namespace {

class AccessibleCurves : public CurveCanvasFixture {
  protected:
    QAccessibleInterface* curve() { return QAccessible::queryAccessibleInterface(&canvas); }
    QAccessibleInterface* point(int place) { return curve()->child(place); }
    QAccessibleInterface* temperature(int place) { return point(place)->child(0); }
    QAccessibleInterface* speed(int place) { return point(place)->child(1); }
    QStringList names() {
        QStringList found;
        for (int place = 0; place < curve()->childCount(); ++place)
            found << point(place)->text(QAccessible::Name);
        return found;
    }
    static void act(QAccessibleInterface* part, const QString& action) {
        part->actionInterface()->doAction(action);
        QCoreApplication::processEvents();
    }
    void begin() {
        QCoreApplication::processEvents();
        heard.take();
    }
    std::string take() { return heard.take().join("; ").toStdString(); }

    HeardEvents heard;
};

TEST_F(AccessibleCurves, NameEachPointByItsPlace) {
    EXPECT_EQ(curve()->role(), QAccessible::Grouping);
    EXPECT_EQ(curve()->text(QAccessible::Name), "Fan speed curve");
    EXPECT_EQ(names(), (QStringList{"Point 1 of 4, 40 °C, 10%", "Point 2 of 4, 60 °C, 35%",
                                    "Point 3 of 4, 80 °C, 75%", "Point 4 of 4, 95 °C, 100%"}));
    EXPECT_EQ(curve()->indexOfChild(point(2)), 2);
    EXPECT_EQ(point(2)->parent(), curve());
    EXPECT_EQ(curve()->child(4), nullptr);
    const QPoint middle = point(1)->rect().center();
    EXPECT_EQ(curve()->childAt(middle.x(), middle.y()), point(1));
}

TEST_F(AccessibleCurves, GiveTemperatureAndSpeedOfAPointAsValues) {
    ASSERT_EQ(point(1)->childCount(), 2);
    EXPECT_EQ(point(1)->valueInterface(), nullptr);
    EXPECT_EQ(temperature(1)->role(), QAccessible::Slider);
    EXPECT_EQ(temperature(1)->text(QAccessible::Name), "Temperature, point 2");
    EXPECT_EQ(speed(1)->text(QAccessible::Name), "Fan speed, point 2");
    EXPECT_EQ(temperature(1)->parent(), point(1));
    EXPECT_EQ(point(1)->indexOfChild(speed(1)), 1);
    QAccessibleValueInterface* degrees = temperature(1)->valueInterface();
    EXPECT_EQ(degrees->currentValue().toString(), "60 °C");
    EXPECT_EQ(degrees->currentValue().toDouble(), 60);
    EXPECT_EQ(degrees->minimumValue().toDouble(), 41);
    EXPECT_EQ(degrees->maximumValue().toDouble(), 79);
    EXPECT_EQ(temperature(0)->valueInterface()->minimumValue().toDouble(), 20);
    EXPECT_EQ(temperature(3)->valueInterface()->maximumValue().toDouble(), 110);
    QAccessibleValueInterface* percent = speed(1)->valueInterface();
    EXPECT_EQ(percent->currentValue().toString(), "35%");
    EXPECT_EQ(percent->currentValue().toDouble(), 35);
    EXPECT_EQ(percent->maximumValue().toDouble(), 100);
}

TEST_F(AccessibleCurves, CallLoadLoad) {
    CurveCanvas load({0, 100}, "%", insets);
    load.setCurve({{{10, 0}, {90, 1}}});
    QAccessibleInterface* first = QAccessible::queryAccessibleInterface(&load)->child(0);
    EXPECT_EQ(first->text(QAccessible::Name), "Point 1 of 2, 10%, 0%");
    EXPECT_EQ(first->child(0)->text(QAccessible::Name), "Load, point 1");
    EXPECT_EQ(first->child(0)->valueInterface()->currentValue().toString(), "10%");
}

TEST_F(AccessibleCurves, RaiseLowerAndSetThePlaceOfAPoint) {
    act(temperature(1), QAccessibleActionInterface::increaseAction());
    act(speed(1), QAccessibleActionInterface::decreaseAction());
    EXPECT_EQ(points()[1], (CurvePoint{61, 0.34}));
    temperature(2)->valueInterface()->setCurrentValue(70);
    speed(2)->valueInterface()->setCurrentValue(50.0);
    EXPECT_EQ(points()[2], (CurvePoint{70, 0.5}));
    // As far as it may go.
    temperature(2)->valueInterface()->setCurrentValue(10);
    speed(2)->valueInterface()->setCurrentValue(200);
    EXPECT_EQ(points()[2], (CurvePoint{62, 1}));
    const std::size_t before = edits.size();
    speed(2)->valueInterface()->setCurrentValue("no number");
    speed(2)->valueInterface()->setCurrentValue(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(edits.size(), before);
}

TEST_F(AccessibleCurves, MakeEachChangeOfAValueAStepOfItsOwn) {
    QString order;
    QObject::connect(&canvas, &CurveCanvas::edited, [&order] { order += 'e'; });
    QObject::connect(&canvas, &CurveCanvas::settled, [&order] { order += '.'; });
    speed(1)->valueInterface()->setCurrentValue(50);
    speed(1)->valueInterface()->setCurrentValue(51);
    EXPECT_EQ(order, ".e..e.");
}

TEST_F(AccessibleCurves, AddAndRemovePointsByActions) {
    act(point(1), "Add Point");
    EXPECT_EQ(names()[2], "Point 3 of 5, 70 °C, 55%");
    act(point(2), "Remove Point");
    EXPECT_EQ(points(), usual.points);
    act(point(3), "Remove Point");
    act(point(0), "Remove Point");
    ASSERT_EQ(points().size(), 2U);
    EXPECT_FALSE(point(0)->actionInterface()->actionNames().contains("Remove Point"));
}

TEST_F(AccessibleCurves, SpeakOfThePointThatTheKeysChoose) {
    begin();
    key(Qt::Key_Right);
    EXPECT_EQ(take(), "focus: Point 2 of 4, 60 °C, 35%");
    EXPECT_TRUE(point(1)->state().focused);
    EXPECT_FALSE(point(0)->state().focused);
    EXPECT_EQ(curve()->focusChild(), point(1));
}

TEST_F(AccessibleCurves, SpeakOfThePointThatTheFocusComesTo) {
    QLineEdit elsewhere(&canvas);
    elsewhere.show();
    elsewhere.setFocus();
    begin();
    canvas.setFocus(Qt::TabFocusReason);
    QCoreApplication::processEvents();
    EXPECT_EQ(take(), "focus: Fan speed curve; focus: Point 1 of 4, 40 °C, 10%");
    elsewhere.setFocus();
    begin();
    act(point(2), QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(take(), "focus: Fan speed curve; focus: Point 3 of 4, 80 °C, 75%");
}

TEST_F(AccessibleCurves, SpeakOfEachMoveOnce) {
    begin();
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(take(), "name: Point 1 of 4, 40 °C, 11%; value: Fan speed, point 1, 11%");
    key(Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(take(), "name: Point 1 of 4, 41 °C, 11%; value: Temperature, point 1, 41 °C");
    // At a value the screen reader hears of that, and is not led away from it.
    speed(2)->valueInterface()->setCurrentValue(50);
    EXPECT_EQ(take(), "name: Point 3 of 4, 80 °C, 50%; value: Fan speed, point 3, 50%");
}

TEST_F(AccessibleCurves, SpeakOfAPointThatCameOrIsNextToOneThatWent) {
    begin();
    key(Qt::Key_Insert);
    EXPECT_EQ(take(), "focus: Point 2 of 5, 50 °C, 22%");
    key(Qt::Key_Delete);
    EXPECT_EQ(take(), "focus: Point 2 of 4, 60 °C, 35%");
}

TEST_F(AccessibleCurves, SpeakOfWhatThePointerDoes) {
    begin();
    press(at(60, 0.35));
    EXPECT_EQ(take(), "focus: Point 2 of 4, 60 °C, 35%");
    moveTo(at(62, 0.35));
    EXPECT_EQ(take(), "name: Point 2 of 4, 62 °C, 35%; value: Temperature, point 2, 62 °C");
    release(at(62, 0.35));
    EXPECT_EQ(take(), "");
}

TEST_F(AccessibleCurves, StayQuietWhileNothingChanges) {
    begin();
    heard.takeCount();
    canvas.setCurve(canvas.state().curve);
    canvas.setMarker(58);
    canvas.setMarker(59);
    QCoreApplication::processEvents();
    EXPECT_EQ(heard.takeCount(), 0);
}

} // namespace
} // namespace tervale
