#pragma once

#include "Simulation/RandomSource.h"
#include "Simulation/SensorBank.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <variant>
#include <vector>

namespace tervale {

/// Where the value of a simulated key comes from.
namespace keySource {
/// Always these bytes.
struct Constant {
    std::vector<std::byte> bytes;
};
struct KeyCount {};
/// Whether the fans are unlocked for manual control.
struct Unlock {};
struct FanValue {
    enum Register : std::uint8_t { actual, target, min, max, mode };

    std::size_t fan = 0;
    Register value = actual;
};
struct Sensor {
    std::size_t index = 0;
};
} // namespace keySource

using KeySource = std::variant<keySource::Constant, keySource::KeyCount, keySource::Unlock,
                               keySource::FanValue, keySource::Sensor>;

/// One key of the simulated controller.
struct SimulatedKey {
    std::string name;
    std::string type;
    std::uint32_t size = 0;
    KeySource source;
    /// Result codes of a key that never works; 0 for one that does.
    std::uint8_t describeResult = 0;
    std::uint8_t readResult = 0;
};

/// The spelling of the mode keys, in which controllers differ: "F0md" or "F0Md".
enum class ModeSpelling : std::uint8_t { lowerCase, upperCase };

/// All keys of the simulated controller, sorted by name as real ones are. Besides the fans and the
/// sensors these are keys that look like temperatures and must not be taken for any, and ordinary
/// keys of many types, to walk past.
class KeyTable {
  public:
    KeyTable(std::size_t fans, ModeSpelling spelling, const SensorBank& sensors,
             std::size_t fillers, std::uint64_t seed);

    std::size_t size() const { return keys.size(); }
    const SimulatedKey& operator[](std::size_t index) const { return keys[index]; }
    /// Null for a code that is no key's.
    const SimulatedKey* find(std::uint32_t code) const;

  private:
    void add(SimulatedKey key);
    void addFans(std::size_t fans, ModeSpelling spelling);
    void addDecoys();
    void addFillers(std::size_t count, RandomSource& random);

    std::vector<SimulatedKey> keys;
    std::unordered_map<std::uint32_t, std::size_t> positions;
};

/// The bytes of a value in one of the types "flt ", "fpe2", "ui8 ", "flag", "ui16" and "ui32".
std::vector<std::byte> keyBytes(std::string_view type, double value);

} // namespace tervale
