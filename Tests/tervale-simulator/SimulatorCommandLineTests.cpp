#include "tervale-simulator/SimulatorCommandLine.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

SimulatorCommandLine::Request parse(const QStringList& arguments) {
    return SimulatorCommandLine::parse(QStringList{"tervale-simulator"} + arguments);
}

SimulatorCommandLine::Run run(const QStringList& arguments) {
    const auto request = parse(arguments);
    const auto* asked = std::get_if<SimulatorCommandLine::Run>(&request);
    EXPECT_NE(asked, nullptr) << arguments.join(' ').toStdString();
    return asked ? *asked : SimulatorCommandLine::Run{};
}

std::string refusal(const QStringList& arguments) {
    const auto request = parse(arguments);
    const auto* refused = std::get_if<SimulatorCommandLine::Refuse>(&request);
    return refused ? refused->line.toStdString() : "";
}

} // namespace

TEST(SimulatorCommandLine, SimulatesABusyMacWithoutArguments) {
    const auto usual = run({});
    EXPECT_EQ(usual.mac.scenario, Scenario::work);
    EXPECT_EQ(usual.mac.fans, 2U);
    EXPECT_EQ(usual.mac.sensors, 150U);
    EXPECT_EQ(usual.speed, 1);
    EXPECT_TRUE(usual.faults.empty());
    EXPECT_FALSE(usual.socket);
}

TEST(SimulatorCommandLine, TakesEveryOption) {
    const auto asked =
        run({"--seed", "18446744073709551615", "--speed=2.5", "--fans", "0", "--sensors", "500",
             "--socket", "/a b/c", "--fault", "TC0P=stuck", "--fault=F0Ac=refused"});
    EXPECT_EQ(asked.mac.seed, 18446744073709551615U);
    EXPECT_EQ(asked.speed, 2.5);
    EXPECT_EQ(asked.mac.fans, 0U);
    EXPECT_EQ(asked.mac.sensors, 500U);
    EXPECT_EQ(asked.socket, "/a b/c");
    ASSERT_EQ(asked.faults.size(), 2U);
    EXPECT_EQ(asked.faults[0].key, "TC0P");
    EXPECT_TRUE(std::holds_alternative<fault::Stuck>(asked.faults[0].fault));
    EXPECT_EQ(asked.faults[1].key, "F0Ac");
    EXPECT_TRUE(std::holds_alternative<fault::Refused>(asked.faults[1].fault));
}

TEST(SimulatorCommandLine, KnowsEveryScenarioByName) {
    for (const char* name : {"idle", "work", "render", "heatwave", "dropout", "host"})
        EXPECT_EQ(nameOf(run({"--scenario", name}).mac.scenario), name);
}

TEST(SimulatorCommandLine, RefusesValuesThatMakeNoMac) {
    EXPECT_EQ(refusal({"--fans", "11"}), "--fans takes a whole number from 0 to 10, not '11'.");
    EXPECT_EQ(refusal({"--sensors", "501"}),
              "--sensors takes a whole number from 0 to 500, not '501'.");
    for (const char* value : {"-1", "+1", "1.5", "", "x", " 1", "18446744073709551616"})
        EXPECT_NE(refusal({"--seed", value}), "") << value;
    for (const char* value : {"0", "-1", "1001", "nan", "inf", "", "x", "1e999"})
        EXPECT_NE(refusal({"--speed", value}), "") << value;
    EXPECT_EQ(refusal({"--scenario", "nap"}),
              "--scenario takes one of idle, work, render, heatwave, dropout, host, not 'nap'.");
    EXPECT_NE(refusal({"--socket", ""}), "");
    EXPECT_EQ(refusal({"--fault", "TC0P=tired"}),
              "--fault takes KEY=FAULT with one of refused, unreadable, dropped-out, stuck, not "
              "'TC0P=tired'.");
    for (const char* value : {"", "TC0P", "=stuck", "TC0=stuck", "TC0PP=stuck", "stuck"})
        EXPECT_NE(refusal({"--fault", value}), "") << value;
}

TEST(SimulatorCommandLine, RefusesWhatItDoesNotKnowAndNamesIt) {
    EXPECT_NE(refusal({"--frobnicate"}).find("frobnicate"), std::string::npos);
    EXPECT_NE(refusal({"document"}).find("document"), std::string::npos);
    EXPECT_NE(refusal({"--seed"}).find("seed"), std::string::npos);
    EXPECT_NE(refusal({"--help", "--frobnicate"}).find("frobnicate"), std::string::npos);
    for (const char* gone : {"--no-agent", "--no-smc"})
        EXPECT_NE(refusal({gone}), "") << gone;
}

TEST(SimulatorCommandLine, ExplainsEveryOption) {
    EXPECT_TRUE(std::holds_alternative<SimulatorCommandLine::ShowHelp>(parse({"--help"})));
    EXPECT_TRUE(std::holds_alternative<SimulatorCommandLine::ShowHelp>(parse({"-h"})));
    EXPECT_TRUE(std::holds_alternative<SimulatorCommandLine::ShowVersion>(parse({"--version"})));
    for (const char* option : {"--seed", "--speed", "--scenario", "--fans", "--sensors", "--fault",
                               "--socket", "--help", "--version", "heatwave"})
        EXPECT_TRUE(SimulatorCommandLine::help().contains(option)) << option;
}
