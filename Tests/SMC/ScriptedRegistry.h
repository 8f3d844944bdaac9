#pragma once

#include "SMC/IORegistry.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tervale::test {

inline std::vector<std::byte> bytesOf(std::initializer_list<unsigned> values) {
    std::vector<std::byte> bytes;
    for (const unsigned value : values)
        bytes.push_back(static_cast<std::byte>(value));
    return bytes;
}

/// A registry whose only service is a controller that answers from a table of keys, fails where it
/// is told to, and remembers every request. Reads the 80 bytes by offset rather than through the
/// sources under test, and fills what a response leaves unused with noise.
class ScriptedRegistry : public IORegistry {
  public:
    enum Command : unsigned { read = 5, write = 6, keyByIndex = 8, keyInformation = 9 };

    struct Key {
        std::string type;
        std::vector<std::byte> bytes;
        /// What the key's description reports in place of the number of `bytes`.
        std::optional<std::uint32_t> reportedSize;
    };
    /// A status other than 0 fails the call itself, a result other than 0 the controller.
    struct Failure {
        Status status = 0;
        std::uint8_t result = 0;
    };
    struct Exchange {
        Connection connection = 0;
        std::uint32_t selector = 0;
        Structure request{};
    };
    /// What a controller answers for a key that it does not have.
    static constexpr std::uint8_t unknownKey = 132;
    static constexpr Service service = 77;
    static constexpr Connection connection = 4242;

    bool serviceExists = true;
    Status openStatus = 0;
    std::vector<Exchange> log;
    /// The seam's calls but the exchanges, in order, such as "find AppleSMC".
    std::vector<std::string> lifecycle;
    int opens = 0;
    int releases = 0;
    int closes = 0;

    /// Adds a key behind the others, or replaces its value.
    void set(const std::string& name, Key key) {
        if (keys.insert_or_assign(name, std::move(key)).second)
            order.push_back(name);
    }
    void setFloat(const std::string& name, float value) {
        const auto bits = std::bit_cast<std::uint32_t>(value);
        set(name, {"flt ", bytesOf({bits & 255U, bits >> 8 & 255U, bits >> 16 & 255U, bits >> 24}),
                   std::nullopt});
    }
    void setByte(const std::string& name, std::uint8_t value) {
        set(name, {"ui8 ", bytesOf({value}), std::nullopt});
    }
    void setFixedPoint(const std::string& name, std::uint16_t quarters) {
        set(name, {"fpe2", bytesOf({quarters / 256U, quarters % 256U}), std::nullopt});
    }
    /// Makes "#KEY" tell the number of keys, itself included.
    void setKeyCount() {
        set("#KEY", {"ui32", bytesOf({0, 0, 0, 0}), std::nullopt});
        const auto count = static_cast<unsigned>(order.size());
        set("#KEY", {"ui32", bytesOf({0, 0, count / 256U, count % 256U}), std::nullopt});
    }
    void remove(const std::string& name) {
        keys.erase(name);
        std::erase(order, name);
    }
    const Key& key(const std::string& name) const { return keys.at(name); }
    std::uint32_t indexOf(const std::string& name) const {
        return static_cast<std::uint32_t>(std::find(order.begin(), order.end(), name) -
                                          order.begin());
    }

    void fail(const std::string& name, Command command, Failure failure) {
        failures[{name, command}] = failure;
    }
    void failIndex(std::uint32_t index, Failure failure) { indexFailures[index] = failure; }
    void succeed(const std::string& name, Command command) { failures.erase({name, command}); }

    /// The requests since the last call, each as a line: "info F0Ac", "read F0Ac",
    /// "write F0md 01", "index 3".
    std::vector<std::string> takeRequests() {
        std::vector<std::string> lines;
        for (const Exchange& exchange : log)
            lines.push_back(lineOf(exchange.request));
        log.clear();
        return lines;
    }

    std::optional<Service> findService(const std::string& className) override {
        lifecycle.push_back("find " + className);
        return serviceExists ? std::optional(service) : std::nullopt;
    }
    Status open(Service opened, std::uint32_t type, Connection& result) override {
        lifecycle.push_back("open " + std::to_string(opened) + " type " + std::to_string(type));
        ++opens;
        if (openStatus == 0)
            result = connection;
        return openStatus;
    }
    void release(Service released) override {
        lifecycle.push_back("release " + std::to_string(released));
        ++releases;
    }
    void close(Connection closed) override {
        lifecycle.push_back("close " + std::to_string(closed));
        ++closes;
    }
    Status callStruct(Connection used, std::uint32_t selector, const Structure& request,
                      Structure& response) override {
        log.push_back({used, selector, request});
        response.fill(std::byte{0xA5});
        const Failure failure = failureOf(request);
        if (failure.status != 0)
            return failure.status;
        response[40] = static_cast<std::byte>(failure.result);
        if (failure.result == 0)
            answer(request, response);
        return 0;
    }

    static std::uint32_t word(const Structure& structure, std::size_t offset) {
        std::uint32_t value = 0;
        std::memcpy(&value, structure.data() + offset, sizeof value);
        return value;
    }

  private:
    static void setWord(Structure& structure, std::size_t offset, std::uint32_t value) {
        std::memcpy(structure.data() + offset, &value, sizeof value);
    }
    static Command commandOf(const Structure& request) {
        return static_cast<Command>(std::to_integer<unsigned>(request[42]));
    }
    /// A code is an integer in the host's order, so its first character lies last.
    static std::string nameOf(const Structure& request) {
        std::string name;
        for (const std::size_t offset : {3U, 2U, 1U, 0U})
            name.push_back(static_cast<char>(request[offset]));
        return name;
    }
    static std::uint32_t codeOf(std::string_view text) {
        if (text.size() != 4)
            throw std::invalid_argument("a scripted code has four characters");
        const auto at = [text](std::size_t i) { return std::uint32_t(std::uint8_t(text[i])); };
        return at(0) << 24 | at(1) << 16 | at(2) << 8 | at(3);
    }
    static std::string lineOf(const Structure& request) {
        switch (commandOf(request)) {
        case keyInformation:
            return "info " + nameOf(request);
        case read:
            return "read " + nameOf(request);
        case write:
            return "write " + nameOf(request) + hexadecimalOf(request);
        case keyByIndex:
            return "index " + std::to_string(word(request, 44));
        }
        return "unknown command";
    }
    static std::string hexadecimalOf(const Structure& request) {
        constexpr std::string_view digits = "0123456789abcdef";
        std::string text;
        for (std::size_t i = 48; i < 48 + word(request, 28); ++i) {
            const auto value = std::to_integer<unsigned>(request[i]);
            text += {' ', digits[value / 16], digits[value % 16]};
        }
        return text;
    }

    Failure failureOf(const Structure& request) const {
        if (commandOf(request) == keyByIndex) {
            const std::uint32_t index = word(request, 44);
            if (const auto found = indexFailures.find(index); found != indexFailures.end())
                return found->second;
            return index < order.size() ? Failure{} : Failure{0, unknownKey};
        }
        const std::string name = nameOf(request);
        if (const auto found = failures.find({name, commandOf(request)}); found != failures.end())
            return found->second;
        return keys.contains(name) ? Failure{} : Failure{0, unknownKey};
    }

    void answer(const Structure& request, Structure& response) {
        if (commandOf(request) == keyByIndex)
            return setWord(response, 0, codeOf(order[word(request, 44)]));
        Key& key = keys.at(nameOf(request));
        switch (commandOf(request)) {
        case keyInformation:
            setWord(response, 28,
                    key.reportedSize.value_or(static_cast<std::uint32_t>(key.bytes.size())));
            return setWord(response, 32, codeOf(key.type));
        case read:
            std::copy(key.bytes.begin(), key.bytes.end(), response.begin() + 48);
            return;
        case write: {
            const auto value = std::span(request).subspan(48, word(request, 28));
            key.bytes.assign(value.begin(), value.end());
            return;
        }
        case keyByIndex:
            return;
        }
    }

    std::map<std::string, Key> keys;
    std::vector<std::string> order;
    std::map<std::pair<std::string, Command>, Failure> failures;
    std::map<std::uint32_t, Failure> indexFailures;
};

} // namespace tervale::test
