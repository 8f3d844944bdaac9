#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tervale {

/// The limits of what is read, so that no text exhausts the stack or the memory.
inline constexpr std::size_t maximumJSONDepth = 512;
inline constexpr std::size_t maximumJSONSize = std::size_t{16} * 1024 * 1024;

/// The text from the beginning of its value, if it is strict JSON in UTF-8, with or without a byte
/// order mark. Builds nothing. Throws `DecodingFailure`.
std::string_view checkedJSON(std::string_view text);

// Of a checked text only, here and below. The text goes on behind the value that it begins with.

/// The spelling of the text's first value.
std::string_view firstValue(std::string_view text);

/// Decodes the escapes of a string, given without its quotes.
std::string unescaped(std::string_view spelling);

/// The members of the object, or the elements of the array, that a text begins with, in order.
/// What is not asked for is passed over without being kept.
class JSONItems {
  public:
    explicit JSONItems(std::string_view text) : rest(text) {}

    /// To the next item, the first to begin with; false after the last.
    bool next();
    /// Whether the item is a member of that name.
    bool isNamed(std::string_view name) const;
    /// A member's name.
    std::string name() const { return unescaped(spelledName); }
    /// The text from the item's value on.
    std::string_view value() const { return rest; }

  private:
    void skip(std::size_t count) { rest.remove_prefix(count); }
    void skipBlank();

    std::string_view rest;
    std::string_view spelledName;
    enum class Place { before, within } place = Place::before;
    bool inObject = false;
};

} // namespace tervale
