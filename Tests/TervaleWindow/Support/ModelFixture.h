#pragma once

#include "Profiles/InProcessNotificationCenter.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Support/FakeController.h"
#include "TervaleWindow/Support/Settable.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tervale {

/// A model on a fake controller, with a test in the place of the agent, which also says when a
/// second is over.
class ModelFixture : public testing::Test {
  protected:
    /// To be called once the controller is set up.
    Model& makeModel() {
        model = std::make_unique<Model>(controller, bridge, clock, visibility, timer.factory());
        return *model;
    }
    void publish(const BridgeState& state) { bridge.publish(state); }
    /// The commands since the last call.
    std::vector<BridgeCommand> takeCommands() { return std::exchange(commands, {}); }

    FakeController controller;
    InProcessNotificationCenter center;
    Bridge bridge{center};
    SettableClock clock;
    SettableVisibility visibility;
    SettableTimer timer;
    std::unique_ptr<Model> model;

  private:
    std::vector<BridgeCommand> commands;
    ObserverToken agent =
        bridge.onCommand([this](const BridgeCommand& command) { commands.push_back(command); });
};

} // namespace tervale
