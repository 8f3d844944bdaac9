// Does once, in a folder, what the agent does with what is stored, and tells why if that fails.
//   tervale-store-once store FOLDER    stores the profiles that the standard input lists
//   tervale-store-once start FOLDER    takes up what is there, as at the agent's start and in the
//   ticks after it tervale-store-once replace FOLDER  the same; then, as a person's save, stores
//   the profiles of the standard input
//                                      in place of a list that cannot be read

#include "Agent/AgentPreferences.h"
#include "JSON/JSON.h"
#include "Platform/Linux/FilePreferences.h"

#include <iostream>
#include <iterator>
#include <string>
#include <string_view>

using namespace tervale;

namespace {

/// Time passes by what the agent waits from one attempt to the next.
class SteppedClock final : public Clock {
  public:
    Date now() const override { return Date{time}; }
    double steady() const override { return time; }
    int minuteOfDay() const override { return 0; }

    void step() { time += CheckedPreferences::interval + 1; }

  private:
    double time = 800'000'000;
};

std::vector<Profile> listed() {
    const std::string text(std::istreambuf_iterator<char>(std::cin), {});
    const auto profiles = decode<std::vector<Profile>>(text);
    return std::get<std::vector<Profile>>(profiles);
}

int refused(const std::string& why) {
    std::cerr << why << '\n';
    return 1;
}

} // namespace

int main(int count, char** arguments) {
    if (count != 3)
        return 2;
    const std::string_view mode = arguments[1];
    SteppedClock clock;
    FilePreferences files(arguments[2]);
    AgentPreferences preferences(files, clock);
    BridgeState state;
    if (mode != "store") {
        preferences.takeUp(state);
        preferences.store(state);
        for (int again = 0; again < 2; ++again) {
            clock.step();
            preferences.tryAgain(state);
        }
    }
    if (mode == "replace" && preferences.unreadable() == AgentPreferences::Unreadable::profiles &&
        !preferences.keepUnreadableProfiles())
        return refused("the list that cannot be read could not be kept");
    if (mode != "start") {
        state.profiles = listed();
        preferences.changeProfiles();
        preferences.store(state);
    }
    return preferences.failure() ? refused(*preferences.failure()) : 0;
}
