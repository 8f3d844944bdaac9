#include "TervaleWindow/Controls/Card.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Controls/SegmentedPicker.h"
#include "TervaleWindow/Controls/SymbolButton.h"
#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Controls/TimeField.h"
#include "TervaleWindow/Profiles/CurveCanvas.h"
#include "TervaleWindow/Profiles/CurveEditor.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfileEditor.h"
#include "TervaleWindow/Profiles/ProfilesListModel.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Profiles/ScheduleEditor.h"
#include "TervaleWindow/Style/FocusRing.h"
#include "TervaleWindow/Support/Choosing.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>

namespace tervale {
namespace {

UUID idOf(int number) {
    UUID id;
    id.bytes[14] = static_cast<std::uint8_t>(number / 256);
    id.bytes[15] = static_cast<std::uint8_t>(number % 256);
    return id;
}

Profile temperatureProfile(int number, const std::string& name) {
    return {idOf(number), name,
            kind::Temperature{{SensorGroup::cpu, true}, ProfileDefaults::temperatureCurve()}};
}
Profile loadProfile(int number, const std::string& name) {
    return {idOf(number), name, kind::Load{ProfileDefaults::loadCurve()}};
}
Profile scheduleProfile(int number, const std::string& name, const Action& action) {
    return {idOf(number), name, kind::Schedule{{{1380, 420, action}}}};
}

const std::vector<Profile> threeProfiles{temperatureProfile(1, "Warm"), loadProfile(2, "Busy"),
                                         scheduleProfile(3, "Night", action::Profile{idOf(2)})};

class ProfilesViewTest : public ModelFixture {
  protected:
    ProfilesView& open() {
        if (!model)
            makeModel();
        view = std::make_unique<ProfilesView>(*model, bridge);
        view->resize(790, 680);
        view->show();
        view->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
        takeCommands();
        return *view;
    }
    ProfilesView& openWith(const std::vector<Profile>& profiles) {
        makeModel();
        say(profiles);
        return open();
    }
    void say(const std::vector<Profile>& profiles) {
        BridgeState state;
        state.profiles = profiles;
        publish(state);
    }

    /// The texts of labels that have less room than they need, or reach out of what they lie in.
    QStringList clippedLabels() const {
        QStringList clipped;
        for (const auto* label : view->findChildren<QLabel*>()) {
            if (!label->isVisibleTo(view.get()) || label->text().isEmpty())
                continue;
            const int needed = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                          : label->minimumSizeHint().height();
            const QRect room = label->parentWidget()->rect();
            if (needed > label->height() || label->minimumSizeHint().width() > label->width() ||
                !room.contains(label->geometry()))
                clipped << label->text();
        }
        return clipped;
    }

    template <class Widget>
    Widget* find() const {
        return view->findChild<Widget*>();
    }
    template <class Button = QPushButton>
    Button* button(const QString& name) const {
        for (Button* found : view->findChildren<Button*>()) {
            if (found->text() == name || found->accessibleName() == name)
                return found;
        }
        return nullptr;
    }
    QListView* list() const { return find<QListView>(); }
    QLineEdit* nameField() const {
        const QWidget* editor = view->findChild<QScrollArea*>()->widget();
        for (QLineEdit* field : editor ? editor->findChildren<QLineEdit*>() : QList<QLineEdit*>())
            if (field->accessibleName() == "Name")
                return field;
        return nullptr;
    }
    CurveCanvas* canvas() const {
        const auto* editor = view->findChild<QScrollArea*>()->widget();
        return editor ? editor->findChild<CurveCanvas*>() : nullptr;
    }
    QStringList names() const {
        QStringList result;
        for (const auto& row : find<ProfilesListModel>()->rows())
            result.push_back((row.marked ? "!" : "") + row.name);
        return result;
    }
    QString selectedName() const {
        const QModelIndexList selected = list()->selectionModel()->selectedIndexes();
        return selected.isEmpty() ? QString() : selected.front().data().toString();
    }
    void clickRow(int row) const {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {},
                          list()->visualRect(list()->model()->index(row, 0)).center());
    }
    void add(const QString& entry) const {
        choose(*button<SymbolButton>("Add profile")->menu(), entry);
    }
    void click(const QString& name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    void typeName(const QString& text) const {
        nameField()->setFocus();
        nameField()->selectAll();
        if (text.isEmpty())
            QTest::keyClick(nameField(), Qt::Key_Backspace);
        else
            QTest::keyClicks(nameField(), text);
    }
    /// Types into the hour of the first window's start and leaves it at that.
    void typeHour(const QString& digits) const {
        auto* field = find<ScheduleEditor>()->findChild<TimeField*>();
        field->setFocus();
        field->setSelectedSection(QDateTimeEdit::HourSection);
        QTest::keyClicks(field, digits);
    }
    /// The texts of all labels that are visible.
    QStringList labels() const {
        QStringList result;
        for (const QLabel* label : view->findChildren<QLabel*>()) {
            if (label->isVisible())
                result.push_back(label->text());
        }
        return result;
    }

    /// What has the focus after each of so many tabs; once for all sections of one field.
    QStringList walk(int stops) const {
        QStringList walked;
        const QWidget* last = nullptr;
        while (walked.size() < stops) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* reached = QApplication::focusWidget();
            if (reached == last)
                continue;
            last = reached;
            const auto* named = qobject_cast<const QAbstractButton*>(reached);
            if (qobject_cast<const QRadioButton*>(reached))
                walked.push_back("segment");
            else if (reached->accessibleName().isEmpty() && named)
                walked.push_back(named->text());
            else
                walked.push_back(reached->accessibleName());
        }
        return walked;
    }

    std::unique_ptr<ProfilesView> view;
};

TEST_F(ProfilesViewTest, StaysEmptyUntilTheAgentAnswers) {
    open();
    EXPECT_TRUE(names().isEmpty());
    EXPECT_TRUE(labels().contains("No profile selected"));
    EXPECT_TRUE(labels().contains(
        "Add one with + to make the fan follow temperature, load or the time of day."));
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_FALSE(button("Revert")->isEnabled());
    EXPECT_FALSE(button<SymbolButton>("Add profile")->isEnabled());
}

TEST_F(ProfilesViewTest, LoadsWhatTheAgentPublishes) {
    open();
    say(threeProfiles);
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_EQ(selectedName().toStdString(), "Warm");
    EXPECT_EQ(nameField()->text().toStdString(), "Warm");
    EXPECT_TRUE(button<SymbolButton>("Add profile")->isEnabled());
}

TEST_F(ProfilesViewTest, FollowsTheAgentWhileNothingIsEdited) {
    openWith(threeProfiles);
    say({threeProfiles[0], loadProfile(7, "Seven")});
    EXPECT_EQ(names(), (QStringList{"Warm", "Seven"}));
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesViewTest, KeepsUnsavedEditsWhateverTheAgentSays) {
    openWith(threeProfiles);
    typeName("Hot");
    say({loadProfile(7, "Seven")});
    EXPECT_EQ(names(), (QStringList{"Hot", "Busy", "Night"}));
    EXPECT_EQ(nameField()->text().toStdString(), "Hot");
    EXPECT_TRUE(nameField()->hasFocus());
    EXPECT_TRUE(button("Save")->isEnabled());
}

TEST_F(ProfilesViewTest, TypesANameWithoutLosingCursorOrFocus) {
    openWith(threeProfiles);
    QLineEdit* field = nameField();
    field->setFocus();
    field->setCursorPosition(2);
    QTest::keyClicks(field, "xy");
    EXPECT_EQ(nameField(), field);
    EXPECT_EQ(field->cursorPosition(), 4);
    EXPECT_TRUE(field->hasFocus());
    EXPECT_EQ(names()[0].toStdString(), "Waxyrm");
}

TEST_F(ProfilesViewTest, AddsEveryKindOfProfile) {
    openWith({});
    add("Temperature curve");
    EXPECT_EQ(selectedName().toStdString(), "Temperature");
    EXPECT_NE(canvas(), nullptr);
    add("Load curve");
    EXPECT_EQ(selectedName().toStdString(), "Load");
    EXPECT_TRUE(labels().contains("Follows CPU or GPU load, whichever is higher."));
    add("Schedule");
    EXPECT_EQ(selectedName().toStdString(), "Schedule");
    EXPECT_NE(find<ScheduleEditor>(), nullptr);
    add("Temperature curve");
    EXPECT_EQ(names(), (QStringList{"Temperature", "Load", "Schedule", "Temperature 2"}));
    click("Save");
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const auto& saved = std::get<command::SaveProfiles>(commands[0]).profiles;
    ASSERT_EQ(saved.size(), 4U);
    EXPECT_EQ(saved[0].kind, ProfileKind(kind::Temperature{{SensorGroup::cpu, false},
                                                           ProfileDefaults::temperatureCurve()}));
    EXPECT_EQ(saved[1].kind, ProfileKind(kind::Load{ProfileDefaults::loadCurve()}));
    EXPECT_EQ(saved[2].kind, ProfileKind(kind::Schedule{ProfileDefaults::schedule()}));
}

TEST_F(ProfilesViewTest, OffersItsMenuInOrder) {
    openWith({});
    QStringList titles;
    for (const QAction* offered : button<SymbolButton>("Add profile")->menu()->actions())
        titles.push_back(offered->text());
    EXPECT_EQ(titles, (QStringList{"Temperature curve", "Load curve", "Schedule"}));
}

TEST_F(ProfilesViewTest, DuplicatesAndRemovesByItsButtons) {
    openWith(threeProfiles);
    clickRow(1);
    click("Duplicate profile");
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night", "Busy copy"}));
    EXPECT_EQ(selectedName().toStdString(), "Busy copy");
    click("Remove profile");
    EXPECT_EQ(selectedName().toStdString(), "Night");
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesViewTest, RemovesByKeysInTheList) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down);
    EXPECT_EQ(nameField()->text().toStdString(), "Two");
    QTest::keyClick(list(), Qt::Key_Delete);
    EXPECT_EQ(names(), QStringList{"One"});
    EXPECT_EQ(nameField()->text().toStdString(), "One");
    EXPECT_TRUE(list()->hasFocus());
    QTest::keyClick(list(), Qt::Key_Backspace);
    EXPECT_TRUE(labels().contains("No profile selected"));
    EXPECT_FALSE(button("Remove profile")->isEnabled());
    EXPECT_FALSE(button("Duplicate profile")->isEnabled());
    click("Save");
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SaveProfiles{}});
}

TEST_F(ProfilesViewTest, KeepsTheFocusInTheListsColumnWhenTheLastProfileGoes) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    auto* remove = button<SymbolButton>("Remove profile");
    remove->setFocus(Qt::TabFocusReason);
    QTest::keyClick(remove, Qt::Key_Space);
    EXPECT_TRUE(remove->hasFocus());
    QTest::keyClick(remove, Qt::Key_Space);
    EXPECT_TRUE(button<SymbolButton>("Add profile")->hasFocus());
    EXPECT_TRUE(hasKeyboardFocus(*button<SymbolButton>("Add profile")));
    say({loadProfile(1, "One")});
    click("Revert");
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Down);
    QTest::keyClick(list(), Qt::Key_Delete);
    ASSERT_TRUE(names().isEmpty());
    EXPECT_TRUE(button<SymbolButton>("Add profile")->hasFocus());
    EXPECT_EQ(list()->focusPolicy(), Qt::NoFocus);
}

TEST_F(ProfilesViewTest, GivesTheFocusBackToTheListAfterSaveAndRevert) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    const auto type = [this] {
        nameField()->setFocus();
        QTest::keyClicks(nameField(), "x");
    };
    type();
    button("Revert")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button("Revert"), Qt::Key_Space);
    EXPECT_TRUE(list()->hasFocus());
    type();
    button("Save")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(button("Save"), Qt::Key_Space);
    say(std::get<command::SaveProfiles>(takeCommands().back()).profiles);
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_TRUE(list()->hasFocus());
}

TEST_F(ProfilesViewTest, ShowsWhichRowTheKeyboardIsAt) {
    openWith({loadProfile(1, "One"), loadProfile(2, "Two")});
    nameField()->setFocus();
    const QImage elsewhere = list()->grab().toImage();
    list()->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(list()->grab().toImage(), elsewhere);
    nameField()->setFocus();
    view->setAttribute(Qt::WA_KeyboardFocusChange);
    list()->setFocus(Qt::TabFocusReason);
    EXPECT_NE(list()->grab().toImage(), elsewhere);
}

TEST_F(ProfilesViewTest, DeletesTextAndNoProfileInTheNameField) {
    openWith(threeProfiles);
    nameField()->setFocus();
    nameField()->end(false);
    QTest::keyClick(nameField(), Qt::Key_Backspace);
    EXPECT_EQ(names(), (QStringList{"War", "Busy", "Night"}));
}

TEST_F(ProfilesViewTest, MarksAProfileWithoutANameAndSaysWhy) {
    openWith(threeProfiles);
    typeName("");
    EXPECT_EQ(names(), (QStringList{"!Untitled", "Busy", "Night"}));
    EXPECT_TRUE(labels().contains("Give the profile a name."));
    EXPECT_TRUE(labels().contains("Fix the marked profiles to save."));
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_TRUE(button("Revert")->isEnabled());
    typeName("Cool");
    EXPECT_FALSE(labels().contains("Give the profile a name."));
    EXPECT_FALSE(labels().contains("Fix the marked profiles to save."));
    EXPECT_TRUE(button("Save")->isEnabled());
}

TEST_F(ProfilesViewTest, MarksASchedulesWhoseProfileIsRemoved) {
    openWith(threeProfiles);
    clickRow(1);
    click("Remove profile");
    EXPECT_EQ(names(), (QStringList{"Warm", "!Night"}));
    EXPECT_TRUE(labels().contains("A window runs a profile that no longer exists."));
    EXPECT_FALSE(button("Save")->isEnabled());
}

TEST_F(ProfilesViewTest, SavesAsOneCommandAndWaitsForTheAgent) {
    openWith(threeProfiles);
    typeName("Hot");
    click("Save");
    auto expected = threeProfiles;
    expected[0].name = "Hot";
    EXPECT_EQ(takeCommands(), std::vector<BridgeCommand>{command::SaveProfiles{expected}});
    EXPECT_TRUE(button("Save")->isEnabled());
    say(threeProfiles);
    EXPECT_EQ(nameField()->text().toStdString(), "Hot");
    say(expected);
    EXPECT_FALSE(button("Save")->isEnabled());
    EXPECT_FALSE(button("Revert")->isEnabled());
    EXPECT_EQ(nameField()->text().toStdString(), "Hot");
}

TEST_F(ProfilesViewTest, SavesByItsShortcutOnlyWhatCanBeSaved) {
    openWith(threeProfiles);
    const auto pressSave = [this] { QTest::keyClick(nameField(), Qt::Key_S, Qt::ControlModifier); };
    pressSave();
    EXPECT_TRUE(takeCommands().empty());
    typeName("");
    pressSave();
    EXPECT_TRUE(takeCommands().empty());
    typeName("Hot");
    pressSave();
    EXPECT_EQ(takeCommands().size(), 1U);
}

TEST_F(ProfilesViewTest, RevertsToTheAgentsListAndKeepsTheSelection) {
    openWith(threeProfiles);
    clickRow(1);
    typeName("Idle");
    click("Revert");
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_EQ(selectedName().toStdString(), "Busy");
    EXPECT_EQ(nameField()->text().toStdString(), "Busy");
    add("Load curve");
    click("Revert");
    EXPECT_EQ(selectedName(), QString());
    EXPECT_TRUE(labels().contains("No profile selected"));
}

TEST_F(ProfilesViewTest, SelectsTheFirstProfileWithWhateverStateComesAfterTheLastWasRemoved) {
    openWith({loadProfile(1, "One")});
    click("Remove profile");
    click("Revert");
    EXPECT_EQ(selectedName(), QString());
    BridgeState state;
    state.profiles = {loadProfile(1, "One")};
    state.status = "The fans do not answer.";
    publish(state);
    EXPECT_EQ(selectedName().toStdString(), "One");
    EXPECT_EQ(nameField()->text().toStdString(), "One");
}

TEST_F(ProfilesViewTest, EditsACurveByTheMouse) {
    openWith(threeProfiles);
    const PlotPoint from = CurvePlot{canvas()->plot(), {20, 110}}.position({60, 0.35});
    const PlotPoint to = CurvePlot{canvas()->plot(), {20, 110}}.position({66, 0.5});
    const auto place = [](const PlotPoint& point) { return QPointF(point.x, point.y).toPoint(); };
    QTest::mousePress(canvas(), Qt::LeftButton, {}, place(from));
    EXPECT_TRUE(canvas()->state().dragging);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, place(to));
    click("Save");
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const Profile saved = std::get<command::SaveProfiles>(commands[0]).profiles[0];
    EXPECT_EQ(std::get<kind::Temperature>(saved.kind).curve.points[1].x, 66);
    EXPECT_NEAR(std::get<kind::Temperature>(saved.kind).curve.points[1].speed, 0.5, 0.011);
}

TEST_F(ProfilesViewTest, ChoosesWhichReadingACurveFollows) {
    openWith(threeProfiles);
    auto* follow = view->findChild<QScrollArea*>()->widget()->findChild<PopUpButton*>();
    auto* reading = view->findChild<QScrollArea*>()->widget()->findChild<SegmentedPicker*>();
    EXPECT_EQ(follow->currentText().toStdString(), "CPU");
    EXPECT_EQ(reading->title(0).toStdString(), "Hottest sensor");
    EXPECT_EQ(reading->title(1).toStdString(), "Core average");
    EXPECT_EQ(reading->selected(), 1);
    EXPECT_EQ(follow->count(), 6);
    choose(*follow, 3);
    EXPECT_EQ(reading->title(1).toStdString(), "Average");
    QTest::mouseClick(reading->findChildren<QRadioButton*>()[0], Qt::LeftButton);
    click("Save");
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const Profile saved = std::get<command::SaveProfiles>(commands[0]).profiles[0];
    EXPECT_EQ(std::get<kind::Temperature>(saved.kind).input,
              (TemperatureInput{SensorGroup::ssd, false}));
}

TEST_F(ProfilesViewTest, MovesTheMarkerWithTheReading) {
    controller.set("Tp01", 58);
    openWith(threeProfiles);
    const QImage warm = canvas()->grab().toImage();
    controller.set("Tp01", 80);
    clock.time = clock.time + 120.0;
    model->refresh();
    ASSERT_EQ(model->summary().at({SensorGroup::cpu, true}), 80.0);
    EXPECT_NE(canvas()->grab().toImage(), warm);
}

TEST_F(ProfilesViewTest, StartsAnewEachTimeItIsShown) {
    openWith(threeProfiles);
    typeName("Hot");
    open();
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesViewTest, ShowsNothingByControlClickOnTheSelectedRow) {
    openWith(threeProfiles);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, Qt::ControlModifier,
                      list()->visualRect(list()->model()->index(0, 0)).center());
    EXPECT_EQ(nameField(), nullptr);
    EXPECT_EQ(names().size(), 3);
    clickRow(0);
    EXPECT_EQ(nameField()->text().toStdString(), "Warm");
}

TEST_F(ProfilesViewTest, EditsTheFirstOfTwoProfilesWithTheSameId) {
    openWith({loadProfile(1, "One"), loadProfile(1, "Other")});
    typeName("Uno");
    EXPECT_EQ(names(), (QStringList{"Uno", "Other"}));
}

TEST_F(ProfilesViewTest, WalksThroughItsControlsInReadingOrder) {
    openWith(threeProfiles);
    list()->setFocus();
    const QStringList walked = walk(8);
    EXPECT_EQ(walked.join(", ").toStdString(),
              "Add profile, Duplicate profile, Remove profile, Name, Follow, segment, "
              "Fan speed curve, Profiles");
}

TEST_F(ProfilesViewTest, WalksThroughWindowsThatWereAddedLater) {
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    click("Add Window");
    QCoreApplication::processEvents();
    nameField()->setFocus();
    const QStringList walked = walk(10);
    EXPECT_EQ(walked.join(", ").toStdString(),
              "From, To, Run, Remove window, From, To, Run, Remove window, Add Window, Revert");
}

TEST_F(ProfilesViewTest, EndsTheRemoveSymbolOfAWindowWhereTheNameFieldEnds) {
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    const auto* remove = button<SymbolButton>("Remove window");
    const auto rightOf = [this](const QWidget* widget) {
        return widget->mapTo(view.get(), widget->rect().topRight()).x();
    };
    constexpr int aroundSymbol = 5;
    EXPECT_EQ(rightOf(remove) - aroundSymbol, rightOf(nameField()));
}

TEST_F(ProfilesViewTest, KeepsItsBottomBarInLineWithTheCards) {
    openWith({loadProfile(1, "Busy")});
    for (const QSize size : {QSize(790, 680), QSize(590, 520)}) {
        view->resize(size);
        QCoreApplication::processEvents();
        const QWidget* card = find<Card>();
        const QWidget* save = button("Save");
        ASSERT_NE(card, nullptr);
        const auto endOf = [this](const QWidget& widget) {
            return widget.mapTo(view.get(), widget.rect().topRight()).x();
        };
        const int scrollBar =
            find<QScrollArea>()->width() - find<QScrollArea>()->viewport()->width();
        EXPECT_EQ(endOf(*save), endOf(*card) + scrollBar) << size.width();
    }
}

TEST_F(ProfilesViewTest, StaysUsableAtItsLargest) {
    std::vector<Profile> profiles;
    for (int number = 1; number <= 200; ++number)
        profiles.push_back(loadProfile(number, std::string(200, 'W')));
    std::vector<Window> windows;
    for (int number = 0; number < 30; ++number)
        windows.push_back({number * 48, number * 48 + 40, action::Profile{idOf(1)}});
    profiles.push_back({idOf(300), "ليلة 🌙", kind::Schedule{windows}});
    openWith(profiles);
    view->resize(590, 520);
    clickRow(0);
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_End);
    EXPECT_EQ(nameField()->text().toStdString(), "ليلة 🌙");
    QCoreApplication::processEvents();
    const auto* scrollArea = find<QScrollArea>();
    EXPECT_EQ(scrollArea->horizontalScrollBar()->maximum(), 0);
    EXPECT_GT(scrollArea->verticalScrollBar()->maximum(), 0);
    EXPECT_LE(view->minimumSizeHint().width(), 590);
    EXPECT_LE(view->minimumSizeHint().height(), 520);
}

TEST_F(ProfilesViewTest, FitsEveryKindOfProfileInItsLeastWidth) {
    openWith(threeProfiles);
    view->resize(590, 520);
    for (int row = 0; row < 3; ++row) {
        clickRow(row);
        QCoreApplication::processEvents();
        EXPECT_EQ(find<QScrollArea>()->horizontalScrollBar()->maximum(), 0) << row;
    }
}

TEST_F(ProfilesViewTest, ClipsNothingInItsLeastSizeInEitherDirection) {
    Curve full;
    for (int point = 0; point < Profile::maxPoints; ++point)
        full.points.push_back({20.0 + 10 * point, 0.1 * point});
    const std::vector<Profile> profiles{
        {idOf(1), "", kind::Temperature{{SensorGroup::cpu, true}, full}},
        {idOf(2), "Night",
         kind::Schedule{{{1380, 420, action::Fixed{0.4}}, {0, 60, action::Profile{idOf(9)}}}}},
        loadProfile(3, "Busy")};
    openWith(profiles);
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        view->setLayoutDirection(direction);
        view->resize(590, 520);
        for (int row = 0; row < 3; ++row) {
            clickRow(row);
            QCoreApplication::processEvents();
            EXPECT_EQ(clippedLabels(), QStringList()) << row;
            EXPECT_EQ(find<QScrollArea>()->horizontalScrollBar()->maximum(), 0) << row;
        }
    }
}

TEST_F(ProfilesViewTest, ForgetsAHalfTypedTimeWithTheProfile) {
    openWith({scheduleProfile(1, "Night", action::Automatic{}), loadProfile(2, "Busy")});
    typeHour("1");
    say({loadProfile(2, "Busy")});
    EXPECT_EQ(names(), QStringList{"Busy"});
    EXPECT_EQ(nameField(), nullptr);
    EXPECT_FALSE(button("Revert")->isEnabled());
}

TEST_F(ProfilesViewTest, GoesAwayInTheMiddleOfATime) {
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    typeHour("1");
    view.reset();
    EXPECT_TRUE(takeCommands().empty());
}

TEST_F(ProfilesViewTest, SavesATimeThatIsHalfTyped) {
    openWith({scheduleProfile(1, "Night", action::Automatic{})});
    typeHour("1");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const Profile saved = std::get<command::SaveProfiles>(commands[0]).profiles[0];
    EXPECT_EQ(std::get<kind::Schedule>(saved.kind).windows[0].start, 60);
}

TEST_F(ProfilesViewTest, ActsOnceForAKeyThatIsHeldDown) {
    openWith(threeProfiles);
    for (const QShortcut* shortcut : view->findChildren<QShortcut*>())
        EXPECT_FALSE(shortcut->autoRepeat()) << shortcut->key().toString().toStdString();
    EXPECT_EQ(view->findChildren<QShortcut*>().size(), 3);
}

TEST_F(ProfilesViewTest, KeepsALongNameWhole) {
    const std::string name(40000, 'x');
    openWith({loadProfile(1, name), loadProfile(2, "Busy")});
    nameField()->setFocus();
    QTest::keyClick(nameField(), Qt::Key_End);
    QTest::keyClicks(nameField(), "y");
    EXPECT_EQ(nameField()->text().toStdString(), name + "y");
    click("Save");
    EXPECT_EQ(std::get<command::SaveProfiles>(takeCommands().at(0)).profiles[0].name, name + "y");
}

TEST_F(ProfilesViewTest, KeepsWhatIsDraggedWhenAStateArrives) {
    openWith(threeProfiles);
    const CurvePlot plot{canvas()->plot(), {20, 110}};
    const auto place = [&plot](double x, double speed) {
        const PlotPoint point = plot.position({x, speed});
        return QPointF(point.x, point.y).toPoint();
    };
    QTest::mousePress(canvas(), Qt::LeftButton, {}, place(60, 0.35));
    QMouseEvent move(QEvent::MouseMove, place(66, 0.5), canvas()->mapToGlobal(place(66, 0.5)),
                     Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(canvas(), &move);
    say({loadProfile(7, "Seven")});
    EXPECT_EQ(canvas()->state().dragging, 1U);
    QTest::mouseRelease(canvas(), Qt::LeftButton, {}, place(70, 0.5));
    EXPECT_EQ(canvas()->state().curve.points[1].x, 70);
    EXPECT_EQ(names(), (QStringList{"Warm", "Busy", "Night"}));
}

TEST_F(ProfilesViewTest, KeepsWhatWasEditedAfterItWasSaved) {
    openWith(threeProfiles);
    typeName("One");
    click("Save");
    const auto first = std::get<command::SaveProfiles>(takeCommands().at(0)).profiles;
    typeName("Two");
    say(first);
    EXPECT_EQ(nameField()->text().toStdString(), "Two");
    EXPECT_TRUE(button("Save")->isEnabled());
    click("Save");
    const auto second = std::get<command::SaveProfiles>(takeCommands().at(0)).profiles;
    EXPECT_EQ(second[0].name, "Two");
    say(second);
    EXPECT_FALSE(button("Save")->isEnabled());
}

TEST_F(ProfilesViewTest, LandsOnTheChosenReadingByTab) {
    openWith(threeProfiles);
    auto* follow = find<QScrollArea>()->widget()->findChild<PopUpButton*>();
    follow->setFocus();
    QTest::keyClick(follow, Qt::Key_Tab);
    auto* segment = qobject_cast<QRadioButton*>(QApplication::focusWidget());
    ASSERT_NE(segment, nullptr);
    EXPECT_EQ(segment->text().toStdString(), "Core average");
    QTest::keyClick(segment, Qt::Key_Backtab);
    EXPECT_EQ(QApplication::focusWidget(), follow);
}

} // namespace
} // namespace tervale
