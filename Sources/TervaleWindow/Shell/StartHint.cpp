#include "TervaleWindow/Shell/StartHint.h"

namespace tervale {

std::optional<std::string> startHint(Presence controller, Presence agent) {
    if (controller == Presence::there)
        return agent == Presence::there
                   ? std::nullopt
                   : std::optional<std::string>("There is no agent; tervale-agent starts one.");
    const std::string missing = agent == Presence::there ? "There is no Mac to show"
                                                         : "There is no Mac to show and no agent";
    const std::string programs =
        agent == Presence::there ? "tervale-simulator" : "tervale-simulator and tervale-agent";
    return missing + "; start " + programs +
           " and then the window, or tervale-window --simulate for all in one.";
}

} // namespace tervale
