#include "Base/Precondition.h"
#include "FuzzedBytes.h"
#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/InProcessNotificationCenter.h"

#include <array>

using namespace tervale;

/// The receiving side: what does not decode reaches no handler, and what does reaches it as it is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedBytes input(data, size);
    InProcessNotificationCenter center;
    Bridge bridge(center);
    std::optional<BridgeCommand> command;
    std::optional<BridgeState> state;
    int quits = 0;
    const std::array tokens{
        bridge.onCommand([&](const BridgeCommand& heard) { command = heard; }),
        bridge.onState([&](const BridgeState& heard) { state = heard; }),
        bridge.onQuitWindow([&] { ++quits; }),
    };
    static constexpr std::array names{Bridge::commandName, Bridge::stateName, Bridge::quitName,
                                      "com.velnor.tervale.other"};
    const std::size_t name = input.below(names.size());
    const bool carries = input.below(8) != 0;
    const std::string text = input.rest();
    center.post(names[name], carries ? std::optional(text) : std::nullopt);
    const auto asCommand = decode<BridgeCommand>(text);
    const auto asState = decode<BridgeState>(text);
    const auto* expectedCommand = std::get_if<BridgeCommand>(&asCommand);
    const auto* expectedState = std::get_if<BridgeState>(&asState);
    const bool isShort = carries && text.size() <= Bridge::maximumTextSize;
    precondition(command == (name == 0 && isShort && expectedCommand
                                 ? std::optional(*expectedCommand)
                                 : std::nullopt),
                 "a command that was not sent, or one that was lost");
    precondition(state == (name == 1 && isShort && expectedState ? std::optional(*expectedState)
                                                                 : std::nullopt),
                 "a state that was not sent, or one that was lost");
    precondition(quits == (name == 2 ? 1 : 0), "a window that was not told to go");
    return 0;
}
