#pragma once

#include "JSON/JSONError.h"
#include "JSON/JSONForward.h"
#include "JSON/JSONText.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tervale {

/// One value of a JSON text together with the way that leads to it. Checks the shape of what is
/// asked for and throws `DecodingFailure` where it is another. Looks things up in the text itself:
/// what nobody asks for is never built. Borrows the text, the name, and the reader of the value
/// that it was reached from.
///
/// A type is decoded by an overload of `read(const JSONReader&, Type<Value>)`.
class JSONReader {
  public:
    /// `text` comes from `checkedJSON`.
    explicit JSONReader(std::string_view text) : json(text) {}

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
        const std::optional<std::string_view> found = find(name);
        if (!found || found->front() == 'n')
            return std::nullopt;
        return JSONReader(*found, this, name).as<Value>();
    }

    template <class Value>
    std::vector<Value> elements() const {
        std::vector<Value> values;
        for (JSONItems items = elementItems(); items.next();)
            values.push_back(JSONReader(items.value(), this, values.size()).as<Value>());
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
    std::vector<std::string> names() const;
    std::string text() const;

    [[noreturn]] void fail(DecodingError::Kind kind, std::string description) const;

  private:
    using Step = std::variant<std::string_view, std::size_t>;

    JSONReader(std::string_view json, const JSONReader* parent, Step step)
        : json(json),
          parent(parent),
          step(step) {}

    /// The text from the first member of that name on. The value must be an object.
    std::optional<std::string_view> find(std::string_view name) const;
    JSONReader requiredMember(std::string_view name) const;
    JSONItems memberItems() const;
    JSONItems elementItems() const;
    [[noreturn]] void failToFind(const char* expected) const;

    /// Begins with the value, and goes on behind it.
    std::string_view json;
    const JSONReader* parent = nullptr;
    Step step;
};

template <class Value>
Value JSONReader::oneOf(std::initializer_list<Case<Value>> cases) const {
    const Case<Value>* chosen = nullptr;
    std::string_view text;
    for (JSONItems items = memberItems(); items.next();) {
        // The analyzer takes the list for one without storage.
        // NOLINTNEXTLINE(clang-analyzer-core.NullDereference)
        for (const Case<Value>& candidate : cases) {
            if (&candidate == chosen || !items.isNamed(candidate.name))
                continue;
            if (chosen)
                fail(DecodingError::Kind::typeMismatch,
                     "Invalid number of keys found, expected one.");
            chosen = &candidate;
            text = items.value();
        }
    }
    if (!chosen)
        fail(DecodingError::Kind::typeMismatch, "Invalid number of keys found, expected one.");
    const JSONReader payload(text, this, chosen->name);
    // Also a case without a payload holds an object.
    payload.memberItems();
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
