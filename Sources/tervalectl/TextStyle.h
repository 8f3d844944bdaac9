#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tervale {

/// What a terminal, or whatever reads standard output in place of one, can show.
struct TextStyle {
    enum class Colors { none, palette, all };

    int columns = 80;
    /// Dots and lines of Unicode; plain ASCII otherwise.
    bool unicode = true;
    Colors colors = Colors::none;
    /// Lines that are printed can be printed over.
    bool live = false;

    bool operator==(const TextStyle&) const = default;
};

/// Tells the value of an environment variable; nothing where it is not set.
using Environment = std::function<std::optional<std::string>(const std::string& name)>;

/// `terminalColumns` is nothing where standard output is no terminal.
TextStyle textStyle(const Environment& environment, std::optional<int> terminalColumns);

/// That of this process's standard output.
TextStyle textStyle();

} // namespace tervale
