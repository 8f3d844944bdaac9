#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tervale {

/// Why a text is no value of the type asked for.
struct DecodingError {
    enum class Kind {
        /// The value is of another JSON type.
        typeMismatch,
        /// The value is null, where one is required.
        valueNotFound,
        /// A required member is missing.
        keyNotFound,
        /// The text is no JSON, or a string or number is none that the type knows.
        dataCorrupted,
    };

    Kind kind = Kind::dataCorrupted;
    /// The members and indices that lead to the place, such as {"points", "0", "x"}.
    std::vector<std::string> path;
    std::string description;

    /// One line: the place and what is wrong there.
    std::string text() const;

    bool operator==(const DecodingError&) const = default;
};

template <class Value>
using Decoded = std::variant<Value, DecodingError>;

/// Thrown by `encode` for a number that is NaN or infinite, which JSON cannot hold.
struct EncodingError : std::exception {
    const char* what() const noexcept override { return "a number is not finite"; }
};

/// The JSON text of a value: compact, members in the order of the type's fields, slashes escaped,
/// ill-formed UTF-8 in strings repaired. Throws `EncodingError`.
///
/// A whole number is written without a fraction. Structures are objects keyed by field; an
/// alternative is an object with one member, named after it, that holds an object with its payload
/// under `_0` and `_1`.
template <class Value>
std::string encode(const Value& value);

/// The value that a JSON text holds. No range is checked, unknown members are ignored, and nothing
/// is decoded in part. Of two members of the same name the first counts. More than 512 levels of
/// nesting and more than 16 MiB are refused.
template <class Value>
Decoded<Value> decode(std::string_view text);

} // namespace tervale
