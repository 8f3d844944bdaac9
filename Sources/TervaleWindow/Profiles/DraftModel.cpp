#include "TervaleWindow/Profiles/DraftModel.h"

#include <algorithm>
#include <utility>

namespace tervale {

DraftModel::DraftModel(Validator validator, QObject* parent)
    : QObject(parent),
      validator(std::move(validator)) {}

DraftModel::Problems DraftModel::problemsOfSelected() const {
    const Profile* profile = selected();
    return profile ? found[static_cast<std::size_t>(profile - profiles().data())] : Problems();
}

bool DraftModel::invalid() const {
    return std::any_of(found.begin(), found.end(),
                       [](const Problems& problems) { return !problems.empty(); });
}

void DraftModel::select(const std::optional<UUID>& id) {
    if (id == working.selection)
        return;
    working.selection = id;
    emit selectionChanged();
    emit changed();
}

void DraftModel::add(const std::string& name, const ProfileKind& kind) {
    change([&] { working.add(name, kind); });
}

void DraftModel::duplicate() {
    change([this] { working.duplicate(); });
}

void DraftModel::remove() {
    change([this] { working.remove(); });
}

void DraftModel::revert() {
    change([this] { working.revert(); });
}

void DraftModel::follow(bool connected, const std::vector<Profile>& list) {
    change([&] { working.follow(connected, list); });
}

template <class Change>
void DraftModel::change(const Change& change) {
    const ProfilesDraft before = working;
    change();
    if (working == before)
        return;
    if (working.profiles != before.profiles || working.loaded != before.loaded) {
        validateAll();
        emit listChanged();
    } else if (working.selection != before.selection) {
        emit selectionChanged();
    }
    emit changed();
}

void DraftModel::validateAll() {
    found.clear();
    found.reserve(profiles().size());
    for (const Profile& profile : profiles())
        found.push_back(validator(profile, profiles()));
}

void DraftModel::perform(const ProfileEdit& edit) {
    const auto index = working.perform(edit);
    if (!index)
        return;
    // No edit changes a profile's id or kind, which is all that the others' problems depend on.
    Problems problems = validator(profiles()[*index], profiles());
    const bool judged = problems != found[*index];
    found[*index] = std::move(problems);
    emit edited(edit, *index);
    if (judged)
        emit problemsChanged(*index);
    emit changed();
}

} // namespace tervale
