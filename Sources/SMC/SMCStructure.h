#pragma once

#include "SMC/IORegistry.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace tervale {

/// The structure that the controller exchanges, the same in both directions. Integers in the host's
/// order; what a request does not use is zero.
///
/// | offset | bytes | member         | in a request               | in a response                |
/// |--------|-------|----------------|----------------------------|------------------------------|
/// | 0      | 4     | key            | the key's code             | by index: the code found     |
/// | 4      | 24    | unusedVersion  | zero                       | not used                     |
/// | 28     | 4     | dataSize       | read, write: the key's     | key information: the key's   |
/// | 32     | 4     | dataType       | zero                       | key information: its code    |
/// | 36     | 1     | attributes     | zero                       | not used                     |
/// | 37     | 3     | unusedPadding  | zero                       | not used                     |
/// | 40     | 1     | result         | zero                       | 0 for success                |
/// | 41     | 1     | status         | zero                       | not used                     |
/// | 42     | 1     | command        | an `SMCCommand`            | not used                     |
/// | 43     | 1     | unusedByte     | zero                       | not used                     |
/// | 44     | 4     | index          | by index: the key's        | not used                     |
/// | 48     | 32    | bytes          | write: the value           | read: the value              |
struct SMCStructure {
    std::uint32_t key = 0;
    std::array<std::byte, 24> unusedVersion{};
    std::uint32_t dataSize = 0;
    std::uint32_t dataType = 0;
    std::uint8_t attributes = 0;
    std::array<std::byte, 3> unusedPadding{};
    std::uint8_t result = 0;
    std::uint8_t status = 0;
    std::uint8_t command = 0;
    std::uint8_t unusedByte = 0;
    std::uint32_t index = 0;
    std::array<std::byte, 32> bytes{};

    IORegistry::Structure toBytes() const { return std::bit_cast<IORegistry::Structure>(*this); }
    static SMCStructure fromBytes(const IORegistry::Structure& bytes) {
        return std::bit_cast<SMCStructure>(bytes);
    }
};

static_assert(std::endian::native == std::endian::little, "the controller is little-endian");
static_assert(offsetof(SMCStructure, key) == 0);
static_assert(offsetof(SMCStructure, unusedVersion) == 4);
static_assert(offsetof(SMCStructure, dataSize) == 28);
static_assert(offsetof(SMCStructure, dataType) == 32);
static_assert(offsetof(SMCStructure, attributes) == 36);
static_assert(offsetof(SMCStructure, unusedPadding) == 37);
static_assert(offsetof(SMCStructure, result) == 40);
static_assert(offsetof(SMCStructure, status) == 41);
static_assert(offsetof(SMCStructure, command) == 42);
static_assert(offsetof(SMCStructure, unusedByte) == 43);
static_assert(offsetof(SMCStructure, index) == 44);
static_assert(offsetof(SMCStructure, bytes) == 48);
static_assert(sizeof(SMCStructure) == 80);

/// What a request asks for.
enum class SMCCommand : std::uint8_t { read = 5, write = 6, keyByIndex = 8, keyInformation = 9 };

/// The selector of the exchange in the kernel service's interface.
inline constexpr std::uint32_t smcExchangeSelector = 2;

} // namespace tervale
