#pragma once

#include "JSON/JSON.h"
#include "JSON/JSONValue.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace tervale {

/// Ends a decoding from any depth; caught by `decode`.
struct DecodingFailure {
    DecodingError error;
};

/// Picks the `read` of a type.
template <class Value>
using Type = std::type_identity<Value>;

/// One value of a JSON text together with the way that leads to it. Checks the shape of what is
/// asked for and throws `DecodingFailure` where it is another. Borrows the value, the name, and the
/// reader of the value that it was reached from.
///
/// A type is decoded by an overload of `read(const JSONReader&, Type<Value>)`.
class JSONReader {
  public:
    explicit JSONReader(const JSONValue& document) : json(document) {}

    template <class Value>
    Value as() const {
        return read(*this, Type<Value>{});
    }
    /// A required member.
    template <class Value>
    Value member(std::string_view name) const {
        return requiredMember(name).as<Value>();
    }
    /// Nothing if the member is absent or null.
    template <class Value>
    std::optional<Value> optionalMember(std::string_view name) const {
        const JSONValue* found = find(name);
        if (!found || std::holds_alternative<JSONNull>(found->value))
            return std::nullopt;
        return JSONReader(*found, this, name).as<Value>();
    }

    template <class Value>
    std::vector<Value> elements() const {
        const JSONArray& array = elementValues();
        std::vector<Value> values;
        values.reserve(array.size());
        for (std::size_t index = 0; index < array.size(); ++index)
            values.push_back(JSONReader(array[index], this, index).as<Value>());
        return values;
    }

    /// A case of a type that is one of several, and how its payload is read.
    template <class Value>
    struct Case {
        std::string_view name;
        Value (*payload)(const JSONReader&);
    };
    template <class Value>
    Value oneOf(std::initializer_list<Case<Value>> cases) const;

    bool boolean() const;
    double number() const;
    std::int64_t integer() const;
    /// The names of an object's members.
    std::vector<std::string_view> names() const;
    const std::string& text() const;

    [[noreturn]] void fail(DecodingError::Kind kind, std::string description) const;

  private:
    using Step = std::variant<std::string_view, std::size_t>;

    JSONReader(const JSONValue& json, const JSONReader* parent, Step step)
        : json(json),
          parent(parent),
          step(step) {}

    /// The first member of that name, or null. The value must be an object.
    const JSONValue* find(std::string_view name) const;
    JSONReader requiredMember(std::string_view name) const;
    const JSONArray& elementValues() const;
    const JSONObject& members() const;
    [[noreturn]] void failToFind(const char* expected) const;

    const JSONValue& json;
    const JSONReader* parent = nullptr;
    Step step;
};

template <class Value>
Value JSONReader::oneOf(std::initializer_list<Case<Value>> cases) const {
    const Case<Value>* chosen = nullptr;
    std::size_t count = 0;
    for (const Case<Value>& candidate : cases) {
        if (find(candidate.name)) {
            chosen = &candidate;
            ++count;
        }
    }
    if (count != 1)
        fail(DecodingError::Kind::typeMismatch, "Invalid number of keys found, expected one.");
    const JSONReader payload = requiredMember(chosen->name);
    // Also a case without a payload holds an object.
    payload.members();
    return chosen->payload(payload);
}

inline bool read(const JSONReader& json, Type<bool>) {
    return json.boolean();
}
inline double read(const JSONReader& json, Type<double>) {
    return json.number();
}
inline std::int64_t read(const JSONReader& json, Type<std::int64_t>) {
    return json.integer();
}
inline std::string read(const JSONReader& json, Type<std::string>) {
    return json.text();
}
template <class Value>
std::vector<Value> read(const JSONReader& json, Type<std::vector<Value>>) {
    return json.elements<Value>();
}

} // namespace tervale
