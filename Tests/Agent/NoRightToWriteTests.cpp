#include "Agent/Agent.h"
#include "Profiles/InMemoryPreferences.h"
#include "Profiles/InProcessNotificationCenter.h"
#include "SMC/DelegatingRegistry.h"
#include "SMC/SMCStructure.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

/// A controller that anyone may read, and that only root may write to.
class RootsRegistry final : public DelegatingRegistry {
  public:
    static constexpr auto notPrivileged = static_cast<Status>(0xe00002c1);

    using DelegatingRegistry::DelegatingRegistry;

    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override {
        const bool writes = SMCStructure::fromBytes(request).command ==
                            static_cast<std::uint8_t>(SMCCommand::write);
        return writes ? notPrivileged
                      : DelegatingRegistry::callStruct(connection, selector, request, response);
    }
};

class NoRightToWrite : public testing::Test {
  protected:
    explicit NoRightToWrite(Scenario scenario = Scenario::idle)
        : mac({.scenario = scenario, .fillers = 0}) {}

    SimulatedMac mac;
    RootsRegistry registry{mac};
    SMC smc{registry};
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock;
    Agent agent{
        {.smc = smc, .center = center, .preferences = preferences, .clock = clock, .load = [this] {
             return mac.load();
         }}};
};

TEST_F(NoRightToWrite, IsToldInTheStatusWhileTheAgentGoesOnAnswering) {
    EXPECT_EQ(agent.currentState().status, std::nullopt);
    Bridge(center).send(command::Select{action::Fixed{1}});
    for (int second = 0; second < 3; ++second) {
        agent.tick();
        EXPECT_EQ(agent.currentState().selection, Action(action::Fixed{1}));
        ASSERT_TRUE(agent.currentState().status);
        EXPECT_EQ(*agent.currentState().status, "This agent may not write to the controller. "
                                                "F0md: IOKit error 0xe00002c1")
            << second;
        EXPECT_FALSE(smc.fan(0).manual);
    }
    EXPECT_FALSE(smc.temperatureSensors().empty());
}

TEST_F(NoRightToWrite, LeavesNothingToHandBack) {
    Bridge(center).send(command::Select{action::Fixed{1}});
    agent.tick();
    Bridge(center).send(command::Select{action::Automatic{}});
    agent.tick();
    EXPECT_EQ(agent.currentState().status, std::nullopt);
    EXPECT_EQ(agent.end(), std::nullopt);
}

class NoRightToWriteInAHeatwave : public NoRightToWrite {
  protected:
    NoRightToWriteInAHeatwave() : NoRightToWrite(Scenario::heatwave) {}
};

TEST_F(NoRightToWriteInAHeatwave, LeavesNoClaimOfFullSpeed) {
    for (int second = 0; second < 900 && !agent.currentState().status; ++second) {
        mac.advance(1);
        clock.advance(1);
        agent.tick();
    }
    EXPECT_EQ(agent.currentState().status,
              "This agent may not write to the controller. F0md: IOKit error 0xe00002c1. It is too "
              "hot: the fans should run at Max until every CPU and GPU sensor is below 85 °C.");
    EXPECT_FALSE(smc.fan(0).manual);
}

} // namespace
} // namespace tervale
