#pragma once

#include "Base/Precondition.h"
#include "FuzzedBytes.h"
#include "SMC/IORegistry.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>

namespace tervale {

/// A controller that answers whatever a fuzzer wants: refusals, rubbish, and now and then something
/// that a controller would say.
class RubbishRegistry final : public IORegistry {
  public:
    explicit RubbishRegistry(FuzzedBytes& input) : input(input) {}
    ~RubbishRegistry() override {
        precondition(opened == closed && found == released, "something was left open");
    }

    std::optional<Service> findService(const std::string&) override {
        if (input.byte() == 255)
            return std::nullopt;
        ++found;
        return input.word();
    }
    Status open(Service, std::uint32_t, Connection& connection) override {
        if (input.byte() == 255)
            return static_cast<Status>(input.word() | 1U);
        ++opened;
        connection = input.word();
        return 0;
    }
    void release(Service) override { ++released; }
    Status callStruct(Connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override {
        precondition(selector == 2, "another selector than the controller's");
        const std::uint8_t choice = input.byte();
        if (choice == 255)
            return static_cast<Status>(input.word());
        // By its rules, the connection ends the process at counts and limits that are no integers.
        if (choice < 16 && !isInteger(request)) {
            for (std::byte& each : response)
                each = static_cast<std::byte>(input.byte());
            return 0;
        }
        answer(request, response);
        return 0;
    }
    void close(Connection) override { ++closed; }

  private:
    static constexpr std::size_t sizeOffset = 28;
    static constexpr std::size_t typeOffset = 32;
    static constexpr std::size_t resultOffset = 40;
    static constexpr std::size_t commandOffset = 42;
    static constexpr std::size_t bytesOffset = 48;

    static bool isCount(const Structure& request) {
        return request[3] == std::byte{'#'} ||
               (request[3] == std::byte{'F'} && request[2] == std::byte{'N'});
    }

    static bool isInteger(const Structure& request) {
        const bool isLimit = request[3] == std::byte{'F'} && request[1] == std::byte{'M'} &&
                             (request[0] == std::byte{'n'} || request[0] == std::byte{'x'});
        return isCount(request) || isLimit;
    }

    void answer(const Structure& request, Structure& response) {
        if (input.below(8) == 0)
            response[resultOffset] = static_cast<std::byte>(input.byte());
        switch (static_cast<unsigned>(request[commandOffset])) {
        case 9: {
            static constexpr std::array<const char*, 6> types{"flt ", "fpe2", "sp78",
                                                              "ui8 ", "ui16", "ui32"};
            static constexpr std::array<std::uint8_t, 6> sizes{4, 2, 2, 1, 2, 4};
            const std::size_t type = isCount(request)     ? 3
                                     : isInteger(request) ? 4
                                                          : input.below(types.size());
            response[sizeOffset] =
                static_cast<std::byte>(input.below(8) == 0 ? input.byte() : sizes[type]);
            for (std::size_t index = 0; index < 4; ++index)
                response[typeOffset + index] = static_cast<std::byte>(types[type][3 - index]);
            break;
        }
        case 8: {
            static constexpr std::array<const char*, 6> names{"Tp01", "Tg05", "TB1T",
                                                              "F0Ac", "TW0P", "Tm0B"};
            const char* name = names[input.below(names.size())];
            for (std::size_t index = 0; index < 4; ++index)
                response[index] = static_cast<std::byte>(name[3 - index]);
            break;
        }
        default:
            // A count of all keys would take the fuzzer's time.
            for (std::size_t index = 0; index < 4; ++index)
                response[bytesOffset + index] = static_cast<std::byte>(input.byte());
            if (isCount(request))
                response[bytesOffset] = static_cast<std::byte>(input.below(16));
        }
    }

    FuzzedBytes& input;
    int found = 0;
    int released = 0;
    int opened = 0;
    int closed = 0;
};

} // namespace tervale
