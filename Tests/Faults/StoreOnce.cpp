// Stores the profiles that the standard input lists in a folder, as the agent does, and tells why
// if that fails.

#include "Agent/CheckedPreferences.h"
#include "JSON/JSON.h"
#include "Platform/Linux/FilePreferences.h"
#include "Profiles/ProfileStore.h"

#include <iostream>
#include <iterator>

using namespace tervale;

int main(int count, char** arguments) {
    if (count != 2)
        return 2;
    const std::string text(std::istreambuf_iterator<char>(std::cin), {});
    const auto profiles = decode<std::vector<Profile>>(text);
    if (!std::holds_alternative<std::vector<Profile>>(profiles))
        return 2;
    const SystemClock clock;
    FilePreferences files(arguments[1]);
    CheckedPreferences checked(files, clock);
    ProfileStore(checked).setProfiles(std::get<std::vector<Profile>>(profiles));
    if (!checked.failure())
        return 0;
    std::cerr << *checked.failure() << '\n';
    return 1;
}
