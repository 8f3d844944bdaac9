#include "Platform/ProgramPath.h"

namespace tervale {

std::string programPath() {
    // The very file that runs, whatever lies in its place by now.
    return "/proc/self/exe";
}

} // namespace tervale
