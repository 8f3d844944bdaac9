#include "Profiles/Bridge.h"

#include "Base/Overloaded.h"
#include "JSON/JSON.h"

#include <utility>

namespace tervale {

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

namespace {

/// Nothing for a value that cannot be sent.
template <class Value>
std::optional<std::string> textOf(const Value& value) {
    try {
        std::string text = encode(value);
        if (text.size() <= Bridge::maximumTextSize)
            return text;
    } catch (const EncodingError&) {
        // Nobody is told: the channel carries no errors.
    }
    return std::nullopt;
}

template <class Value>
void post(NotificationCenter& center, const char* name, const Value& value) {
    if (const std::optional<std::string> text = textOf(value))
        center.post(name, text);
}

template <class Value>
ObserverToken observe(NotificationCenter& center, const char* name,
                      std::function<void(const Value&)> handler) {
    return center.observe(name,
                          [handler = std::move(handler)](const std::optional<std::string>& object) {
                              if (!object || object->size() > Bridge::maximumTextSize)
                                  return;
                              const Decoded<Value> decoded = decode<Value>(*object);
                              if (const auto* value = std::get_if<Value>(&decoded))
                                  handler(*value);
                          });
}

} // namespace

bool Bridge::fits(const BridgeCommand& command) {
    return textOf(command).has_value();
}

bool Bridge::fits(const BridgeState& state) {
    return textOf(state).has_value();
}

void Bridge::send(const BridgeCommand& command) {
    post(center, commandName, command);
}

void Bridge::publish(const BridgeState& state) {
    post(center, stateName, state);
}

void Bridge::quitWindow() {
    center.post(quitName, std::nullopt);
}

ObserverToken Bridge::onCommand(std::function<void(const BridgeCommand&)> handler) {
    return observe<BridgeCommand>(center, commandName, std::move(handler));
}

ObserverToken Bridge::onOverlongCommand(std::function<void()> handler) {
    return center.observe(commandName,
                          [handler = std::move(handler)](const std::optional<std::string>& object) {
                              if (object && object->size() > maximumTextSize)
                                  handler();
                          });
}

ObserverToken Bridge::onState(std::function<void(const BridgeState&)> handler) {
    return observe<BridgeState>(center, stateName, std::move(handler));
}

ObserverToken Bridge::onQuitWindow(std::function<void()> handler) {
    return center.observe(
        quitName, [handler = std::move(handler)](const std::optional<std::string>&) { handler(); });
}

ObserverToken Bridge::onChannel(std::function<void(Channel)> handler) {
    return center.observeChannel(std::move(handler));
}

} // namespace tervale
