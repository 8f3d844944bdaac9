#include "TervaleWindow/Profiles/DraftOwner.h"

#include "Base/Overloaded.h"
#include "JSON/JSON.h"
#include "Profiles/Bridge.h"

#include <QScopedValueRollback>
#include <QUndoCommand>

#include <algorithm>
#include <numeric>
#include <utility>

namespace tervale {

namespace {

/// In the text of a list; 0 for a profile that cannot be written, which has problems anyway.
std::size_t textSizeOf(const Profile& profile) {
    try {
        return encode(profile).size();
    } catch (const EncodingError&) {
        return 0;
    }
}

/// What the menu calls it.
QString nameOf(const CurveEdit& edit) {
    return std::visit(overloaded{
                          [](const curveEdit::Add&) { return DraftOwner::tr("Add Point"); },
                          [](const curveEdit::Move&) { return DraftOwner::tr("Move Point"); },
                          [](const curveEdit::Remove&) { return DraftOwner::tr("Remove Point"); },
                      },
                      edit);
}

QString nameOf(const WindowEdit& edit) {
    return std::visit(
        overloaded{
            [](const windowEdit::Add&) { return DraftOwner::tr("Add Window"); },
            [](const windowEdit::Remove&) { return DraftOwner::tr("Remove Window"); },
            [](const windowEdit::SetTime&) { return DraftOwner::tr("Change Time"); },
            [](const windowEdit::SetChoice&) { return DraftOwner::tr("Change Action"); },
            [](const windowEdit::SetSpeed&) { return DraftOwner::tr("Change Speed"); },
        },
        edit);
}

QString nameOf(const ProfileEdit& edit) {
    return std::visit(
        overloaded{
            [](const profileEdit::Rename&) { return DraftOwner::tr("Rename Profile"); },
            [](const profileEdit::FollowInput&) { return DraftOwner::tr("Change Reading"); },
            [](const CurveEdit& curveEdit) { return nameOf(curveEdit); },
            [](const WindowEdit& windowEdit) { return nameOf(windowEdit); },
        },
        edit);
}

} // namespace

/// A step in the toolkit's history. The step is taken already when the command is made.
class DraftOwner::Command final : public QUndoCommand {
  public:
    /// What it is to a step that it becomes one with.
    enum class Part { any, end };

    Command(DraftOwner& owner, const QString& name, DraftStep taken, int run, Part part = Part::any)
        : QUndoCommand(name),
          owner(owner),
          step(std::move(taken)),
          run(run),
          part(part) {}

    int id() const override { return run; }
    bool mergeWith(const QUndoCommand* next) override {
        const auto& follower = *static_cast<const Command*>(next);
        step.append(follower.step);
        // A point that a click moved before the next one removed it.
        if (follower.part == Part::end)
            setText(follower.text());
        // A point that was brought back to where it was, or a name that is the old one again.
        setObsolete(step.changesNothing());
        return true;
    }
    void undo() override { owner.take(step, &DraftStep::undo); }
    void redo() override {
        if (!std::exchange(pushed, true))
            return;
        owner.take(step, &DraftStep::redo);
    }

  private:
    DraftOwner& owner;
    DraftStep step;
    int run;
    Part part;
    /// The history calls `redo` when it is given the command.
    bool pushed = false;
};

DraftOwner::DraftOwner(Validator validator, QObject* parent)
    : QObject(parent),
      validator(std::move(validator)) {}

DraftOwner::~DraftOwner() {
    // The history tells of its end, when its listeners may be half gone.
    steps.disconnect();
}

DraftOwner::Problems DraftOwner::problemsOfSelected() const {
    const Profile* profile = selected();
    return profile ? found[static_cast<std::size_t>(profile - profiles().data())] : Problems();
}

bool DraftOwner::invalid() const {
    return std::any_of(found.begin(), found.end(),
                       [](const Problems& problems) { return !problems.empty(); });
}

bool DraftOwner::tooLong() const {
    // The brackets of the list, and a comma before each profile but the first.
    const std::size_t between = textSizes.empty() ? 2 : 1 + textSizes.size();
    return std::accumulate(textSizes.begin(), textSizes.end(), between) >
           Bridge::maximumProfilesSize;
}

void DraftOwner::select(const std::optional<UUID>& id) {
    if (id == working.selection)
        return;
    working.selection = id;
    settle();
    emit selectionChanged();
    emit changed();
}

void DraftOwner::add(const std::string& name, const ProfileKind& kind) {
    changeAsStep(tr("Add Profile"), [&] { working.add(name, kind); });
}

void DraftOwner::duplicate() {
    changeAsStep(tr("Duplicate Profile"), [this] { working.duplicate(); });
}

void DraftOwner::remove() {
    changeAsStep(tr("Remove Profile"), [this] { working.remove(); });
}

void DraftOwner::revert() {
    changeAsStep(tr("Revert"), [this] { working.revert(); });
}

const std::vector<Profile>& DraftOwner::takeToSave() {
    settle();
    if (sent.empty() || sent.back() != profiles())
        sent.push_back(profiles());
    return profiles();
}

bool DraftOwner::wasSent(const std::vector<Profile>& list) {
    const auto confirmed = std::find(sent.begin(), sent.end(), list);
    if (confirmed == sent.end())
        return false;
    sent.erase(sent.begin(), confirmed + 1);
    return true;
}

void DraftOwner::follow(bool connected, const std::vector<Profile>& list) {
    using Origin = ProfilesDraft::Origin;
    const Origin origin = wasSent(list) ? Origin::savedFromHere : Origin::elsewhere;
    const std::vector<Profile> before = profiles();
    change([&] { working.follow(connected, list, origin); });
    if (origin == Origin::savedFromHere)
        emit saved();
    if (profiles() == before)
        return;
    settle();
    steps.clear();
    // What is still under way is nobody's edit of this list.
    sent.clear();
}

template <class Change>
void DraftOwner::change(const Change& change) {
    const ProfilesDraft before = working;
    change();
    if (working == before)
        return;
    if (working.profiles != before.profiles || working.loaded != before.loaded) {
        judgeAll();
        emit listChanged();
    } else if (working.selection != before.selection) {
        emit selectionChanged();
    }
    emit changed();
}

template <class Change>
void DraftOwner::changeAsStep(const QString& name, const Change& changeList) {
    settle();
    change([&] {
        const ProfilesDraft before = working;
        changeList();
        if (working.profiles != before.profiles)
            steps.push(new Command(*this, name, stepBetween(before, working), ++run));
    });
}

void DraftOwner::settle() {
    going.reset();
}

void DraftOwner::undo() {
    settle();
    steps.undo();
}

void DraftOwner::redo() {
    settle();
    steps.redo();
}

void DraftOwner::take(const DraftStep& step, Way way) {
    const QScopedValueRollback guard(stepping, true);
    (step.*way)(working);
    if (step.isEdit())
        judge(step.place);
    else
        judgeAll();
    emit listChanged();
    emit changed();
}

void DraftOwner::judge(std::size_t index) {
    found[index] = validator(profiles()[index], profiles());
    textSizes[index] = textSizeOf(profiles()[index]);
}

void DraftOwner::judgeAll() {
    found.clear();
    textSizes.clear();
    for (const Profile& profile : profiles()) {
        found.push_back(validator(profile, profiles()));
        textSizes.push_back(textSizeOf(profile));
    }
}

void DraftOwner::perform(const ProfileEdit& edit) {
    const Profile* profile = selected();
    if (!profile || stepping)
        return;
    const Profile before = *profile;
    const auto index = working.perform(edit);
    if (!index)
        return;
    const Profile& after = profiles()[*index];
    const auto target = targetOf(edit, after);
    const auto ended = endedBy(edit);
    const auto continued = ended ? ended : target;
    if (!continued || continued != going)
        ++run;
    going = target;
    steps.push(new Command(*this, nameOf(edit),
                           {*index, {before}, {after}, working.selection, working.selection}, run,
                           ended ? Command::Part::end : Command::Part::any));
    // No edit changes a profile's id or kind, which is all that the others' problems depend on.
    const Problems problems = found[*index];
    judge(*index);
    emit edited(edit, *index);
    if (found[*index] != problems)
        emit problemsChanged(*index);
    emit changed();
}

} // namespace tervale
