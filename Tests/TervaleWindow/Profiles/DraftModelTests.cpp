#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/RandomValues.h"
#include "Profiles/Validation.h"
#include "TervaleWindow/Profiles/DraftOwner.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tervale {
namespace {

/// What happened to a draft.
struct Heard {
    bool connected = false;
    std::vector<Profile> list;
};
struct Chosen {
    std::optional<UUID> id;
};
struct Appended {
    Profile profile;
};
struct Removed {};
struct Edited {
    ProfileEdit edit;
};
struct Reverted {};
using Event = std::variant<Heard, Chosen, Appended, Removed, Edited, Reverted>;

/// What a draft should hold, formulated a second time: from all that ever happened to it, each time
/// anew. It keeps profiles by where they came from, and edits as what is left of them.
struct SlowDraft {
    std::vector<Event> history;

    struct Held {
        bool loaded = false;
        std::vector<Profile> agents;
        std::vector<Profile> profiles;
        std::optional<UUID> selection;

        /// The place of the selected profile; the number of profiles if there is none.
        std::size_t place() const {
            std::size_t place = 0;
            while (place < profiles.size() && profiles[place].id != selection)
                ++place;
            return place;
        }
    };

    Held held() const {
        Held held;
        for (const Event& event : history)
            std::visit([&held](const auto& each) { apply(each, held); }, event);
        return held;
    }

    static void apply(const Heard& heard, Held& held) {
        const bool untouched = !held.loaded || held.profiles == held.agents;
        held.agents = heard.list;
        if (!heard.connected || !(untouched || held.profiles == heard.list))
            return;
        held.profiles = heard.list;
        held.loaded = true;
        if (!held.selection && !held.profiles.empty())
            held.selection = held.profiles[0].id;
    }
    static void apply(const Chosen& chosen, Held& held) { held.selection = chosen.id; }
    static void apply(const Appended& appended, Held& held) {
        held.profiles.push_back(appended.profile);
        held.selection = appended.profile.id;
    }
    static void apply(const Removed&, Held& held) {
        const std::size_t place = held.place();
        std::vector<Profile> left;
        for (std::size_t i = 0; i < held.profiles.size(); ++i)
            if (i != place)
                left.push_back(held.profiles[i]);
        if (left.size() == held.profiles.size())
            return;
        held.profiles = left;
        held.selection.reset();
        if (!left.empty())
            held.selection = left[std::min(place, left.size() - 1)].id;
    }
    static void apply(const Reverted&, Held& held) {
        if (held.loaded)
            held.profiles = held.agents;
    }
    static void apply(const Edited& edited, Held& held) {
        const std::size_t place = held.place();
        if (place < held.profiles.size())
            std::visit([&](const auto& edit) { perform(edit, held.profiles[place]); }, edited.edit);
    }

    static void perform(const profileEdit::Rename& rename, Profile& profile) {
        profile.name = rename.name;
    }
    static void perform(const profileEdit::FollowInput& follow, Profile& profile) {
        std::get<kind::Temperature>(profile.kind).input = follow.input;
    }
    static void perform(const CurveEdit& edit, Profile& profile) {
        auto* temperature = std::get_if<kind::Temperature>(&profile.kind);
        std::vector<CurvePoint>& points = temperature
                                              ? temperature->curve.points
                                              : std::get<kind::Load>(profile.kind).curve.points;
        std::vector<CurvePoint> before = points;
        points.clear();
        if (const auto* add = std::get_if<curveEdit::Add>(&edit)) {
            // The curves here are in order: what lies further right comes after the new point.
            for (const CurvePoint& point : before)
                if (point.x <= add->point.x)
                    points.push_back(point);
            points.push_back(add->point);
            for (const CurvePoint& point : before)
                if (point.x > add->point.x)
                    points.push_back(point);
            return;
        }
        for (std::size_t i = 0; i < before.size(); ++i) {
            const auto* move = std::get_if<curveEdit::Move>(&edit);
            const auto* remove = std::get_if<curveEdit::Remove>(&edit);
            if (move && move->index == i)
                points.push_back(move->to);
            else if (!remove || remove->index != i)
                points.push_back(before[i]);
        }
    }
    static void perform(const WindowEdit& edit, Profile& profile) {
        std::vector<Window>& windows = std::get<kind::Schedule>(profile.kind).windows;
        if (std::holds_alternative<windowEdit::Add>(edit)) {
            const std::int64_t start = windows.empty() ? std::int64_t{9} * 60 : windows.back().end;
            windows.push_back({start, (start + 60) % (std::int64_t{24} * 60), action::Automatic{}});
        } else if (const auto* speed = std::get_if<windowEdit::SetSpeed>(&edit)) {
            windows[speed->index].action = action::Fixed{std::round(speed->fraction * 100) / 100};
        } else if (const auto* remove = std::get_if<windowEdit::Remove>(&edit)) {
            std::vector<Window> left;
            for (std::size_t i = 0; i < windows.size(); ++i)
                if (i != remove->index)
                    left.push_back(windows[i]);
            windows = std::move(left);
        }
    }
};

/// Does to a draft whatever a person and the agent may do, and keeps account.
class DraftModel : public testing::TestWithParam<std::uint64_t> {
  protected:
    DraftModel() {
        QObject::connect(&draft, &DraftOwner::changed, [this] { ++tellings; });
    }

    /// A sound curve: points in order, as the editor keeps them.
    Curve curve() {
        Curve curve;
        for (std::size_t i = 0, count = 2 + values.below(4); i < count; ++i)
            curve.points.push_back({20.0 * static_cast<double>(i) + 5, values.fraction()});
        return curve;
    }
    ProfileKind kind() {
        switch (values.below(3)) {
        case 0:
            return kind::Temperature{values.input(), curve()};
        case 1:
            return kind::Load{curve()};
        default:
            return kind::Schedule{};
        }
    }
    /// Names and ids of a few, so that lists and edits meet.
    Profile profile() {
        UUID id;
        id.bytes[0] = static_cast<std::uint8_t>(values.below(5));
        return {id, name(), kind()};
    }
    std::string name() {
        return std::string(values.below(2), static_cast<char>('a' + values.below(3)));
    }
    std::vector<Profile> list() {
        std::vector<Profile> list;
        for (std::size_t count = values.below(4); count > 0; --count) {
            const Profile next = profile();
            if (std::ranges::find(list, next.id, &Profile::id) == list.end())
                list.push_back(next);
        }
        return list;
    }
    std::optional<ProfileEdit> edit(const Profile& profile) {
        if (values.below(3) == 0)
            return profileEdit::Rename{name()};
        if (const auto* schedule = std::get_if<kind::Schedule>(&profile.kind)) {
            const std::size_t count = schedule->windows.size();
            if (count == 0 || values.coin())
                return WindowEdit(windowEdit::Add{});
            if (values.coin())
                return WindowEdit(windowEdit::Remove{values.below(count)});
            return WindowEdit(windowEdit::SetSpeed{values.below(count), values.fraction()});
        }
        if (std::holds_alternative<kind::Temperature>(profile.kind) && values.below(4) == 0)
            return profileEdit::FollowInput{values.input()};
        const auto& points = curveOf(profile)->points;
        if (points.empty() || values.below(3) == 0)
            return CurveEdit(
                curveEdit::Add{{static_cast<double>(values.below(120)), values.fraction()}});
        const std::size_t index = values.below(points.size());
        if (values.coin())
            return CurveEdit(curveEdit::Remove{index});
        return CurveEdit(curveEdit::Move{index, {points[index].x, values.fraction()}});
    }

    void step() {
        switch (values.below(12)) {
        case 0:
        case 1:
            // An agent that has answered goes on doing so.
            connected = connected || values.coin();
            hear(list());
            return;
        case 2:
            hear(draft.draft().saved);
            return;
        default:
            break;
        }
        // The pane lets nobody edit what was not loaded.
        if (draft.draft().loaded)
            edit();
    }
    void hear(const std::vector<Profile>& list) {
        draft.follow(connected, list);
        slow.history.emplace_back(Heard{connected, list});
    }
    void edit() {
        switch (values.below(9)) {
        case 0: {
            const ProfileKind added = kind();
            const std::string free = freeName();
            draft.add("a", added);
            noteAppended(free, added);
            break;
        }
        case 1:
            if (draft.selected()) {
                const Profile source = *draft.selected();
                draft.duplicate();
                noteAppended(source.name + " copy", source.kind);
            }
            break;
        case 2:
            draft.remove();
            slow.history.emplace_back(Removed{});
            break;
        case 3:
            draft.revert();
            slow.history.emplace_back(Reverted{});
            break;
        case 4:
            // Saved: the agent has it now.
            hear(std::vector(draft.profiles()));
            break;
        case 5: {
            const Profile chosen = profile();
            draft.select(chosen.id);
            slow.history.emplace_back(Chosen{chosen.id});
            break;
        }
        default:
            if (const Profile* selected = draft.selected()) {
                const ProfileEdit next = *edit(*selected);
                slow.history.emplace_back(Edited{next});
                draft.perform(next);
            }
        }
    }
    /// Its id is made up by the draft.
    void noteAppended(const std::string& name, const ProfileKind& kind) {
        const UUID id = draft.profiles().back().id;
        const auto before = slow.held().profiles;
        EXPECT_EQ(std::ranges::find(before, id, &Profile::id), before.end());
        slow.history.emplace_back(Appended{{id, name, kind}});
    }
    /// The first of "a", "a 2", "a 3" and so on that no profile has.
    std::string freeName() const {
        std::vector<std::string> taken;
        for (const Profile& profile : draft.profiles())
            taken.push_back(profile.name);
        for (std::size_t number = 1;; ++number) {
            const std::string name = number == 1 ? "a" : "a " + std::to_string(number);
            if (std::ranges::find(taken, name) == taken.end())
                return name;
        }
    }

    /// What the draft says of itself, against what it holds.
    void expectSound(const SlowDraft::Held& held) {
        bool anyProblems = false;
        for (std::size_t i = 0; i < held.profiles.size(); ++i) {
            const auto wrong = problems(held.profiles[i], held.profiles);
            EXPECT_EQ(draft.problemsAt(i), wrong);
            anyProblems = anyProblems || !wrong.empty();
        }
        const bool unsaved = held.loaded && held.profiles != held.agents;
        EXPECT_EQ(draft.invalid(), anyProblems);
        EXPECT_EQ(draft.canRevert(), unsaved);
        EXPECT_EQ(draft.canSave(), unsaved && !anyProblems);
        EXPECT_EQ(draft.tooLong(), encode(held.profiles).size() > Bridge::maximumProfilesSize);
        const std::size_t place = held.place();
        ASSERT_EQ(draft.selected() != nullptr, place < held.profiles.size());
        EXPECT_TRUE(!draft.selected() || *draft.selected() == held.profiles[place]);
    }

    test::RandomValues values{GetParam()};
    DraftOwner draft{[](const Profile& profile, std::span<const Profile> all) {
        return problems(profile, all);
    }};
    SlowDraft slow;
    bool connected = false;
    int tellings = 0;
};

TEST_P(DraftModel, HoldsWhatTheSlowOneHoldsAndTellsOfEachChangeOnce) {
    int changes = 0;
    SlowDraft::Held before;
    for (int number = 0; number < 200; ++number) {
        tellings = 0;
        step();
        const SlowDraft::Held held = slow.held();
        ASSERT_EQ(draft.profiles(), held.profiles) << number;
        ASSERT_EQ(draft.draft().saved, held.agents) << number;
        ASSERT_EQ(draft.draft().selection, held.selection) << number;
        ASSERT_EQ(draft.draft().loaded, held.loaded) << number;
        expectSound(held);
        const bool different = held.profiles != before.profiles ||
                               held.selection != before.selection || held.loaded != before.loaded ||
                               held.agents != before.agents;
        ASSERT_EQ(tellings, different ? 1 : 0) << number;
        changes += different ? 1 : 0;
        before = held;
    }
    EXPECT_GT(changes, 50);
}

INSTANTIATE_TEST_SUITE_P(Seeds, DraftModel, testing::Range<std::uint64_t>(1, 31));

} // namespace
} // namespace tervale
