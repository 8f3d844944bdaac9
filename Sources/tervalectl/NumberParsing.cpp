#include "tervalectl/NumberParsing.h"

#include <algorithm>
#include <array>
#include <locale>
#include <sstream>
#include <string>
#include <utility>

namespace tervale {

namespace {

/// More seconds than anybody waits, and few enough to be counted exactly.
constexpr double longestDuration = 1e9;

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

template <class Number>
std::optional<Number> parse(std::string_view text) {
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    Number number{};
    if (stream >> number && stream.peek() == std::istringstream::traits_type::eof())
        return number;
    return std::nullopt;
}

/// Takes the digits before `unit` off the text; nothing if that is not how it begins.
std::optional<double> takeCount(std::string_view& text, char unit) {
    const auto end = std::ranges::find_if_not(text, isDigit);
    const auto length = static_cast<std::size_t>(end - text.begin());
    if (length == 0 || end == text.end() || *end != unit)
        return std::nullopt;
    const auto count = parseDecimal(text.substr(0, length));
    text.remove_prefix(length + 1);
    return count;
}

} // namespace

std::optional<double> parseDecimal(std::string_view text) {
    const auto point = text.find('.');
    const auto before = text.substr(0, point);
    const auto after = point == std::string_view::npos ? "0" : text.substr(point + 1);
    if (before.empty() || after.empty() || !std::ranges::all_of(before, isDigit) ||
        !std::ranges::all_of(after, isDigit))
        return std::nullopt;
    return parse<double>(text);
}

std::optional<std::int64_t> parseWholeNumber(std::string_view text) {
    if (text.empty() || !std::ranges::all_of(text, isDigit))
        return std::nullopt;
    return parse<std::int64_t>(text);
}

std::optional<double> parsePercentage(std::string_view text) {
    if (!text.ends_with('%'))
        return std::nullopt;
    text.remove_suffix(1);
    if (!parseDecimal(text))
        return std::nullopt;
    // Rounded once, so that 33.3% is the number that 0.333 is.
    const auto fraction = parse<double>(std::string(text) + "e-2");
    return fraction && *fraction <= 1 ? fraction : std::nullopt;
}

std::optional<double> parseDuration(std::string_view text) {
    std::optional<double> seconds = parseDecimal(text);
    if (!seconds) {
        constexpr auto units =
            std::to_array<std::pair<char, double>>({{'h', 3600}, {'m', 60}, {'s', 1}});
        for (const auto& [unit, length] : units) {
            if (const auto count = takeCount(text, unit))
                seconds = seconds.value_or(0) + *count * length;
        }
        if (!text.empty())
            return std::nullopt;
    }
    if (!seconds || *seconds <= 0 || *seconds > longestDuration)
        return std::nullopt;
    return seconds;
}

} // namespace tervale
