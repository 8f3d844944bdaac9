#pragma once

#include <exception>
#include <string>
#include <utility>
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
        /// The text is no JSON, or a string or number is not valid for the type.
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

/// Ends a decoding from any depth; caught by `decode`.
struct DecodingFailure {
    DecodingError error;
};

/// Thrown by `encode` for a value that JSON cannot hold, or whose text `decode` would refuse.
class EncodingError : public std::exception {
  public:
    explicit EncodingError(std::string reason) : reason(std::move(reason)) {}

    /// One line, such as "A number is not finite."
    const char* what() const noexcept override { return reason.c_str(); }

  private:
    std::string reason;
};

} // namespace tervale
