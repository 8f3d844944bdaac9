#include "TervaleWindow/Profiles/ProfilesDraft.h"

#include <algorithm>

namespace tervale {

namespace {

template <class Profiles>
auto findById(Profiles& profiles, const std::optional<UUID>& id) {
    return std::find_if(profiles.begin(), profiles.end(),
                        [&id](const Profile& profile) { return profile.id == id; });
}

} // namespace

const Profile* ProfilesDraft::selected() const {
    const auto found = findById(profiles, selection);
    return found == profiles.end() ? nullptr : &*found;
}

void ProfilesDraft::add(const std::string& name, const ProfileKind& kind) {
    const UUID id = UUID::random();
    profiles.push_back({id, freeName(name), kind});
    selection = id;
}

std::string ProfilesDraft::freeName(const std::string& name) const {
    const auto taken = [this](const std::string& candidate) {
        return std::any_of(profiles.begin(), profiles.end(), [&candidate](const Profile& profile) {
            return profile.name == candidate;
        });
    };
    std::string candidate = name;
    for (int number = 2; taken(candidate); ++number)
        candidate = name + " " + std::to_string(number);
    return candidate;
}

void ProfilesDraft::duplicate() {
    const Profile* source = selected();
    if (!source)
        return;
    const UUID id = UUID::random();
    profiles.push_back({id, source->name + " copy", source->kind});
    selection = id;
}

void ProfilesDraft::remove() {
    const auto found = findById(profiles, selection);
    if (found == profiles.end())
        return;
    const auto next = profiles.erase(found);
    if (next != profiles.end())
        selection = next->id;
    else if (!profiles.empty())
        selection = profiles.back().id;
    else
        selection.reset();
}

std::optional<std::size_t> ProfilesDraft::perform(const ProfileEdit& edit) {
    const auto found = findById(profiles, selection);
    if (found == profiles.end() || !tervale::perform(edit, *found))
        return std::nullopt;
    return static_cast<std::size_t>(found - profiles.begin());
}

void ProfilesDraft::revert() {
    if (loaded)
        profiles = saved;
}

void ProfilesDraft::follow(bool connected, const std::vector<Profile>& list, Origin origin) {
    // Whether there are edits shows against the list that was edited, not against the new one. A
    // draft that went back to the old list has been edited since it was sent.
    const bool edited = canRevert() || (loaded && origin == Origin::savedFromHere);
    saved = list;
    if (!edited || profiles == saved)
        syncFromModel(connected);
}

void ProfilesDraft::syncFromModel(bool connected) {
    if (!connected)
        return;
    profiles = saved;
    loaded = true;
    if (!selection && !profiles.empty())
        selection = profiles.front().id;
}

} // namespace tervale
