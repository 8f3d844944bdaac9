#include "Machine/MachineChoice.h"

#include <gtest/gtest.h>

namespace tervale {
namespace {

std::string faultOf(bool simulate, const std::optional<std::string>& socket) {
    const auto choice = chooseMachine(simulate, socket);
    const auto* fault = std::get_if<MachineChoiceFault>(&choice);
    return fault ? fault->line : std::string();
}

TEST(MachineChoice, IsTheMachineItselfWithoutOptions) {
    EXPECT_EQ(std::get<MachineChoice>(chooseMachine(false, std::nullopt)),
              MachineChoice(machineChoice::System{}));
}

TEST(MachineChoice, IsASimulatedMacOrARemoteOneWhenToldSo) {
    EXPECT_EQ(std::get<MachineChoice>(chooseMachine(true, std::nullopt)),
              MachineChoice(machineChoice::Simulated{}));
    EXPECT_EQ(std::get<MachineChoice>(chooseMachine(false, "/run/mac")),
              MachineChoice(machineChoice::Remote{"/run/mac"}));
}

TEST(MachineChoice, IsRefusedWhenItIsTwoMachinesOrNone) {
    EXPECT_EQ(faultOf(true, "/run/mac"), "--simulate and --socket exclude each other.");
    EXPECT_EQ(faultOf(false, ""), "--socket takes a path.");
}

} // namespace
} // namespace tervale
