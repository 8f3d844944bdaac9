#include "Machine/Machine.h"
#include "SMC/SMC.h"
#include "tervale-agent/AgentMachine.h"

#include <gtest/gtest.h>

using namespace tervale;

using Writing = AgentMachine::Writing;

TEST(AgentMachine, LetsTimePassOnASimulatedMacWithoutAnAgentOfItsOwn) {
    AgentMachine machine(machineChoice::Simulated{}, Writing::allowed);
    EXPECT_FALSE(machine.outlivesProcess());
    SMC smc(machine.registry());
    smc.setSpeed(0, smc.fan(0).max);
    const double before = smc.fan(0).actual;
    machine.advance(5);
    EXPECT_GT(smc.fan(0).actual, before + 500);
    EXPECT_TRUE(smc.fan(0).manual);
    EXPECT_TRUE(machine.load()().has_value());
}

TEST(AgentMachine, WritesNothingInADryRun) {
    AgentMachine machine(machineChoice::Simulated{}, Writing::pretended);
    SMC smc(machine.registry());
    EXPECT_NO_THROW(smc.setSpeed(0, smc.fan(0).max));
    EXPECT_FALSE(smc.fan(0).manual);
}

TEST(AgentMachine, OutlivesTheProcessWhereItIsAnother) {
#ifdef __APPLE__
    EXPECT_THROW(AgentMachine(machineChoice::Remote{"/absent"}, Writing::allowed), NoSuchMachine);
#else
    AgentMachine machine(machineChoice::Remote{"/absent"}, Writing::allowed);
    EXPECT_TRUE(machine.outlivesProcess());
    EXPECT_THROW(SMC{machine.registry()}, SMCError);
#endif
}
