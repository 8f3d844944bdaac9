#include "Platform/ProgramPath.h"

#include <cstdint>
#include <mach-o/dyld.h>

namespace tervale {

std::string programPath() {
    std::uint32_t size = 0;
    // Tells how long the path is.
    ::_NSGetExecutablePath(nullptr, &size);
    std::string path(size, '\0');
    if (::_NSGetExecutablePath(path.data(), &size) != 0)
        return {};
    path.resize(path.find('\0'));
    return path;
}

} // namespace tervale
