#include "Agent/Agent.h"
#include "Agent/AgentFixture.h"
#include "SMC/LateRegistry.h"
#include "Simulation/SimulatedClock.h"
#include "Simulation/SimulatedMac.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

/// An agent that is started on a Mac whose controller a test does not let it open.
class AgentWithoutController : public testing::Test {
  protected:
    explicit AgentWithoutController() { mac.setService(service::Refusing{-536870207}); }

    std::optional<std::string> status() const { return agent->currentState().status; }
    void start() {
        agent.emplace(Agent::Seams{.smc = smc,
                                   .center = center,
                                   .preferences = preferences,
                                   .clock = clock,
                                   .load = {},
                                   .guard =
                                       [this] {
                                           ++guards;
                                           return true;
                                       },
                                   .reach = [this] { return registry.reach(); }});
    }

    SimulatedMac mac{{.scenario = Scenario::idle, .fillers = 0}};
    LateRegistry registry{mac};
    SMC smc{registry};
    InProcessNotificationCenter center;
    InMemoryPreferences preferences;
    SimulatedClock clock;
    int guards = 0;
    std::optional<Agent> agent;
};

TEST_F(AgentWithoutController, AnswersAndSaysSoUntilTheControllerLetsItIn) {
    start();
    EXPECT_EQ(status(), "This agent may not open the controller. IOServiceOpen failed: -536870207");
    Bridge(center).send(command::Select{action::Fixed{1}});
    EXPECT_EQ(agent->currentState().selection, Action(action::Fixed{1}));
    agent->tick();
    mac.setService(service::Absent{});
    agent->tick();
    EXPECT_EQ(status(), "The controller is out of reach. AppleSMC not found");
    EXPECT_EQ(guards, 0) << "there is nothing to guard yet";
    mac.setService(service::Present{});
    agent->tick();
    EXPECT_EQ(status(), std::nullopt);
    EXPECT_EQ(guards, 1);
    EXPECT_EQ(smc.fan(0).target, 5777);
}

TEST_F(AgentWithoutController, ClaimsNothingOfTheFansInTheEnd) {
    start();
    agent->tick();
    EXPECT_EQ(agent->end(), std::nullopt);
    EXPECT_EQ(status(), "The agent has ended. It never reached a controller.");
}

TEST_F(AgentWithoutController, KeepsTheFansThatItTookThoughNobodyElseIsLetIn) {
    mac.setService(service::Present{});
    start();
    Bridge(center).send(command::Select{action::Fixed{1}});
    mac.setService(service::Absent{});
    agent->tick();
    EXPECT_EQ(status(), std::nullopt) << "a connection that is open stays so";
    EXPECT_TRUE(smc.fan(0).manual);
    EXPECT_EQ(agent->end(), std::nullopt);
    EXPECT_FALSE(smc.fan(0).manual);
}

} // namespace
} // namespace tervale
