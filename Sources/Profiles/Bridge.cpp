#include "Profiles/Bridge.h"

#include "Profiles/BridgeLimit.h"
#include "Profiles/JSONCoding.h"

#include <utility>

namespace tervale {

namespace {

/// Nothing for a value that cannot be sent.
template <class Value>
std::optional<std::string> textOf(const Value& value) {
    try {
        std::string text = encode(value);
        if (text.size() <= maximumBridgeTextSize)
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
                              if (!object || object->size() > maximumBridgeTextSize)
                                  return;
                              const Decoded<Value> decoded = decode<Value>(*object);
                              if (const auto* value = std::get_if<Value>(&decoded))
                                  handler(*value);
                          });
}

} // namespace

bool fitsBridge(const BridgeState& state) {
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

ObserverToken Bridge::onState(std::function<void(const BridgeState&)> handler) {
    return observe<BridgeState>(center, stateName, std::move(handler));
}

ObserverToken Bridge::onQuitWindow(std::function<void()> handler) {
    return center.observe(
        quitName, [handler = std::move(handler)](const std::optional<std::string>&) { handler(); });
}

} // namespace tervale
