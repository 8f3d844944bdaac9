#pragma once

#include "Profiles/InProcessNotificationCenter.h"
#include "TervaleWindow/Model/Model.h"
#include "TervaleWindow/Support/FakeController.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tervale {

/// A clock that stands where it is put.
class SettableClock final : public Clock {
  public:
    Date time;
    int minute = 0;

    Date now() const override { return time; }
    int minuteOfDay() const override { return minute; }
};

class SettableVisibility final : public Visibility {
  public:
    bool shown = true;

    bool visible() const override { return shown; }
};

/// A model on a fake controller, with a test in the place of the agent.
class ModelFixture : public testing::Test {
  protected:
    /// To be called once the controller is set up.
    Model& makeModel() {
        model = std::make_unique<Model>(controller, bridge, clock, visibility);
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
    std::unique_ptr<Model> model;

  private:
    std::vector<BridgeCommand> commands;
    ObserverToken agent =
        bridge.onCommand([this](const BridgeCommand& command) { commands.push_back(command); });
};

} // namespace tervale
