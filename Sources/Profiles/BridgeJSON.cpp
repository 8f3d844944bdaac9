#include "Base/Overloaded.h"
#include "Profiles/JSONCoding.h"

namespace tervale {

void write(JSONWriter& json, Date date) {
    json.number(date.sinceReference);
}

Date read(const JSONReader& json, Type<Date>) {
    return {json.number()};
}

void write(JSONWriter& json, const BridgeCommand& command) {
    std::visit(overloaded{
                   [&](const command::Select& select) { json.oneOf("select", select.action); },
                   [&](const command::StartTimer& startTimer) {
                       json.oneOf("startTimer", startTimer.action, startTimer.duration);
                   },
                   [&](const command::SaveProfiles& saveProfiles) {
                       json.oneOf("saveProfiles", saveProfiles.profiles);
                   },
                   [&](command::SetLaunchAtLogin setLaunchAtLogin) {
                       json.oneOf("setLaunchAtLogin", setLaunchAtLogin.enabled);
                   },
                   [&](command::CancelTimer) { json.oneOf("cancelTimer"); },
                   [&](command::CheckForUpdates) { json.oneOf("checkForUpdates"); },
                   [&](command::RequestState) { json.oneOf("requestState"); },
               },
               command);
}

BridgeCommand read(const JSONReader& json, Type<BridgeCommand>) {
    using Payload = const JSONReader&;
    return json.oneOf<BridgeCommand>({
        {"select",
         [](Payload payload) -> BridgeCommand {
             return command::Select{payload.member<Action>("_0")};
         }},
        {"startTimer",
         [](Payload payload) -> BridgeCommand {
             return command::StartTimer{payload.member<Action>("_0"), payload.member<double>("_1")};
         }},
        {"saveProfiles",
         [](Payload payload) -> BridgeCommand {
             return command::SaveProfiles{payload.member<std::vector<Profile>>("_0")};
         }},
        {"setLaunchAtLogin",
         [](Payload payload) -> BridgeCommand {
             return command::SetLaunchAtLogin{payload.member<bool>("_0")};
         }},
        {"cancelTimer", [](Payload) -> BridgeCommand { return command::CancelTimer{}; }},
        {"checkForUpdates", [](Payload) -> BridgeCommand { return command::CheckForUpdates{}; }},
        {"requestState", [](Payload) -> BridgeCommand { return command::RequestState{}; }},
    });
}

void write(JSONWriter& json, const BridgeState& state) {
    json.object([&] {
        json.member("selection", state.selection);
        json.optionalMember("timerAction", state.timerAction);
        json.optionalMember("timerEnds", state.timerEnds);
        json.optionalMember("status", state.status);
        json.member("launchAtLogin", state.launchAtLogin);
        json.member("profiles", state.profiles);
    });
}

BridgeState read(const JSONReader& json, Type<BridgeState>) {
    return {json.member<Action>("selection"),       json.optionalMember<Action>("timerAction"),
            json.optionalMember<Date>("timerEnds"), json.optionalMember<std::string>("status"),
            json.member<bool>("launchAtLogin"),     json.member<std::vector<Profile>>("profiles")};
}

} // namespace tervale
