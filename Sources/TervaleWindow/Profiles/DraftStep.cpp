#include "TervaleWindow/Profiles/DraftStep.h"

#include "Base/Overloaded.h"
#include "Base/Precondition.h"

#include <algorithm>
#include <iterator>

namespace tervale {

namespace {

using Target = std::optional<EditTarget>;

void replace(std::vector<Profile>& profiles, std::size_t place, const std::vector<Profile>& old,
             const std::vector<Profile>& other) {
    precondition(place <= profiles.size() && old.size() <= profiles.size() - place,
                 "a step of the history belongs to another draft");
    const auto first = profiles.begin() + static_cast<std::ptrdiff_t>(place);
    const auto next = profiles.erase(first, first + static_cast<std::ptrdiff_t>(old.size()));
    profiles.insert(next, other.begin(), other.end());
}

Target targetOf(const CurveEdit& edit, const Curve& edited) {
    return std::visit(
        overloaded{
            // A press that adds a point goes on to move it.
            [&edited](const curveEdit::Add& add) -> Target {
                const auto noFarther = std::count_if(
                    edited.points.begin(), edited.points.end(),
                    [&add](const CurvePoint& point) { return point.x <= add.point.x; });
                return EditTarget{EditTarget::Part::point, static_cast<std::size_t>(noFarther) - 1};
            },
            [](const curveEdit::Move& move) -> Target {
                return EditTarget{EditTarget::Part::point, move.index};
            },
            [](const curveEdit::Remove&) -> Target { return std::nullopt; },
        },
        edit);
}

Target targetOf(const WindowEdit& edit) {
    using Part = EditTarget::Part;
    return std::visit(overloaded{
                          [](const windowEdit::SetTime& set) -> Target {
                              const bool start = set.edge == ScheduleEditing::Edge::start;
                              return EditTarget{start ? Part::start : Part::end, set.index};
                          },
                          [](const windowEdit::SetSpeed& set) -> Target {
                              return EditTarget{Part::speed, set.index};
                          },
                          [](const windowEdit::Add&) -> Target { return std::nullopt; },
                          [](const windowEdit::Remove&) -> Target { return std::nullopt; },
                          [](const windowEdit::SetChoice&) -> Target { return std::nullopt; },
                      },
                      edit);
}

} // namespace

bool DraftStep::isEdit() const {
    return before.size() == 1 && after.size() == 1 && before[0].id == after[0].id &&
           before[0].kind.index() == after[0].kind.index();
}

void DraftStep::undo(ProfilesDraft& draft) const {
    replace(draft.profiles, place, after, before);
    draft.selection = selectedBefore;
}

void DraftStep::redo(ProfilesDraft& draft) const {
    replace(draft.profiles, place, before, after);
    draft.selection = selectedAfter;
}

void DraftStep::append(const DraftStep& next) {
    precondition(isEdit() && next.isEdit() && next.place == place,
                 "an edit of a profile goes on with another one of the same");
    after = next.after;
    selectedAfter = next.selectedAfter;
}

DraftStep stepBetween(const ProfilesDraft& before, const ProfilesDraft& after) {
    const auto& from = before.profiles;
    const auto& to = after.profiles;
    const auto [first, firstAfter] = std::mismatch(from.begin(), from.end(), to.begin(), to.end());
    const auto [last, lastAfter] =
        std::mismatch(from.rbegin(), std::make_reverse_iterator(first), to.rbegin(),
                      std::make_reverse_iterator(firstAfter));
    return {static_cast<std::size_t>(first - from.begin()),
            {first, last.base()},
            {firstAfter, lastAfter.base()},
            before.selection,
            after.selection};
}

std::optional<EditTarget> endedBy(const ProfileEdit& edit) {
    const auto* curveEdit = std::get_if<CurveEdit>(&edit);
    const auto* remove = curveEdit ? std::get_if<curveEdit::Remove>(curveEdit) : nullptr;
    return remove ? Target(EditTarget{EditTarget::Part::point, remove->index}) : std::nullopt;
}

std::optional<EditTarget> targetOf(const ProfileEdit& edit, const Profile& edited) {
    return std::visit(
        overloaded{
            [](const profileEdit::Rename&) -> Target {
                return EditTarget{EditTarget::Part::name, 0};
            },
            [](const profileEdit::FollowInput&) -> Target { return std::nullopt; },
            [&edited](const CurveEdit& curveEdit) -> Target {
                const Curve* curve = curveOf(edited);
                return curve ? targetOf(curveEdit, *curve) : Target();
            },
            [](const WindowEdit& windowEdit) -> Target { return targetOf(windowEdit); },
        },
        edit);
}

} // namespace tervale
