#pragma once

#include "SMC/Fan.h"
#include "SMC/IORegistry.h"
#include "SMC/Sensors.h"

#include <cstdint>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tervale {

struct SMCStructure;

/// The only error of the controller: one line for people, which begins with the key where a key
/// failed. Print `description`: a key found by its index has no name, and its error begins with
/// zeros, where `what` ends.
struct SMCError : std::exception {
    std::string description;

    explicit SMCError(std::string description) : description(std::move(description)) {}
    const char* what() const noexcept override { return description.c_str(); }
};

/// One connection to the machine's system management controller, closed with the object. Every
/// operation but `exists`, `modeKey`, `temperature` and `temperatures` throws `SMCError`; the
/// object stays usable afterwards. Used by one thread at a time.
///
/// The description of a key is fetched once and then kept for the life of the object, so that a
/// read in the steady state is a single controller call.
class SMC {
  public:
    struct Info {
        /// In bytes, at most 32.
        std::uint32_t size = 0;
        /// Four characters, such as "flt "; "?" when one is not ASCII.
        std::string type;

        bool operator==(const Info&) const = default;
    };

    /// Opens the "AppleSMC" service of `registry`, which outlives the object.
    explicit SMC(IORegistry& registry);
    ~SMC();
    SMC(const SMC&) = delete;
    SMC& operator=(const SMC&) = delete;

    Info info(const std::string& key);
    bool exists(const std::string& key);
    /// Whether the controller has the key, by its own word: throws where it could not be asked,
    /// which `exists` takes for no.
    bool has(const std::string& key);
    double read(const std::string& key);
    void write(const std::string& key, double value);

    std::int64_t keyCount();
    std::int64_t fanCount();
    /// The name of the key at a 0-based index, which must fit 32 bits.
    std::string key(std::int64_t index);

    /// The name of a fan's mode key in the spelling that this controller uses.
    std::string modeKey(std::int64_t index);
    /// The same by the controller's own word: nothing if the fan has no mode. Throws where it could
    /// not be asked.
    std::optional<std::string> knownModeKey(std::int64_t index);
    Fan fan(std::int64_t index);
    /// All fans in index order, or the error of the first that fails.
    std::vector<Fan> fans();
    /// Takes a fan under manual control at `rpm`, which must lie within the fan's limits.
    void setSpeed(std::int64_t fan, double rpm);
    /// Hands these fans back to automatic control, or all of them when no list is given.
    void setAuto(const std::optional<std::vector<std::int64_t>>& fans = std::nullopt);

    /// Every sensor worth showing, in key-index order. Walks all keys: up to four calls each.
    std::vector<TemperatureSensor> temperatureSensors();
    /// Degrees Celsius of the sensor, if it can be read and believed now. One call.
    std::optional<double> temperature(const TemperatureSensor& sensor);
    /// The same of several sensors, without those that cannot. One call each.
    std::unordered_map<TemperatureSensor, double>
    temperatures(std::span<const TemperatureSensor> sensors);

  private:
    /// One exchange; `key` begins the error's message.
    SMCStructure call(const std::string& key, const SMCStructure& request);
    /// The same; nothing if the controller answers that it has no such key.
    std::optional<SMCStructure> ask(const std::string& key, const SMCStructure& request);

    IORegistry& registry;
    IORegistry::Connection conn = 0;
    std::unordered_map<std::string, Info> infoCache;
};

} // namespace tervale
