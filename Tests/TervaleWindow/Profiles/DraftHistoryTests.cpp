#include "Profiles/Validation.h"
#include "TervaleWindow/Profiles/DraftOwner.h"
#include "TervaleWindow/Profiles/SampleProfiles.h"

#include <gtest/gtest.h>

#include <random>

namespace tervale {
namespace {

/// A draft of three profiles that the agent has published.
class DraftHistory : public testing::Test {
  protected:
    DraftHistory() { draft.follow(true, threeProfiles); }

    void rename(const std::string& name) { draft.perform(profileEdit::Rename{name}); }
    void move(std::size_t index, CurvePoint to) {
        draft.perform(CurveEdit(curveEdit::Move{index, to}));
    }
    /// The agent has stored what was sent.
    void confirm() { draft.follow(true, std::vector<Profile>(draft.takeToSave())); }
    std::vector<std::string> names() const {
        std::vector<std::string> result;
        for (const Profile& profile : draft.profiles())
            result.push_back(profile.name);
        return result;
    }
    int count() const { return draft.history().count(); }
    std::string undoText() const { return draft.history().undoText().toStdString(); }
    std::string redoText() const { return draft.history().redoText().toStdString(); }

    int validations = 0;
    DraftOwner draft{[this](const Profile& profile, std::span<const Profile> all) {
        ++validations;
        return problems(profile, all);
    }};
};

TEST_F(DraftHistory, IsEmptyAtFirst) {
    EXPECT_EQ(count(), 0);
    draft.undo();
    draft.redo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
}

TEST_F(DraftHistory, NamesWhatItWouldUndo) {
    const auto named = [this](auto act, const std::string& name) {
        act();
        EXPECT_EQ(undoText(), name);
        const std::vector<Profile> after = draft.profiles();
        draft.undo();
        EXPECT_EQ(redoText(), name);
        EXPECT_NE(draft.profiles(), after) << name;
        draft.redo();
        EXPECT_EQ(draft.profiles(), after) << name;
    };
    using Edge = ScheduleEditing::Edge;
    const auto edit = [this](const ProfileEdit& wanted) {
        return [this, wanted] { draft.perform(wanted); };
    };
    named(edit(profileEdit::Rename{"Hot"}), "Rename Profile");
    named(edit(profileEdit::FollowInput{{SensorGroup::gpu, false}}), "Change Reading");
    named(edit(CurveEdit(curveEdit::Add{{70, 0.5}})), "Add Point");
    named(edit(CurveEdit(curveEdit::Move{2, {71, 0.5}})), "Move Point");
    named(edit(CurveEdit(curveEdit::Remove{2})), "Remove Point");
    draft.select(idOf(3));
    named(edit(WindowEdit(windowEdit::Add{})), "Add Window");
    named(edit(WindowEdit(windowEdit::SetTime{1, Edge::end, {9, 30}})), "Change Time");
    named(edit(WindowEdit(windowEdit::SetChoice{1, choice::Fixed{}})), "Change Action");
    named(edit(WindowEdit(windowEdit::SetSpeed{1, 0.3})), "Change Speed");
    named(edit(WindowEdit(windowEdit::Remove{1})), "Remove Window");
    named([this] { draft.duplicate(); }, "Duplicate Profile");
    named([this] { draft.remove(); }, "Remove Profile");
    named([this] { draft.add("Load", kind::Load{ProfileDefaults::loadCurve()}); }, "Add Profile");
    named([this] { draft.revert(); }, "Revert");
    EXPECT_EQ(count(), 14);
}

TEST_F(DraftHistory, MakesOneStepOfEditsThatGoOn) {
    for (const int x : {61, 62, 63})
        move(1, {double(x), 0.5});
    EXPECT_EQ(count(), 1);
    move(2, {81, 0.75});
    EXPECT_EQ(count(), 2);
    draft.settle();
    move(2, {82, 0.75});
    EXPECT_EQ(count(), 3);
    draft.undo();
    draft.undo();
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
}

TEST_F(DraftHistory, MakesOneStepOfAPointThatIsAddedAndMoved) {
    draft.perform(CurveEdit(curveEdit::Add{{70, 0.5}}));
    move(2, {72, 0.6});
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Add Point");
    move(1, {61, 0.35});
    EXPECT_EQ(count(), 2);
}

TEST_F(DraftHistory, HasNoStepForWhatIsBackWhereItWas) {
    rename("Hot");
    draft.settle();
    const CurvePoint from = curveOf(*draft.selected())->points[1];
    move(1, {61, 0.5});
    move(1, from);
    EXPECT_EQ(count(), 1);
    EXPECT_EQ(undoText(), "Rename Profile");
    move(1, {61, 0.5});
    EXPECT_EQ(undoText(), "Move Point");
    draft.undo();
    EXPECT_EQ(curveOf(*draft.selected())->points[1], from);
}

TEST_F(DraftHistory, BeginsAStepAfterAnotherSelectionUndoOrSave) {
    rename("A");
    draft.select(idOf(2));
    draft.select(idOf(1));
    rename("B");
    EXPECT_EQ(count(), 2);
    draft.undo();
    rename("C");
    EXPECT_EQ(count(), 2);
    confirm();
    rename("D");
    EXPECT_EQ(count(), 3);
}

TEST_F(DraftHistory, BringsARemovedProfileBackToItsPlace) {
    draft.select(idOf(2));
    draft.remove();
    EXPECT_TRUE(draft.invalid());
    draft.select(idOf(1));
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
    EXPECT_EQ(draft.draft().selection, idOf(2));
    EXPECT_FALSE(draft.invalid());
    EXPECT_FALSE(draft.canRevert());
}

TEST_F(DraftHistory, SelectsTheProfileThatItChanges) {
    rename("Hot");
    draft.select(idOf(3));
    draft.undo();
    EXPECT_EQ(draft.draft().selection, idOf(1));
    draft.select(idOf(3));
    draft.redo();
    EXPECT_EQ(draft.draft().selection, idOf(1));
    EXPECT_EQ(names()[0], "Hot");
}

TEST_F(DraftHistory, TakesARevertBack) {
    rename("Hot");
    draft.select(idOf(2));
    draft.remove();
    const std::vector<Profile> edited = draft.profiles();
    draft.revert();
    EXPECT_FALSE(draft.canRevert());
    draft.undo();
    EXPECT_EQ(draft.profiles(), edited);
    EXPECT_TRUE(draft.canRevert());
    draft.undo();
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
    EXPECT_FALSE(draft.canRevert());
}

TEST_F(DraftHistory, StaysAfterTheDraftWasSaved) {
    rename("Hot");
    confirm();
    EXPECT_FALSE(draft.canSave());
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
    EXPECT_TRUE(draft.canSave());
    draft.redo();
    EXPECT_FALSE(draft.canRevert());
}

TEST_F(DraftHistory, StaysWhenTheAgentConfirmsAnEarlierList) {
    rename("One");
    const std::vector<Profile> first = draft.takeToSave();
    rename("Two");
    const std::vector<Profile> second = draft.takeToSave();
    rename("Three");
    draft.follow(true, first);
    EXPECT_EQ(count(), 3);
    draft.follow(true, second);
    EXPECT_EQ(count(), 3);
    EXPECT_EQ(names()[0], "Three");
    draft.undo();
    EXPECT_FALSE(draft.canRevert());
}

TEST_F(DraftHistory, StaysWithEveryStateThatHasTheSameProfiles) {
    rename("Hot");
    draft.follow(true, threeProfiles);
    draft.follow(false, threeProfiles);
    EXPECT_EQ(count(), 1);
    draft.undo();
    draft.follow(true, threeProfiles);
    EXPECT_EQ(redoText(), "Rename Profile");
}

TEST_F(DraftHistory, EndsWhereTheDraftFollowsTheAgent) {
    rename("Hot");
    draft.undo();
    draft.follow(true, {threeProfiles[1]});
    EXPECT_EQ(draft.profiles(), std::vector<Profile>{threeProfiles[1]});
    draft.redo();
    draft.undo();
    EXPECT_EQ(draft.profiles(), std::vector<Profile>{threeProfiles[1]});
    EXPECT_EQ(count(), 0);
}

TEST_F(DraftHistory, StaysWithADraftThatIsKeptWhenTheAgentHasAListFromElsewhere) {
    rename("Hot");
    draft.select(idOf(2));
    draft.remove();
    const std::vector<Profile> edited = draft.profiles();
    draft.follow(true, {threeProfiles[0], threeProfiles[2]});
    EXPECT_EQ(draft.profiles(), edited);
    EXPECT_EQ(count(), 2);
    draft.undo();
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
    EXPECT_TRUE(draft.canSave());
    draft.redo();
    draft.redo();
    EXPECT_EQ(draft.profiles(), edited);
    EXPECT_TRUE(draft.canRevert());
}

TEST_F(DraftHistory, TakesARevertToAListFromElsewhereBack) {
    rename("Hot");
    const std::vector<Profile> edited = draft.profiles();
    const std::vector<Profile> others{threeProfiles[2]};
    draft.follow(true, others);
    draft.revert();
    EXPECT_EQ(draft.profiles(), others);
    EXPECT_FALSE(draft.canRevert());
    draft.undo();
    EXPECT_EQ(draft.profiles(), edited);
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
    draft.redo();
    draft.redo();
    EXPECT_EQ(draft.profiles(), others);
}

TEST_F(DraftHistory, StaysWithAnUndoWhileASaveIsUnderWay) {
    rename("Hot");
    const std::vector<Profile> saved = draft.takeToSave();
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
    draft.follow(true, saved);
    EXPECT_EQ(draft.profiles(), threeProfiles);
    EXPECT_TRUE(draft.canSave());
    EXPECT_EQ(redoText(), "Rename Profile");
    draft.redo();
    EXPECT_EQ(draft.profiles(), saved);
    EXPECT_FALSE(draft.canRevert());
}

TEST_F(DraftHistory, StaysWithWhatLeadsBackToTheOldListWhileASaveIsUnderWay) {
    rename("Hot");
    const std::vector<Profile> saved = draft.takeToSave();
    const auto keeps = [&](const auto& leadBack, int steps) {
        leadBack();
        draft.follow(true, saved);
        EXPECT_EQ(draft.profiles(), threeProfiles);
        EXPECT_EQ(count(), steps);
        EXPECT_TRUE(draft.canSave());
        // To where both began.
        draft.follow(true, threeProfiles);
        draft.undo();
        EXPECT_EQ(draft.profiles(), saved);
        static_cast<void>(draft.takeToSave());
    };
    keeps([this] { rename(threeProfiles[0].name); }, 2);
    keeps([this] { draft.revert(); }, 2);
}

TEST_F(DraftHistory, FollowsAListFromElsewhereAfterASaveThatWasLost) {
    rename("Hot");
    const std::vector<Profile> lost = draft.takeToSave();
    draft.revert();
    draft.follow(true, {threeProfiles[1]});
    EXPECT_EQ(draft.profiles(), std::vector<Profile>{threeProfiles[1]});
    EXPECT_FALSE(draft.canRevert());
    // Whoever has sent it by now, it is not from here.
    draft.follow(true, lost);
    EXPECT_EQ(draft.profiles(), lost);
}

TEST_F(DraftHistory, ValidatesOnlyTheProfileWhoseEditItTakesBack) {
    rename("Hot");
    validations = 0;
    draft.undo();
    EXPECT_EQ(validations, 1);
    draft.redo();
    EXPECT_EQ(validations, 2);
}

TEST_F(DraftHistory, IgnoresWhatAControlTellsWhileItIsTakenBack) {
    rename("Hot");
    QObject::connect(&draft, &DraftOwner::listChanged, [this] { rename("Never meant"); });
    draft.undo();
    EXPECT_EQ(draft.profiles(), threeProfiles);
    EXPECT_EQ(redoText(), "Rename Profile");
}

/// Whatever a person may do, and in any order.
class RandomEdits : public DraftHistory, public testing::WithParamInterface<unsigned> {
  protected:
    int numberUpTo(std::size_t most) {
        return std::uniform_int_distribution<int>(0, static_cast<int>(most))(random);
    }
    std::size_t indexIn(std::size_t size) { return static_cast<std::size_t>(numberUpTo(size - 1)); }
    double fraction() { return numberUpTo(100) / 100.0; }

    ProfileEdit curveEditOf(const Curve& curve) {
        if (curve.points.size() < 2 || numberUpTo(3) == 0)
            return CurveEdit(curveEdit::Add{{20.0 + numberUpTo(90), fraction()}});
        const std::size_t index = indexIn(curve.points.size());
        if (numberUpTo(4) == 0)
            return CurveEdit(curveEdit::Remove{index});
        return CurveEdit(curveEdit::Move{index, {curve.points[index].x, fraction()}});
    }
    ProfileEdit windowEditOf(const std::vector<Window>& windows) {
        if (windows.empty() || numberUpTo(3) == 0)
            return WindowEdit(windowEdit::Add{});
        const std::size_t index = indexIn(windows.size());
        const auto edge =
            numberUpTo(1) == 0 ? ScheduleEditing::Edge::start : ScheduleEditing::Edge::end;
        switch (numberUpTo(4)) {
        case 0:
            return WindowEdit(windowEdit::Remove{index});
        case 1:
            return WindowEdit(windowEdit::SetChoice{index, choice::Fixed{}});
        case 2:
            return WindowEdit(windowEdit::SetSpeed{index, fraction()});
        default:
            return WindowEdit(windowEdit::SetTime{index, edge, {numberUpTo(23), numberUpTo(59)}});
        }
    }
    ProfileEdit anyEdit(const Profile& profile) {
        if (numberUpTo(5) == 0)
            return profileEdit::Rename{std::string(static_cast<std::size_t>(numberUpTo(3)), 'n')};
        if (const Curve* curve = curveOf(profile)) {
            if (std::holds_alternative<kind::Temperature>(profile.kind) && numberUpTo(5) == 0)
                return profileEdit::FollowInput{{SensorGroup::gpu, numberUpTo(1) == 0}};
            return curveEditOf(*curve);
        }
        return windowEditOf(std::get<kind::Schedule>(profile.kind).windows);
    }
    void act() {
        switch (numberUpTo(15)) {
        case 0:
            return draft.add("Load", kind::Load{ProfileDefaults::loadCurve()});
        case 1:
            return draft.add("Schedule", kind::Schedule{ProfileDefaults::schedule()});
        case 2:
            return draft.duplicate();
        case 3:
            return draft.remove();
        case 4:
            return draft.settle();
        case 5:
            if (!draft.profiles().empty())
                draft.select(draft.profiles()[indexIn(draft.profiles().size())].id);
            return;
        case 6:
            return numberUpTo(5) == 0 ? draft.revert() : draft.settle();
        case 7:
            if (numberUpTo(5) != 0)
                return draft.undo();
            onTheWay.clear();
            return confirm();
        case 8:
            return draft.redo();
        default:
            if (const Profile* profile = draft.selected())
                draft.perform(anyEdit(*profile));
        }
    }
    /// What the agent says meanwhile: lists that were sent, late, and lists from elsewhere while
    /// the draft has edits.
    void hear() {
        switch (numberUpTo(11)) {
        case 0:
            if (draft.canRevert() && (onTheWay.empty() || onTheWay.back() != draft.profiles()))
                onTheWay.push_back(draft.takeToSave());
            return;
        case 1:
            if (onTheWay.empty())
                return;
            draft.follow(true, std::vector<Profile>(onTheWay.front()));
            onTheWay.erase(onTheWay.begin());
            return;
        case 2:
            if (draft.canRevert())
                draft.follow(true, {threeProfiles[indexIn(threeProfiles.size())]});
            return;
        default:
            return;
        }
    }
    /// What is told of the draft is what is true of it.
    void expectConsistent() const {
        for (std::size_t index = 0; index < draft.profiles().size(); ++index)
            EXPECT_EQ(draft.problemsAt(index), problems(draft.profiles()[index], draft.profiles()));
        EXPECT_EQ(draft.canRevert(), draft.profiles() != draft.draft().saved);
    }

    std::mt19937 random{GetParam()};
    /// Sent and not confirmed, the oldest first.
    std::vector<std::vector<Profile>> onTheWay;
};

TEST_P(RandomEdits, AreAllTakenBackAndAllDoneAgain) {
    // The draft at each place in the history.
    std::vector<std::vector<Profile>> lists{draft.profiles()};
    for (int step = 0; step < 200; ++step) {
        act();
        hear();
        const auto place = static_cast<std::size_t>(draft.history().index());
        if (draft.history().canRedo()) {
            EXPECT_EQ(draft.profiles(), lists[place]);
        } else {
            lists.resize(place + 1);
            lists[place] = draft.profiles();
        }
        expectConsistent();
    }
    while (draft.history().canRedo())
        draft.redo();
    ASSERT_EQ(lists.size(), static_cast<std::size_t>(count()) + 1);
    ASSERT_GT(count(), 10);
    for (int place = count(); place > 0; --place) {
        EXPECT_EQ(draft.profiles(), lists[static_cast<std::size_t>(place)]);
        draft.undo();
        expectConsistent();
    }
    EXPECT_EQ(draft.profiles(), threeProfiles);
    EXPECT_FALSE(draft.history().canUndo());
    while (draft.history().canRedo())
        draft.redo();
    EXPECT_EQ(draft.profiles(), lists.back());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, testing::Range(0U, 6U));

} // namespace
} // namespace tervale
