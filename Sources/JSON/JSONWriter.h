#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tervale {

/// Puts a JSON text together, compact and in the order of the calls.
///
/// A type is encoded by an overload of `write(JSONWriter&, const Value&)`.
class JSONWriter {
  public:
    std::string text;

    /// An object whose members are written by `writeMembers`.
    template <class Function>
    void object(Function&& writeMembers) {
        open('{');
        writeMembers();
        close('}');
    }
    template <class Value>
    void member(std::string_view name, const Value& value) {
        key(name);
        write(*this, value);
    }
    /// An absent value writes no member.
    template <class Value>
    void optionalMember(std::string_view name, const std::optional<Value>& value) {
        if (value)
            member(name, *value);
    }
    template <class Value>
    void array(const std::vector<Value>& values) {
        open('[');
        for (const Value& value : values) {
            separate();
            write(*this, value);
        }
        close(']');
    }
    /// A case of a type that is one of several, with its payload in order.
    template <class... Payload>
    void oneOf(std::string_view name, const Payload&... payload) {
        object([&] {
            key(name);
            object([&] {
                [[maybe_unused]] char digit = '0';
                (member(std::string{'_', digit++}, payload), ...);
            });
        });
    }

    void boolean(bool value);
    /// Throws `EncodingError` unless finite.
    void number(double value);
    void integer(std::int64_t value);
    void string(std::string_view value);

  private:
    /// `name` needs no escaping.
    void key(std::string_view name);
    void open(char bracket);
    void close(char bracket);
    void separate();
};

inline void write(JSONWriter& json, bool value) {
    json.boolean(value);
}
inline void write(JSONWriter& json, double value) {
    json.number(value);
}
inline void write(JSONWriter& json, std::int64_t value) {
    json.integer(value);
}
inline void write(JSONWriter& json, const std::string& value) {
    json.string(value);
}
template <class Value>
void write(JSONWriter& json, const std::vector<Value>& values) {
    json.array(values);
}

} // namespace tervale
