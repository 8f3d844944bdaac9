#include "Platform/TerminalSize.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace tervale {

std::optional<int> terminalColumns(int descriptor) {
    constexpr int usual = 80;
    if (::isatty(descriptor) == 0)
        return std::nullopt;
    winsize size{};
    if (::ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return usual;
    return size.ws_col;
}

} // namespace tervale
