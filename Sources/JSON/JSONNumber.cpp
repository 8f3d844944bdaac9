#include "JSON/JSONNumber.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <string>
#include <system_error>

namespace tervale {

namespace {

/// How far an exponent moves the decimal point; one beyond any text for what fits no number.
long shiftOf(std::string_view exponent) {
    constexpr long beyond = 1'000'000'000;
    if (exponent.starts_with('+'))
        exponent.remove_prefix(1);
    long shift = 0;
    const auto result = std::from_chars(exponent.data(), exponent.data() + exponent.size(), shift);
    if (result.ec == std::errc() && shift > -beyond && shift < beyond)
        return shift;
    return exponent.starts_with('-') ? -beyond : beyond;
}

} // namespace

std::optional<double> jsonDouble(std::string_view spelling) {
    // Refused if it is greater than any double.
    const auto number = nlohmann::json::parse(spelling.begin(), spelling.end(), nullptr, false);
    if (!number.is_number())
        return std::nullopt;
    // A negative zero that is spelled as an integer would lose its sign.
    if (spelling == "-0")
        return -0.0;
    return number.get<double>();
}

std::optional<std::int64_t> jsonInteger(std::string_view spelling) {
    const std::size_t mark = spelling.find_first_of("eE");
    std::string digits(spelling.substr(0, mark));
    long shift = mark == std::string_view::npos ? 0 : shiftOf(spelling.substr(mark + 1));
    if (const std::size_t point = digits.find('.'); point != std::string::npos) {
        digits.erase(point, 1);
        shift -= static_cast<long>(digits.size() - point);
    }
    // Zero is zero, however far its point is moved.
    if (digits.find_first_not_of("-0") == std::string::npos)
        return 0;
    const std::size_t last = digits.find_last_not_of('0');
    const auto zeros = static_cast<long>(digits.size() - last - 1);
    const long removed = shift < 0 ? std::min(zeros, -shift) : 0;
    digits.resize(digits.size() - static_cast<std::size_t>(removed));
    shift += removed;
    constexpr long mostDigits = 19;
    if (shift < 0 || shift > mostDigits)
        return std::nullopt;
    digits.append(static_cast<std::size_t>(shift), '0');
    std::int64_t value = 0;
    const char* end = digits.data() + digits.size();
    const bool fits = std::from_chars(digits.data(), end, value).ec == std::errc();
    return fits ? std::optional(value) : std::nullopt;
}

} // namespace tervale
