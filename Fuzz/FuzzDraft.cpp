#include "Base/Precondition.h"
#include "FuzzedBytes.h"
#include "TervaleWindow/Profiles/ProfilesDraft.h"

#include <algorithm>

using namespace tervale;

namespace {

/// Of a few, so that states and edits meet.
Profile someProfile(FuzzedBytes& input) {
    UUID id;
    id.bytes[0] = static_cast<std::uint8_t>(input.below(4));
    return {id, std::string(1, static_cast<char>('a' + input.below(3))), kind::Load{}};
}

std::vector<Profile> someList(FuzzedBytes& input) {
    std::vector<Profile> list;
    for (std::size_t count = input.below(4); count > 0; --count) {
        const Profile profile = someProfile(input);
        if (std::ranges::find(list, profile.id, &Profile::id) == list.end())
            list.push_back(profile);
    }
    return list;
}

/// The agent's state arrives. What must have become of the draft is worked out from before.
void arrive(ProfilesDraft& draft, bool connected, const std::vector<Profile>& list) {
    const ProfilesDraft before = draft;
    draft.follow(connected, list);
    const bool edited = before.loaded && before.profiles != before.saved;
    precondition(draft.saved == list, "the agent's list was not heard");
    precondition(draft.loaded == (before.loaded || connected), "loaded at the wrong time");
    if (edited || !connected)
        precondition(draft.profiles == before.profiles, "edits were lost");
    else
        precondition(draft.profiles == list, "a clean draft did not follow");
}

void edit(ProfilesDraft& draft, FuzzedBytes& input) {
    const ProfilesDraft before = draft;
    switch (input.below(6)) {
    case 0:
        draft.add("New", kind::Load{});
        precondition(draft.selected() == &draft.profiles.back(), "the new one is not selected");
        precondition(
            std::ranges::count(draft.profiles, draft.profiles.back().name, &Profile::name) == 1,
            "the name was taken");
        break;
    case 1:
        draft.duplicate();
        precondition(draft.profiles.size() == before.profiles.size() + (before.selected() ? 1 : 0),
                     "not one copy");
        break;
    case 2:
        draft.remove();
        precondition(draft.profiles.size() == before.profiles.size() - (before.selected() ? 1 : 0),
                     "not one less");
        precondition(!before.selected() || draft.profiles.empty() || draft.selected(),
                     "nothing is selected");
        break;
    case 3: {
        const std::string name = input.text(3);
        const auto index = draft.perform(profileEdit::Rename{name});
        precondition(index.has_value() == (draft.profiles != before.profiles),
                     "whether it changed is told wrongly");
        break;
    }
    case 4:
        draft.revert();
        precondition(!draft.canRevert(), "there is still something to revert");
        break;
    default:
        if (!draft.profiles.empty())
            draft.selection = draft.profiles[input.below(draft.profiles.size())].id;
    }
}

} // namespace

/// Edits, and states of the agent at any moment between them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedBytes input(data, size);
    ProfilesDraft draft;
    bool connected = false;
    while (!input.empty()) {
        switch (input.below(4)) {
        case 0:
            connected = connected || input.below(2) == 0;
            arrive(draft, connected, someList(input));
            break;
        case 1:
            // The agent has saved what was edited.
            connected = true;
            if (draft.loaded)
                arrive(draft, connected, draft.profiles);
            break;
        default:
            // The pane lets nobody edit what was not loaded.
            if (draft.loaded)
                edit(draft, input);
        }
    }
    return 0;
}
