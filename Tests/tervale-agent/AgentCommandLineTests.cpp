#include "tervale-agent/AgentCommandLine.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

AgentCommandLine::Request parse(const QStringList& arguments) {
    return AgentCommandLine::parse(QStringList{"tervale-agent"} + arguments);
}

AgentCommandLine::Run run(const QStringList& arguments) {
    const auto request = parse(arguments);
    const auto* asked = std::get_if<AgentCommandLine::Run>(&request);
    EXPECT_NE(asked, nullptr) << arguments.join(' ').toStdString();
    return asked ? *asked : AgentCommandLine::Run{};
}

std::string refusal(const QStringList& arguments) {
    const auto request = parse(arguments);
    const auto* refused = std::get_if<AgentCommandLine::Refuse>(&request);
    return refused ? refused->line.toStdString() : "";
}

} // namespace

TEST(AgentCommandLine, OwnsTheFansOfThisMachineWithoutArguments) {
    const auto usual = run({});
    EXPECT_EQ(usual.machine, MachineChoice(machineChoice::System{}));
    EXPECT_FALSE(usual.dryRun);
    EXPECT_EQ(usual.logLevel, AgentLog::Level::info);
}

TEST(AgentCommandLine, TakesEveryOption) {
    EXPECT_EQ(run({"--socket", "/a b/c"}).machine, MachineChoice(machineChoice::Remote{"/a b/c"}));
    EXPECT_EQ(run({"--simulate"}).machine, MachineChoice(machineChoice::Simulated{}));
    EXPECT_TRUE(run({"--dry-run"}).dryRun);
    EXPECT_EQ(run({"--log-level", "error"}).logLevel, AgentLog::Level::error);
    EXPECT_EQ(run({"--log-level=debug"}).logLevel, AgentLog::Level::debug);
}

TEST(AgentCommandLine, RefusesWhatItDoesNotKnowAndNamesIt) {
    EXPECT_NE(refusal({"--frobnicate"}).find("frobnicate"), std::string::npos);
    EXPECT_NE(refusal({"document"}).find("document"), std::string::npos);
    EXPECT_EQ(refusal({"--log-level", "loud"}),
              "--log-level takes one of error, warning, info, debug, not 'loud'.");
    EXPECT_EQ(refusal({"--socket", ""}), "--socket takes a path.");
    EXPECT_EQ(refusal({"--simulate", "--socket", "x"}),
              "--simulate and --socket exclude each other.");
    EXPECT_NE(refusal({"--help", "--frobnicate"}), "");
}

TEST(AgentCommandLine, ExplainsEveryOption) {
    EXPECT_TRUE(std::holds_alternative<AgentCommandLine::ShowHelp>(parse({"--help"})));
    EXPECT_TRUE(std::holds_alternative<AgentCommandLine::ShowHelp>(parse({"-h"})));
    EXPECT_TRUE(std::holds_alternative<AgentCommandLine::ShowVersion>(parse({"--version"})));
    for (const char* option :
         {"--socket", "--simulate", "--dry-run", "--log-level", "--help", "--version"})
        EXPECT_TRUE(AgentCommandLine::help().contains(option)) << option;
}
