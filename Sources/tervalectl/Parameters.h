#pragma once

#include "SMC/Sensors.h"
#include "tervalectl/ActionArgument.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

/// What each command takes from its arguments. A file named "-" is standard input or output.
namespace tervale::ctl {

struct Fans {
    bool operator==(const Fans&) const = default;
};
struct Sensors {
    std::optional<SensorGroup> group{};
    /// Part of the name or the key, in any case.
    std::string filter{};
    bool operator==(const Sensors&) const = default;
};
struct Monitor {
    /// In seconds, positive.
    double interval = 1;
    /// How many lines; without end if there is none.
    std::optional<std::int64_t> count{};
    /// The file of a chart, if one is wanted.
    std::optional<std::string> chart{};
    bool operator==(const Monitor&) const = default;
};
struct Doctor {
    bool operator==(const Doctor&) const = default;
};
struct ShowAgent {
    bool operator==(const ShowAgent&) const = default;
};
struct State {
    /// Print the state again at each change.
    bool follow = false;
    /// How many lines when following; without end if there is none.
    std::optional<std::int64_t> count{};
    bool operator==(const State&) const = default;
};
struct Select {
    ActionArgument action;
    bool operator==(const Select&) const = default;
};
struct Timer {
    ActionArgument action;
    /// In seconds, positive.
    double duration = 0;
    bool operator==(const Timer&) const = default;
};
struct CancelTimer {
    bool operator==(const CancelTimer&) const = default;
};
struct LaunchAtLogin {
    bool enabled = false;
    bool operator==(const LaunchAtLogin&) const = default;
};
struct CheckForUpdates {
    bool operator==(const CheckForUpdates&) const = default;
};
struct ListProfiles {
    bool operator==(const ListProfiles&) const = default;
};
struct ExportProfiles {
    std::string file = "-";
    bool operator==(const ExportProfiles&) const = default;
};
struct ImportProfiles {
    std::string file;
    /// Keep the profiles whose ids are not in the file.
    bool merge = false;
    bool operator==(const ImportProfiles&) const = default;
};
struct ValidateProfiles {
    std::string file;
    bool operator==(const ValidateProfiles&) const = default;
};
struct ShowProfile {
    ProfileReference profile;
    bool operator==(const ShowProfile&) const = default;
};
struct RemoveProfile {
    ProfileReference profile;
    bool operator==(const RemoveProfile&) const = default;
};
struct Replay {
    std::string profiles;
    ActionArgument selection;
    std::string trace = "-";
    /// As for `Monitor`.
    std::optional<std::string> chart{};
    bool operator==(const Replay&) const = default;
};

using Parameters =
    std::variant<Fans, Sensors, Monitor, Doctor, ShowAgent, State, Select, Timer, CancelTimer,
                 LaunchAtLogin, CheckForUpdates, ListProfiles, ExportProfiles, ImportProfiles,
                 ValidateProfiles, ShowProfile, RemoveProfile, Replay>;

} // namespace tervale::ctl
