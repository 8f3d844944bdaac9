#pragma once

#include "JSON/JSONReader.h"
#include "JSON/JSONWriter.h"
#include "Profiles/TemperatureInputs.h"
#include "SMC/Fan.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tervale {

/// What a machine read at one time: a line that `monitor` writes and `replay` takes.
struct MachineReading {
    /// Seconds since 1970-01-01 00:00:00 UTC.
    double time = 0;
    /// The local minute of the day, 0 to 1439.
    std::int64_t minute = 0;
    /// Percent, 0 to 100; nothing when unknown.
    std::optional<double> load{};
    TemperatureReadings temperatures{};
    std::vector<Fan> fans{};

    /// The time of day, such as "08:05:30".
    std::string timeOfDay() const;

    bool operator==(const MachineReading&) const = default;
};

// Each `writeMembers` writes the members of the object alone, for an object that has more.

/// A speed that is not finite is left out.
void writeMembers(JSONWriter& json, const Fan& fan);
void write(JSONWriter& json, const Fan& fan);
void write(JSONWriter& json, const TemperatureReadings& readings);
void writeMembers(JSONWriter& json, const MachineReading& reading);
void write(JSONWriter& json, const MachineReading& reading);

Fan read(const JSONReader& json, Type<Fan>);
/// Fails for a name that is no input's title.
TemperatureReadings read(const JSONReader& json, Type<TemperatureReadings>);
/// The fans may be missing; nobody needs to know them to tell what they should do.
MachineReading read(const JSONReader& json, Type<MachineReading>);

} // namespace tervale
