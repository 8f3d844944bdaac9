#include "JSON/JSONValue.h"

#include "JSON/JSONReader.h"

#include <nlohmann/json.hpp>

#include <charconv>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

namespace tervale {

namespace {

/// The integer that a number's spelling comes to, if it is one of 64 bits. Goes by the digits,
/// since a double does not hold every such integer. What is no digit counts as the decimal point:
/// the parser puts the locale's there.
std::optional<std::int64_t> wholeNumber(std::string_view spelling) {
    const std::size_t mark = spelling.find_first_of("eE");
    std::string digits(spelling.substr(0, mark));
    long shift = mark == std::string_view::npos
                     ? 0
                     : std::strtol(std::string(spelling.substr(mark + 1)).c_str(), nullptr, 10);
    if (const std::size_t point = digits.find_first_not_of("-0123456789");
        point != std::string::npos) {
        digits.erase(point, 1);
        shift -= static_cast<long>(digits.size() - point);
    }
    for (; shift < 0 && digits.ends_with('0'); ++shift)
        digits.pop_back();
    constexpr long mostDigits = 19;
    if (shift < 0 || shift > mostDigits)
        return std::nullopt;
    digits.append(static_cast<std::size_t>(shift), '0');
    std::int64_t value = 0;
    const char* end = digits.data() + digits.size();
    const bool fits = std::from_chars(digits.data(), end, value).ec == std::errc();
    return fits ? std::optional(value) : std::nullopt;
}

/// Builds the tree from the parser's events; ends the parsing at the first fault.
class TreeBuilder final : public nlohmann::json_sax<nlohmann::json> {
  public:
    JSONValue root;
    std::string fault;

    bool null() override { return add(JSONNull{}); }
    bool boolean(bool value) override { return add(value); }
    /// The parser reports only what has a minus sign here, so that a zero is a negative one.
    bool number_integer(number_integer_t value) override {
        return value == 0 ? add(-0.0) : add(value);
    }
    bool number_unsigned(number_unsigned_t value) override {
        if (value > static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max()))
            return add(static_cast<double>(value));
        return add(static_cast<std::int64_t>(value));
    }
    bool number_float(number_float_t value, const string_t& spelling) override {
        const std::optional<std::int64_t> whole = value == 0 ? std::nullopt : wholeNumber(spelling);
        return whole ? add(*whole) : add(value);
    }
    bool string(string_t& value) override { return add(std::move(value)); }
    bool binary(binary_t&) override { return false; }

    bool start_object(std::size_t) override { return open(JSONObject{}); }
    bool key(string_t& name) override {
        members().push_back({std::move(name), {}});
        return true;
    }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(JSONArray{}); }
    bool end_array() override { return close(); }

    bool parse_error(std::size_t position, const std::string&,
                     const nlohmann::detail::exception&) override {
        fault = "The text is not JSON at byte " + std::to_string(position) + ".";
        return false;
    }

  private:
    /// Where the value that comes next belongs; its address holds until the next one of its parent.
    JSONValue& place() {
        if (containers.empty())
            return root;
        if (auto* array = std::get_if<JSONArray>(&containers.back()->value))
            return array->emplace_back();
        return members().back().value;
    }
    JSONObject& members() { return std::get<JSONObject>(containers.back()->value); }

    template <class Alternative>
    bool add(Alternative&& value) {
        place().value = std::forward<Alternative>(value);
        return true;
    }
    template <class Container>
    bool open(Container container) {
        if (containers.size() == maximumJSONDepth) {
            fault = "The text nests more than " + std::to_string(maximumJSONDepth) + " levels.";
            return false;
        }
        JSONValue& opened = place();
        opened.value = std::move(container);
        containers.push_back(&opened);
        return true;
    }
    bool close() {
        containers.pop_back();
        return true;
    }

    std::vector<JSONValue*> containers;
};

[[noreturn]] void refuse(std::string description) {
    throw DecodingFailure{{DecodingError::Kind::dataCorrupted, {}, std::move(description)}};
}

} // namespace

JSONValue parseJSON(std::string_view text) {
    if (text.size() > maximumJSONSize)
        refuse("The text is longer than " + std::to_string(maximumJSONSize) + " bytes.");
    // The parser would take a zero byte for the end of the text.
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos)
        refuse("The text is not JSON at byte " + std::to_string(zero + 1) + ".");
    TreeBuilder builder;
    if (!nlohmann::json::sax_parse(text.begin(), text.end(), &builder))
        refuse(std::move(builder.fault));
    return std::move(builder.root);
}

} // namespace tervale
