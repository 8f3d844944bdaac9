#include "JSON/JSON.h"
#include "TervaleWindow/Controls/SymbolLabel.h"
#include "TervaleWindow/Profiles/ProfileDefaults.h"
#include "TervaleWindow/Profiles/ProfilesView.h"
#include "TervaleWindow/Support/ModelFixture.h"

#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace tervale {
namespace {

const QString tooLong = "The profiles are too long to save. Shorten names or remove some.";

Profile named(std::uint8_t number, const std::string& name) {
    UUID id;
    id.bytes.back() = number;
    return {id, name, kind::Load{ProfileDefaults::loadCurve()}};
}

/// Three profiles whose text has so many bytes.
std::vector<Profile> profilesOfSize(std::size_t size) {
    std::vector<Profile> profiles{named(1, "Load"), named(2, ""), named(3, "Third")};
    profiles[1].name.assign(size - encode(profiles).size(), 'x');
    return profiles;
}

/// The pane with profiles that can just be saved, the first of which is selected.
class SavingLimit : public ModelFixture {
  protected:
    SavingLimit() {
        makeModel();
        BridgeState state;
        state.profiles = profilesOfSize(Bridge::maximumProfilesSize);
        publish(state);
        view = std::make_unique<ProfilesView>(*model, bridge);
        view->resize(790, 680);
        view->show();
        view->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(view.get()));
        takeCommands();
    }
    /// Into the name of the selected profile, at its end.
    void type(const QString& text) const {
        for (auto* field : view->findChildren<QLineEdit*>()) {
            if (field->accessibleName() != "Name" || !field->isVisible())
                continue;
            field->setFocus();
            field->end(false);
            QTest::keyClicks(field, text);
        }
    }
    void press(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }
    QPushButton* saveButton() const {
        for (auto* button : view->findChildren<QPushButton*>())
            if (button->text() == "Save")
                return button;
        return nullptr;
    }
    /// What the bar says; empty for nothing.
    QString notice() const {
        for (const auto* label : view->findChildren<SymbolLabel*>())
            if (label->isVisible() && label->text().contains("to save"))
                return label->text();
        return {};
    }

    std::unique_ptr<ProfilesView> view;
};

TEST_F(SavingLimit, IsToldWhenTheDraftExceedsIt) {
    type("s");
    EXPECT_FALSE(saveButton()->isEnabled());
    EXPECT_EQ(notice().toStdString(), tooLong.toStdString());
    QTest::keyClick(view.get(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_TRUE(takeCommands().empty());
    press(Qt::Key_Backspace);
    EXPECT_EQ(notice().toStdString(), "");
    press(Qt::Key_Backspace);
    EXPECT_TRUE(saveButton()->isEnabled());
}

TEST_F(SavingLimit, IsReachedByADraftThatArrives) {
    type("");
    press(Qt::Key_Backspace);
    type("D");
    QTest::mouseClick(saveButton(), Qt::LeftButton);
    const auto commands = takeCommands();
    ASSERT_EQ(commands.size(), 1U);
    const auto& saved = std::get<command::SaveProfiles>(commands[0]).profiles;
    EXPECT_EQ(saved[0].name, "LoaD");
    EXPECT_EQ(encode(saved).size(), Bridge::maximumProfilesSize);
}

TEST_F(SavingLimit, CountsWhatIsAddedAndRemoved) {
    auto* list = view->findChild<QListView*>();
    list->setFocus();
    const auto button = [this](const QString& name) {
        for (auto* found : view->findChildren<QAbstractButton*>())
            if (found->accessibleName() == name)
                return found;
        return static_cast<QAbstractButton*>(nullptr);
    };
    QTest::mouseClick(button("Duplicate profile"), Qt::LeftButton);
    EXPECT_EQ(notice().toStdString(), tooLong.toStdString());
    EXPECT_FALSE(saveButton()->isEnabled());
    QTest::mouseClick(button("Remove profile"), Qt::LeftButton);
    EXPECT_EQ(notice().toStdString(), "");
    EXPECT_FALSE(saveButton()->isEnabled());
    QTest::mouseClick(button("Remove profile"), Qt::LeftButton);
    EXPECT_TRUE(saveButton()->isEnabled());
}

TEST_F(SavingLimit, GivesWayToWhatIsWrongWithAProfile) {
    type("s");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), " ");
    EXPECT_EQ(notice().toStdString(), "Fix the marked profiles to save.");
}

TEST(SavingLimitOfTheBridge, IsLowEnoughForAStateWithEverythingElse) {
    BridgeState state;
    state.profiles = profilesOfSize(Bridge::maximumProfilesSize);
    state.selection = action::Profile{state.profiles[0].id};
    state.timerAction = state.selection;
    state.timerEnds = Date{785000000.123456};
    state.status.emplace(1024, ' ');
    EXPECT_TRUE(Bridge::fits(state));
}

} // namespace
} // namespace tervale
