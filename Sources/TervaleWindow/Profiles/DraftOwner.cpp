#include "TervaleWindow/Profiles/DraftOwner.h"

#include "JSON/JSON.h"
#include "Profiles/Bridge.h"

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

} // namespace

DraftOwner::DraftOwner(Validator validator, QObject* parent)
    : QObject(parent),
      validator(std::move(validator)) {}

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
    emit selectionChanged();
    emit changed();
}

void DraftOwner::add(const std::string& name, const ProfileKind& kind) {
    change([&] { working.add(name, kind); });
}

void DraftOwner::duplicate() {
    change([this] { working.duplicate(); });
}

void DraftOwner::remove() {
    change([this] { working.remove(); });
}

void DraftOwner::revert() {
    change([this] { working.revert(); });
}

void DraftOwner::follow(bool connected, const std::vector<Profile>& list) {
    change([&] { working.follow(connected, list); });
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

void DraftOwner::judgeAll() {
    found.clear();
    textSizes.clear();
    for (const Profile& profile : profiles()) {
        found.push_back(validator(profile, profiles()));
        textSizes.push_back(textSizeOf(profile));
    }
}

void DraftOwner::perform(const ProfileEdit& edit) {
    const auto index = working.perform(edit);
    if (!index)
        return;
    // No edit changes a profile's id or kind, which is all that the others' problems depend on.
    Problems problems = validator(profiles()[*index], profiles());
    const bool judged = problems != found[*index];
    found[*index] = std::move(problems);
    textSizes[*index] = textSizeOf(profiles()[*index]);
    emit edited(edit, *index);
    if (judged)
        emit problemsChanged(*index);
    emit changed();
}

} // namespace tervale
