#pragma once

#include "tervalectl/Arguments.h"
#include "tervalectl/Parameters.h"

namespace tervale::ctl {

// Each takes what its command knows of the arguments that follow the name; the caller refuses those
// that are left. Throw `Failure`.
Sensors parseSensors(Arguments& arguments);
Monitor parseMonitor(Arguments& arguments);
State parseState(Arguments& arguments);
Select parseSelect(Arguments& arguments);
Timer parseTimer(Arguments& arguments);
LaunchAtLogin parseLaunchAtLogin(Arguments& arguments);
ExportProfiles parseExport(Arguments& arguments);
ImportProfiles parseImport(Arguments& arguments);
ValidateProfiles parseValidate(Arguments& arguments);
ShowProfile parseShow(Arguments& arguments);
RemoveProfile parseRemove(Arguments& arguments);
Replay parseReplay(Arguments& arguments);

/// The same for a command without parameters.
template <class Parameterless>
Parameterless parseNone(Arguments&) {
    return {};
}

/// The option's value in seconds, above 0 up to a day; `usual` if it is not given.
double parseSeconds(const Arguments& arguments, std::string_view option, double usual);

} // namespace tervale::ctl
