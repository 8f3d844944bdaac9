#include "tervalectl/TextStyle.h"

#include "Platform/TerminalSize.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

namespace tervale {

namespace {

constexpr int leastColumns = 40;
constexpr int mostColumns = 160;
constexpr int standardOutput = 1;

bool isUnicode(const Environment& environment) {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        std::string locale = environment(variable).value_or("");
        if (locale.empty())
            continue;
        std::ranges::transform(locale, locale.begin(), [](unsigned char byte) {
            return static_cast<char>(std::tolower(byte));
        });
        return locale.find("utf-8") != std::string::npos ||
               locale.find("utf8") != std::string::npos;
    }
    return false;
}

TextStyle::Colors colorsOf(const Environment& environment) {
    const std::string terminal = environment("TERM").value_or("");
    if (terminal.empty() || terminal == "dumb" || !environment("NO_COLOR").value_or("").empty())
        return TextStyle::Colors::none;
    const std::string more = environment("COLORTERM").value_or("");
    return more == "truecolor" || more == "24bit" ? TextStyle::Colors::all
                                                  : TextStyle::Colors::palette;
}

} // namespace

TextStyle textStyle(const Environment& environment, std::optional<int> terminalColumns) {
    TextStyle style;
    style.unicode = isUnicode(environment);
    if (!terminalColumns)
        return style;
    style.columns = std::clamp(*terminalColumns, leastColumns, mostColumns);
    style.colors = colorsOf(environment);
    style.live = environment("TERM").value_or("dumb") != "dumb";
    return style;
}

TextStyle textStyle() {
    return textStyle(
        [](const std::string& name) {
            const char* value = std::getenv(name.c_str());
            return value ? std::optional<std::string>(value) : std::nullopt;
        },
        terminalColumns(standardOutput));
}

} // namespace tervale
