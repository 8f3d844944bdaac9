#include "TervaleWindow/Accessibility/AccessiblePopUp.h"
#include "TervaleWindow/Controls/PopUpButton.h"
#include "TervaleWindow/Shell/ContentView.h"
#include "TervaleWindow/Support/HeardEvents.h"
#include "TervaleWindow/Support/InLocale.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QApplication>
#include <QListView>
#include <QMetaEnum>
#include <QRegularExpression>
#include <QTest>

#include <cmath>
#include <functional>
#include <memory>
#include <ostream>
#include <set>

using namespace tervale;

namespace {

using Nodes = std::vector<QAccessibleInterface*>;

constexpr UUID quietId{{1}};

/// In milliseconds; whatever is waited for comes within moments.
constexpr int patience = 10'000;

std::vector<Profile> profilesOfEachKind() {
    const Curve curve{{{40, 0.1}, {60, 0.35}, {80, 0.75}, {95, 1.0}}};
    return {{quietId, "Quiet", kind::Temperature{{SensorGroup::cpu, true}, curve}},
            {UUID{{2}}, "Busy", kind::Load{{{{10, 0}, {50, 0.4}, {90, 1}}}}},
            {UUID{{3}}, "Night",
             kind::Schedule{{{1380, 420, action::Automatic{}},
                             {540, 720, action::Fixed{0.4}},
                             {720, 1020, action::Profile{quietId}}}}},
            {UUID{{4}}, "", kind::Load{{{{10, 0}, {90, 1}}}}}};
}

/// One situation of the window.
struct Situation {
    std::string name;
    Pane pane = Pane::overview;
    /// The row that is chosen in the list of profiles.
    int profile = 0;
    bool hasAgent = true;
    bool hasController = true;
    std::function<void(BridgeState&)> agent{};
};

void PrintTo(const Situation& situation, std::ostream* out) {
    *out << situation.name;
}

std::vector<Situation> allSituations() {
    std::vector<Situation> all;
    for (const Pane pane : allPanes) {
        const std::string name = title(pane).toStdString();
        all.push_back({.name = name, .pane = pane});
        all.push_back({.name = name + "WithoutAnAgent", .pane = pane, .hasAgent = false});
        all.push_back({.name = name + "WithoutAController", .pane = pane, .hasController = false});
    }
    all.push_back({.name = "ATimer", .agent = [](BridgeState& state) {
                       state.timerAction = action::Fixed{1};
                       state.timerEnds = Date{3600};
                   }});
    all.push_back({.name = "AStatus", .agent = [](BridgeState& state) {
                       state.status = "Too hot: Max until it is cooler.";
                   }});
    all.push_back({.name = "NoProfiles", .pane = Pane::profiles, .agent = [](BridgeState& state) {
                       state.profiles.clear();
                   }});
    all.push_back({.name = "ALoadCurve", .pane = Pane::profiles, .profile = 1});
    all.push_back({.name = "ASchedule", .pane = Pane::profiles, .profile = 2});
    all.push_back({.name = "AProblem", .pane = Pane::profiles, .profile = 3});
    return all;
}

/// Everything that can be seen within, itself first, from the outside in.
void collect(QAccessibleInterface& node, Nodes& found) {
    if (node.state().invisible)
        return;
    found.push_back(&node);
    for (int index = 0; index < node.childCount(); ++index) {
        if (QAccessibleInterface* child = node.child(index))
            collect(*child, found);
    }
}

/// Such as "Button: Save".
std::string titleOf(const QAccessibleInterface& node) {
    const char* role = QMetaEnum::fromType<QAccessible::Role>().valueToKey(node.role());
    return std::string(role ? role : "?") + ": " + node.text(QAccessible::Name).toStdString();
}

bool isControl(const QAccessibleInterface& node) {
    static const std::set<QAccessible::Role> controls{
        QAccessible::Button,   QAccessible::ButtonMenu,  QAccessible::CheckBox,
        QAccessible::Slider,   QAccessible::SpinBox,     QAccessible::RadioButton,
        QAccessible::ComboBox, QAccessible::EditableText};
    return controls.contains(node.role());
}

bool mustBeNamed(const QAccessibleInterface& node) {
    return isControl(node) || node.role() == QAccessible::List ||
           node.role() == QAccessible::ListItem || node.role() == QAccessible::StaticText ||
           node.role() == QAccessible::Window || node.role() == QAccessible::MenuItem ||
           node.state().focusable;
}

QStringList actionsOf(QAccessibleInterface& node) {
    return node.actionInterface() ? node.actionInterface()->actionNames() : QStringList();
}

bool hasAction(QAccessibleInterface& node, const QString& name) {
    return actionsOf(node).contains(name);
}

/// A number within its limits, and the same as people read it: a Mac takes the text.
void expectValue(QAccessibleInterface& node) {
    QAccessibleValueInterface* value = node.valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_GE(value->currentValue().toDouble(), value->minimumValue().toDouble());
    EXPECT_LE(value->currentValue().toDouble(), value->maximumValue().toDouble());
    EXPECT_GT(value->minimumStepSize().toDouble(), 0);
    EXPECT_EQ(value->currentValue().toString(), node.text(QAccessible::Value));
    EXPECT_FALSE(node.text(QAccessible::Value).isEmpty());
    if (node.state().disabled)
        return;
    EXPECT_TRUE(hasAction(node, QAccessibleActionInterface::increaseAction()));
    EXPECT_TRUE(hasAction(node, QAccessibleActionInterface::decreaseAction()));
}

void expectChoice(QAccessibleInterface& popUp) {
    EXPECT_FALSE(popUp.text(QAccessible::Value).isEmpty());
    // As a value on a Mac, as a text elsewhere.
    EXPECT_NE(popUp.valueInterface() != nullptr, popUp.textInterface() != nullptr);
    EXPECT_EQ(!popUp.state().disabled,
              hasAction(popUp, QAccessibleActionInterface::showMenuAction()));
}

/// What nobody can set.
void expectNoValue(QAccessibleInterface& node) {
    const QAccessible::Role role = node.role();
    EXPECT_EQ(node.valueInterface(), nullptr);
    EXPECT_FALSE(hasAction(node, QAccessibleActionInterface::increaseAction()));
    EXPECT_EQ(role == QAccessible::EditableText, node.editableTextInterface() != nullptr);
    EXPECT_EQ(role == QAccessible::CheckBox || role == QAccessible::RadioButton,
              static_cast<bool>(node.state().checkable));
    EXPECT_EQ(role == QAccessible::ListItem,
              node.parent() && node.parent()->role() == QAccessible::List);
    EXPECT_EQ(node.tableInterface(), nullptr);
    if (!isControl(node) || role == QAccessible::EditableText || node.state().disabled)
        return;
    EXPECT_TRUE(hasAction(node, role == QAccessible::CheckBox
                                    ? QAccessibleActionInterface::toggleAction()
                                    : QAccessibleActionInterface::pressAction()));
}

void expectFittingRole(QAccessibleInterface& node) {
    const QAccessible::Role role = node.role();
    if (role == QAccessible::Slider || role == QAccessible::SpinBox) {
        expectValue(node);
    } else if (role == QAccessible::ComboBox) {
        expectChoice(node);
    } else if (role == QAccessible::ScrollBar) {
        EXPECT_NE(node.valueInterface(), nullptr);
    } else {
        expectNoValue(node);
    }
}

void expectItsPlace(QAccessibleInterface& node) {
    for (int index = 0; index < node.childCount(); ++index) {
        QAccessibleInterface* child = node.child(index);
        ASSERT_NE(child, nullptr);
        // A menu that is not open has no place.
        if (child->state().invisible)
            continue;
        EXPECT_EQ(child->parent(), &node) << titleOf(*child);
        EXPECT_EQ(node.indexOfChild(child), index) << titleOf(*child);
    }
}

void expectNamesOfTheirOwn(const QAccessibleInterface& parent) {
    std::set<QString> names;
    for (int index = 0; index < parent.childCount(); ++index) {
        const QAccessibleInterface* child = parent.child(index);
        if (!child || child->state().invisible || child->text(QAccessible::Name).isEmpty())
            continue;
        EXPECT_TRUE(names.insert(child->text(QAccessible::Name)).second) << titleOf(*child);
    }
}

/// What a Mac says behind the name; of a text, in its place.
QString valueOnAMac(QAccessibleInterface& node) {
    if (node.role() == QAccessible::StaticText)
        return node.text(QAccessible::Name);
    if (node.role() == QAccessible::ComboBox)
        return AccessiblePopUp(*static_cast<PopUpButton*>(node.object()),
                               ChoiceValues::inValueInterface)
            .currentValue()
            .toString();
    if (QAccessibleValueInterface* value = node.valueInterface())
        return value->currentValue().toString();
    return {};
}

bool hasValueOnAMac(const QAccessibleInterface& node) {
    static const std::set<QAccessible::Role> roles{QAccessible::StaticText, QAccessible::ComboBox,
                                                   QAccessible::Slider, QAccessible::SpinBox,
                                                   QAccessible::ScrollBar};
    return roles.contains(node.role());
}

} // namespace

class AccessibleWalk : public ModelFixture, public testing::WithParamInterface<Situation> {
  protected:
    AccessibleWalk() {
        controller.absent = !GetParam().hasController;
        controller.setFan(0, 2893, 3100, 1200, 5777, 1);
        controller.setFan(1, 2911, 3100, 1300, 6241, 1);
        for (const char* key : {"Tp01", "Tp05", "Te05", "Tg05", "Tm02", "TH0x"})
            controller.set(key, 57);
        makeModel();
        begin();
        window = std::make_unique<ContentView>(*model, bridge, GetParam().pane);
        window->setWindowTitle("Tervale");
        window->resize(980, 900);
        window->show();
        takeTheKeyboard();
        chooseProfile();
    }

    /// The agent's state that the situation begins with.
    void begin() {
        if (!GetParam().hasAgent)
            return;
        BridgeState state;
        state.selection = action::Fixed{0.5};
        state.profiles = profilesOfEachKind();
        if (GetParam().agent)
            GetParam().agent(state);
        publish(state);
    }
    /// To no control, so that each can take it.
    void takeTheKeyboard() {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
        window->setFocus();
    }
    void chooseProfile() {
        for (auto* list : window->findChildren<QListView*>()) {
            if (list->accessibleName() == "Profiles" && list->model()->rowCount() > 0)
                list->setCurrentIndex(list->model()->index(GetParam().profile, 0));
        }
        QApplication::processEvents();
    }
    /// As it was at first: a pane is made anew each time it is shown.
    void beginAgain() {
        while (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
        const Pane other = GetParam().pane == Pane::overview ? Pane::settings : Pane::overview;
        window->setSection(other);
        begin();
        window->setSection(GetParam().pane);
        takeTheKeyboard();
        chooseProfile();
        takeCommands();
    }

    Nodes nodes() {
        Nodes found;
        collect(*QAccessible::queryAccessibleInterface(window.get()), found);
        return found;
    }
    /// All that a screen reader could find out.
    std::string picture() {
        std::string lines;
        for (QAccessibleInterface* node : nodes()) {
            const QAccessible::State state = node->state();
            lines += titleOf(*node) + ' ' + node->text(QAccessible::Value).toStdString();
            for (const bool flag : {bool(state.disabled), bool(state.focused), bool(state.selected),
                                    bool(state.checked), bool(state.expanded)})
                lines += flag ? '1' : '0';
            lines += '\n';
        }
        return lines;
    }
    /// Whether the action would lead to where the control is already.
    static bool isThereAlready(QAccessibleInterface& node, const QString& action) {
        const QAccessible::State state = node.state();
        if (action == QAccessibleActionInterface::setFocusAction())
            return state.focused;
        if (action == QAccessibleActionInterface::pressAction() && state.selected)
            return true;
        const bool raises = action == QAccessibleActionInterface::increaseAction();
        const bool lowers = action == QAccessibleActionInterface::decreaseAction();
        if (!raises && !lowers)
            return node.role() == QAccessible::RadioButton && state.checked;
        QAccessibleValueInterface& value = *node.valueInterface();
        return value.currentValue().toDouble() ==
               (raises ? value.maximumValue() : value.minimumValue()).toDouble();
    }

    /// A second in which nothing changes but for the last digits.
    void pass(int second) {
        controller.setFan(0, 2893 + second % 7, 3100, 1200, 5777, 1);
        controller.set("Tp01", 57 + 0.1 * (second % 3));
        timer.runOut();
    }

    InLocale plain{QLocale::c()};
    std::unique_ptr<ContentView> window;
};

TEST_P(AccessibleWalk, FindsANameOnEverythingThatIsThere) {
    for (const QAccessibleInterface* node : nodes()) {
        if (mustBeNamed(*node)) {
            EXPECT_FALSE(node->text(QAccessible::Name).isEmpty())
                << titleOf(*node) << " in " << titleOf(*node->parent());
        }
        EXPECT_FALSE(node->text(QAccessible::Name).contains('<')) << titleOf(*node);
        EXPECT_FALSE(node->text(QAccessible::Description).contains('<')) << titleOf(*node);
    }
}

TEST_P(AccessibleWalk, FindsNoTwoOfOneNameBesideEachOther) {
    std::set<QString> controls;
    for (const QAccessibleInterface* node : nodes()) {
        expectNamesOfTheirOwn(*node);
        // Nor anywhere else, where they are controls: who goes from one to the next hears no more.
        if (isControl(*node)) {
            EXPECT_TRUE(controls.insert(node->text(QAccessible::Name)).second) << titleOf(*node);
        }
    }
}

TEST_P(AccessibleWalk, FindsRolesThatFitWhatCanBeDone) {
    for (QAccessibleInterface* node : nodes()) {
        SCOPED_TRACE(titleOf(*node));
        expectFittingRole(*node);
        expectItsPlace(*node);
    }
}

TEST_P(AccessibleWalk, FindsNoActionThatChangesNothing) {
    beginAgain();
    const std::string atFirst = picture();
    const std::size_t count = nodes().size();
    for (std::size_t place = 0; place < count; ++place) {
        for (const QString& action : actionsOf(*nodes()[place])) {
            QAccessibleInterface& node = *nodes()[place];
            if (node.state().disabled || isThereAlready(node, action))
                continue;
            const std::string name = titleOf(node);
            node.actionInterface()->doAction(action);
            // A button is seen to be down before it acts.
            EXPECT_TRUE(QTest::qWaitFor(
                [&] { return picture() != atFirst || !takeCommands().empty(); }, patience))
                << name << ": " << action.toStdString();
            beginAgain();
            ASSERT_EQ(picture(), atFirst) << "after " << name << ": " << action.toStdString();
        }
    }
}

TEST_P(AccessibleWalk, FindsANameOnEveryEntryOfAMenu) {
    const std::size_t count = nodes().size();
    for (std::size_t place = 0; place < count; ++place) {
        QAccessibleInterface& button = *nodes()[place];
        if (!hasAction(button, QAccessibleActionInterface::showMenuAction()))
            continue;
        SCOPED_TRACE(titleOf(button));
        button.actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
        EXPECT_TRUE(button.state().expanded);
        Nodes entries;
        collect(*button.child(0), entries);
        EXPECT_GT(entries.size(), 1U);
        for (const QAccessibleInterface* entry : entries) {
            if (mustBeNamed(*entry)) {
                EXPECT_FALSE(entry->text(QAccessible::Name).isEmpty()) << titleOf(*entry);
            }
            expectNamesOfTheirOwn(*entry);
        }
        beginAgain();
    }
}

TEST_P(AccessibleWalk, ReadsValuesInWordsAsAMacDoes) {
    for (QAccessibleInterface* node : nodes()) {
        const QString value = valueOnAMac(*node);
        EXPECT_EQ(value.isEmpty(), !hasValueOnAMac(*node)) << titleOf(*node);
        // Nobody says all the digits of a measurement.
        EXPECT_FALSE(value.contains(QRegularExpression("\\d[.,]\\d\\d")))
            << titleOf(*node) << ": " << value.toStdString();
    }
}

TEST_P(AccessibleWalk, HearsNothingAtRest) {
    for (int second = 0; second < 3; ++second)
        pass(second);
    QApplication::processEvents();
    HeardEvents heard;
    for (int second = 0; second < 60; ++second)
        pass(second);
    begin();
    QApplication::processEvents();
    EXPECT_EQ(heard.takeCount(), 0) << heard.take().join("; ").toStdString();
    // What would be told is heard.
    controller.setFan(0, 4500, 4500, 1200, 5777, 1);
    timer.runOut();
    QApplication::processEvents();
    EXPECT_EQ(heard.takeCount() > 0, GetParam().hasController);
}

INSTANTIATE_TEST_SUITE_P(Of, AccessibleWalk, testing::ValuesIn(allSituations()),
                         [](const testing::TestParamInfo<Situation>& situation) {
                             return situation.param.name;
                         });
