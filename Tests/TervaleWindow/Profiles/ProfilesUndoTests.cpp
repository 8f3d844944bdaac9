#include "TervaleWindow/Controls/FractionSlider.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Profiles/ProfilesFixture.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/Knob.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace tervale {
namespace {

/// What becomes one step, done with pointer and keys.
class ProfilesUndo : public ProfilesFixture {
  protected:
    int count() const { return view->history().count(); }
    std::string undoText() const { return view->history().undoText().toStdString(); }
    std::vector<CurvePoint> points() const { return canvas()->state().curve.points; }

    void moveTo(const CurvePoint& value) const {
        const QPoint place = placeOf(value);
        QMouseEvent event(QEvent::MouseMove, place, canvas()->mapToGlobal(place), Qt::NoButton,
                          Qt::LeftButton, {});
        QApplication::sendEvent(canvas(), &event);
    }
    /// Drags a point sideways, one unit with each move.
    void drag(const CurvePoint& from, int moves) const {
        QTest::mousePress(canvas(), Qt::LeftButton, {}, placeOf(from));
        for (int move = 1; move <= moves; ++move)
            moveTo({from.x, from.speed + move * 0.01});
        QTest::mouseRelease(canvas(), Qt::LeftButton, {},
                            placeOf({from.x, from.speed + moves * 0.01}));
    }
    void doubleClick(QPoint place) const {
        QTest::mouseClick(canvas(), Qt::LeftButton, {}, place);
        QMouseEvent again(QEvent::MouseButtonDblClick, place, canvas()->mapToGlobal(place),
                          Qt::LeftButton, Qt::LeftButton, {});
        QApplication::sendEvent(canvas(), &again);
        QTest::mouseRelease(canvas(), Qt::LeftButton, {}, place);
    }
    /// Presses a key, so many milliseconds after the session began.
    static void pressAt(quint64 time, QWidget& control, Qt::Key key,
                        Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent press(QEvent::KeyPress, key, modifiers);
        press.setTimestamp(time);
        QApplication::sendEvent(&control, &press);
    }
    /// The same for one that moves the chosen point.
    void pressAt(quint64 time, Qt::Key key) const {
        pressAt(time, *canvas(), key, Qt::AltModifier);
    }
    TimeField* timeField(int place) const { return editor()->findChildren<TimeField*>()[place]; }
    FractionSlider* slider() const { return editor()->findChild<FractionSlider*>(); }
};

TEST_F(ProfilesUndo, TakesADragBackAsOneStep) {
    openWith(threeProfiles);
    drag({60, 0.35}, 20);
    EXPECT_NEAR(points()[1].speed, 0.55, 1e-9);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Move Point");
    view->undo();
    EXPECT_EQ(points(), ProfileDefaults::temperatureCurve().points);
    EXPECT_FALSE(button("Revert")->isEnabled());
    EXPECT_EQ(canvas()->state().chosen, 1U);
    view->redo();
    EXPECT_NEAR(points()[1].speed, 0.55, 1e-9);
}

TEST_F(ProfilesUndo, TellsTwoDragsOfOnePointApart) {
    openWith(threeProfiles);
    drag({60, 0.35}, 10);
    drag({60, 0.45}, 10);
    EXPECT_EQ(count(), 2);
    view->undo();
    EXPECT_NEAR(points()[1].speed, 0.45, 1e-9);
}

TEST_F(ProfilesUndo, TakesAPointThatWasAddedAndDraggedBackAsOneStep) {
    openWith(threeProfiles);
    drag({70, 0.1}, 10);
    EXPECT_EQ(points().size(), 5U);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Add Point");
    view->undo();
    EXPECT_EQ(points(), ProfileDefaults::temperatureCurve().points);
}

TEST_F(ProfilesUndo, HasNoStepForADragThatEndsWhereItBegan) {
    openWith(threeProfiles);
    QTest::mousePress(canvas(), Qt::LeftButton, {}, placeOf({60, 0.35}));
    moveTo({65, 0.5});
    moveTo({60, 0.35});
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, placeOf({60, 0.35}));
    EXPECT_EQ(count(), 0);
}

TEST_F(ProfilesUndo, EndsADragThatIsTakenBackWhileThePointIsHeld) {
    openWith(threeProfiles);
    QTest::mousePress(canvas(), Qt::LeftButton, {}, placeOf({60, 0.35}));
    moveTo({65, 0.5});
    view->undo();
    moveTo({66, 0.6});
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, placeOf({66, 0.6}));
    EXPECT_EQ(points(), ProfileDefaults::temperatureCurve().points);
    EXPECT_EQ(view->history().redoText().toStdString(), "Move Point");
}

TEST_F(ProfilesUndo, TakesADoubleClickThatRemovesAPointBackAsOneStep) {
    openWith(threeProfiles);
    // A bit beside the point, so that the first click moves it.
    doubleClick(placeOf({60, 0.35}) + QPoint(3, 2));
    EXPECT_EQ(points().size(), 3U);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Remove Point");
    view->undo();
    EXPECT_EQ(points(), ProfileDefaults::temperatureCurve().points);
}

TEST_F(ProfilesUndo, HasNoStepForADoubleClickThatAddsAPointAndRemovesIt) {
    openWith(threeProfiles);
    doubleClick(placeOf({70, 0.1}));
    EXPECT_EQ(points(), ProfileDefaults::temperatureCurve().points);
    EXPECT_EQ(count(), 0);
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesUndo, TellsAClickFromWhatComesAfterIt) {
    openWith(threeProfiles);
    const QPoint beside = placeOf({60, 0.35}) + QPoint(3, 2);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(count(), 1);
    QTest::keyClick(canvas(), Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(count(), 2);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, beside + QPoint(3, 2));
    QTest::keyClick(canvas(), Qt::Key_Delete);
    EXPECT_EQ(count(), 4);
    QTest::mouseClick(canvas(), Qt::LeftButton, {}, placeOf({80, 0.75}) + QPoint(3, 2));
    drag({80, 0.75}, 5);
    EXPECT_EQ(count(), 6);
}

TEST_F(ProfilesUndo, TakesABurstOfArrowKeysBackAsOneStep) {
    openWith(threeProfiles);
    canvas()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(canvas(), Qt::Key_Right);
    for (int press = 0; press < 10; ++press)
        QTest::keyClick(canvas(), press % 2 == 0 ? Qt::Key_Up : Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(points()[1], (CurvePoint{65, 0.4}));
    EXPECT_EQ(count(), 1);
    view->undo();
    EXPECT_EQ(points(), ProfileDefaults::temperatureCurve().points);
}

TEST_F(ProfilesUndo, TellsBurstsOfKeysApartByThePauseBetween) {
    openWith(threeProfiles);
    canvas()->setFocus(Qt::TabFocusReason);
    for (const quint64 time : {5000U, 5100U, 5900U})
        pressAt(time, Qt::Key_Up);
    EXPECT_EQ(count(), 1);
    for (const quint64 time : {7000U, 7100U})
        pressAt(time, Qt::Key_Up);
    EXPECT_EQ(count(), 2);
    view->undo();
    EXPECT_NEAR(points()[0].speed, 0.13, 1e-9);
}

TEST_F(ProfilesUndo, TellsTheKeysOfTwoPointsApart) {
    openWith(threeProfiles);
    canvas()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(canvas(), Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(canvas(), Qt::Key_Right);
    QTest::keyClick(canvas(), Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(canvas(), Qt::Key_Insert);
    QTest::keyClick(canvas(), Qt::Key_Up, Qt::AltModifier);
    QTest::keyClick(canvas(), Qt::Key_Delete);
    EXPECT_EQ(count(), 5);
}

TEST_F(ProfilesUndo, BringsAPointBackAndChoosesIt) {
    openWith(threeProfiles);
    canvas()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(canvas(), Qt::Key_Right);
    QTest::keyClick(canvas(), Qt::Key_Delete);
    QTest::keyClick(canvas(), Qt::Key_Right);
    EXPECT_EQ(canvas()->chosenPosition().toStdString(), "95 °C, 100%");
    view->undo();
    EXPECT_EQ(canvas()->chosenPosition().toStdString(), "60 °C, 35%");
}

TEST_F(ProfilesUndo, TakesATypedNameBackAsOneStep) {
    openWith(threeProfiles);
    typeName("Hot water");
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Rename Profile");
    list()->setFocus();
    view->undo();
    EXPECT_EQ(nameField()->text().toStdString(), "Warm");
    EXPECT_EQ(names()[0].toStdString(), "Warm");
    view->redo();
    EXPECT_EQ(names()[0].toStdString(), "Hot water");
}

TEST_F(ProfilesUndo, BeginsAnotherNameOnceTheFieldIsLeft) {
    openWith(threeProfiles);
    typeName("Hot");
    QTest::keyClick(nameField(), Qt::Key_Return);
    typeName("Hotter");
    list()->setFocus();
    typeName("Hottest");
    EXPECT_EQ(count(), 3);
}

TEST_F(ProfilesUndo, LeavesAFieldItsOwnUndoOnlyWhileItIsEdited) {
    openWith(threeProfiles);
    typeName("Hot");
    EXPECT_TRUE(nameField()->isUndoAvailable());
    while (nameField()->isUndoAvailable())
        QTest::keySequence(nameField(), QKeySequence::Undo);
    EXPECT_EQ(names()[0].toStdString(), "Warm");
    EXPECT_EQ(count(), 0);
    EXPECT_FALSE(button("Revert")->isEnabled());
    typeName("Hot");
    list()->setFocus();
    EXPECT_FALSE(nameField()->isUndoAvailable());
    EXPECT_EQ(count(), 1);
}

TEST_F(ProfilesUndo, KeepsCursorAndSelectionOfAFieldThatForgetsItsOwnUndo) {
    openWith(threeProfiles);
    typeName("Hot");
    QTest::keyClick(nameField(), Qt::Key_Left);
    QTest::keyClick(nameField(), Qt::Key_Return);
    EXPECT_EQ(nameField()->cursorPosition(), 2);
    QTest::keyClick(nameField(), Qt::Key_Home, Qt::ShiftModifier);
    QTest::keyClicks(nameField(), "W");
    QTest::keyClick(nameField(), Qt::Key_End, Qt::ShiftModifier);
    QTest::keyClick(nameField(), Qt::Key_Return);
    EXPECT_EQ(nameField()->selectedText().toStdString(), "t");
    EXPECT_EQ(nameField()->text().toStdString(), "Wt");
}

TEST_F(ProfilesUndo, BringsBackWhatDeleteRemoved) {
    openWith(threeProfiles);
    clickRow(1);
    QTest::keyClick(list(), Qt::Key_Delete);
    EXPECT_EQ(names(), (QStringList{"Warm", "!Night"}));
    view->undo();
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_EQ(selectedName().toStdString(), "Busy");
    EXPECT_EQ(nameField()->text().toStdString(), "Busy");
    EXPECT_FALSE(labels().contains("Fix the marked profiles to save."));
}

TEST_F(ProfilesUndo, BringsBackWhatAnAccidentalRevertThrewAway) {
    openWith(threeProfiles);
    typeName("Hot");
    add("Load curve");
    click("Revert");
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_EQ(undoText(), "Revert");
    view->undo();
    EXPECT_EQ(names(), (QStringList{"Hot", "Busy", "Night", "Load"}));
    EXPECT_TRUE(button("Save")->isEnabled());
}

TEST_F(ProfilesUndo, UndoesPastASave) {
    openWith(threeProfiles);
    typeName("Hot");
    click("Save");
    const auto saved = std::get<command::SaveProfiles>(takeCommands().at(0)).profiles;
    say(saved);
    EXPECT_FALSE(button("Save")->isEnabled());
    view->undo();
    EXPECT_EQ(names()[0].toStdString(), "Warm");
    EXPECT_TRUE(button("Save")->isEnabled());
    view->redo();
    EXPECT_FALSE(button("Save")->isEnabled());
}

TEST_F(ProfilesUndo, HandsTheFocusToTheListWhenAFormGoesThatHasIt) {
    openWith(threeProfiles);
    add("Load curve");
    nameField()->setFocus();
    view->undo();
    EXPECT_TRUE(list()->hasFocus());
    EXPECT_EQ(selectedName().toStdString(), "Warm");
}

TEST_F(ProfilesUndo, TakesADragOfASpeedBackAsOneStep) {
    openWith({scheduleProfile(1, "Night", action::Fixed{0.2})});
    const auto at = [this](double fraction) { return knobAt(*slider(), fraction); };
    const auto drag = [&](double from, double to) {
        QTest::mousePress(slider(), Qt::LeftButton, {}, at(from));
        for (int move = 0; move < 20; ++move)
            QTest::mouseMove(slider(), at(from + (to - from) * move / 19));
        QTest::mouseRelease(slider(), Qt::LeftButton, {}, at(to));
    };
    drag(0.2, 0.6);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Change Speed");
    const double between = slider()->fraction();
    drag(between, 0.9);
    EXPECT_EQ(count(), 2);
    view->undo();
    EXPECT_NEAR(slider()->fraction(), between, 0.006);
    view->undo();
    EXPECT_EQ(slider()->fraction(), 0.2);
}

TEST_F(ProfilesUndo, TakesABurstOfKeysOnASpeedBackAsOneStep) {
    openWith({scheduleProfile(1, "Night", action::Fixed{0.2})});
    slider()->setFocus();
    for (int press = 0; press < 10; ++press)
        QTest::keyClick(slider(), Qt::Key_Up);
    EXPECT_NEAR(slider()->fraction(), 0.3, 1e-9);
    EXPECT_EQ(count(), 1);
}

TEST_F(ProfilesUndo, TakesATypedTimeBackAsOneStep) {
    const InLocale twentyFourHours(QLocale::c());
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    typeHour("0705");
    auto* field = editor()->findChild<TimeField*>();
    EXPECT_EQ(field->minuteOfDay(), 425);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Change Time");
    QTest::keyClick(field, Qt::Key_Return);
    QTest::keyClick(field, Qt::Key_Up);
    EXPECT_EQ(count(), 2);
    view->undo();
    view->undo();
    EXPECT_EQ(field->minuteOfDay(), 1380);
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesUndo, TellsBurstsOfKeysInATimeApartByThePauseBetween) {
    const InLocale twentyFourHours(QLocale::c());
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    TimeField* field = timeField(0);
    field->setFocus();
    field->setSelectedSection(QDateTimeEdit::HourSection);
    for (const quint64 time : {5000U, 5100U, 5900U})
        pressAt(time, *field, Qt::Key_Down);
    EXPECT_EQ(count(), 1);
    for (const quint64 time : {7000U, 7100U})
        pressAt(time, *field, Qt::Key_PageDown);
    EXPECT_EQ(count(), 2);
    view->undo();
    EXPECT_EQ(field->minuteOfDay(), 20 * 60);
    view->undo();
    EXPECT_EQ(field->minuteOfDay(), 23 * 60);
}

TEST_F(ProfilesUndo, TellsTypingInATimeFromStepping) {
    const InLocale twentyFourHours(QLocale::c());
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    typeHour("0705");
    EXPECT_EQ(count(), 1);
    QTest::keyClick(timeField(0), Qt::Key_Up);
    QTest::keyClick(timeField(0), Qt::Key_Up);
    EXPECT_EQ(count(), 2);
    timeField(0)->setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(timeField(0), "08");
    EXPECT_EQ(count(), 3);
    view->undo();
    EXPECT_EQ(timeField(0)->minuteOfDay(), 7 * 60 + 7);
    view->undo();
    EXPECT_EQ(timeField(0)->minuteOfDay(), 7 * 60 + 5);
}

TEST_F(ProfilesUndo, LeavesATimeItsOwnUndoOnlyWhileItIsEdited) {
    const InLocale twentyFourHours(QLocale::c());
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    auto* text = timeField(0)->findChild<QLineEdit*>();
    typeHour("07");
    EXPECT_TRUE(text->isUndoAvailable());
    while (text->isUndoAvailable())
        QTest::keySequence(timeField(0), QKeySequence::Undo);
    EXPECT_EQ(timeField(0)->minuteOfDay(), 23 * 60);
    EXPECT_EQ(count(), 0);
    typeHour("07");
    timeField(1)->setFocus();
    EXPECT_FALSE(text->isUndoAvailable());
    EXPECT_EQ(count(), 1);
    timeField(0)->setFocus();
    view->undo();
    EXPECT_EQ(timeField(0)->minuteOfDay(), 23 * 60);
    EXPECT_FALSE(text->isUndoAvailable());
}

TEST_F(ProfilesUndo, BringsWindowsBackAndTakesThemAway) {
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    click("Add Window");
    const auto windows = [this] { return find<ScheduleEditor>()->windows(); };
    const auto both = windows();
    click("Remove window 1 of 2");
    EXPECT_EQ(windows(), std::vector<Window>{both[1]});
    view->undo();
    EXPECT_EQ(windows(), both);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    editor()->findChildren<TimeField*>()[2]->setFocus();
    view->undo();
    EXPECT_EQ(windows(), std::vector<Window>{both[0]});
    EXPECT_TRUE(button("Add Window")->hasFocus());
    EXPECT_EQ(count(), 2);
}

TEST_F(ProfilesUndo, EndsWithThePane) {
    openWith(threeProfiles);
    typeName("Hot");
    open();
    EXPECT_EQ(count(), 0);
}

} // namespace
} // namespace tervale
