#include "JSON/JSON.h"
#include "SMC/DelegatingRegistry.h"
#include "SMC/SMCCodec.h"
#include "SMC/SMCStructure.h"
#include "Support/BreakableCenter.h"
#include "tervalectl/CommandRunner.h"
#include "tervalectl/MachineReading.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

using namespace tervale;

namespace {

/// A sensor comes off as soon as it has been found, which reads it once.
class UnpluggingRegistry final : public DelegatingRegistry {
  public:
    UnpluggingRegistry(SimulatedMac& mac, std::string key)
        : DelegatingRegistry(mac),
          mac(mac),
          key(std::move(key)) {}

    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override {
        const std::size_t reads = mac.calls().reads;
        const Status status =
            DelegatingRegistry::callStruct(connection, selector, request, response);
        const bool isKey = SMCStructure::fromBytes(request).key == SMCCodec::fourCC(key);
        if (isKey && mac.calls().reads > reads)
            mac.inject(key, fault::DroppedOut{});
        return status;
    }

  private:
    SimulatedMac& mac;
    std::string key;
};

/// A machine with a controller and no other service, as a real one.
class OnlyController final : public IORegistry {
  public:
    explicit OnlyController(SimulatedMac& mac) : mac(mac) {}

    std::optional<Service> findService(const std::string& className) override {
        return className == "AppleSMC" ? mac.findService(className) : std::nullopt;
    }
    Status open(Service service, std::uint32_t type, Connection& connection) override {
        return mac.open(service, type, connection);
    }
    void release(Service service) override { mac.release(service); }
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override {
        return mac.callStruct(connection, selector, request, response);
    }
    void close(Connection connection) override { mac.close(connection); }

  private:
    SimulatedMac& mac;
};

/// The controller is gone from the first reading of a fan on, until somebody looks for it again.
class VanishingRegistry final : public DelegatingRegistry {
  public:
    using DelegatingRegistry::DelegatingRegistry;

    std::optional<Service> findService(const std::string& className) override {
        if (className != "AppleSMC")
            return std::nullopt;
        ++openings;
        return DelegatingRegistry::findService(className);
    }
    Status callStruct(Connection connection, std::uint32_t selector, const Structure& request,
                      Structure& response) override {
        gone = gone || SMCStructure::fromBytes(request).key == SMCCodec::fourCC("F0Ac");
        return gone && openings < 2
                   ? 1
                   : DelegatingRegistry::callStruct(connection, selector, request, response);
    }

  private:
    int openings = 0;
    bool gone = false;
};

class MachineCommands : public testing::Test, protected CommandRunner {
  protected:
    std::size_t lines() const { return static_cast<std::size_t>(std::ranges::count(output, '\n')); }
    /// Has the agent tell another state while the first reading is taken. It is heard only once the
    /// command waits again, so before the second one.
    void tellDuringFirstReading(const BridgeState& state) {
        registry = &onlyController;
        atLoad = [this, state, loads = 0]() mutable {
            if (++loads == 2)
                Bridge(center).publish(state);
        };
    }

    OnlyController onlyController{mac};
};

} // namespace

TEST_F(MachineCommands, ShowTheFans) {
    ASSERT_EQ(run({"fans"}), ExitStatus::done);
    EXPECT_EQ(lines(), 3U);
    EXPECT_TRUE(output.starts_with("FAN ")) << output;
    EXPECT_NE(output.find("\nFan 1 "), std::string::npos);
    EXPECT_NE(output.find("\nFan 2 "), std::string::npos);
    EXPECT_NE(output.find(" rpm  automatic\n"), std::string::npos);
}

TEST_F(MachineCommands, ShowTheFansAsJSON) {
    SMC smc(mac);
    smc.setSpeed(1, smc.fan(1).max);
    ASSERT_EQ(run({"fans", "--json"}), ExitStatus::done);
    EXPECT_TRUE(output.starts_with(R"([{"index":0,"actual":)")) << output;
    EXPECT_TRUE(output.ends_with("\"manual\":true,\"modeKey\":\"" + smc.modeKey(1) + "\"}]\n"))
        << output;
}

TEST_F(MachineCommands, ShowSensorsOfAGroupAndOfAName) {
    ASSERT_EQ(run({"sensors"}), ExitStatus::done);
    EXPECT_EQ(lines(), 13U);
    ASSERT_EQ(run({"sensors", "--group", "cpu"}), ExitStatus::done);
    const std::size_t cpu = lines();
    EXPECT_GT(cpu, 1U);
    EXPECT_LT(cpu, 13U);
    EXPECT_EQ(output.find("GPU"), std::string::npos);
    ASSERT_EQ(run({"sensors", "cPu t"}), ExitStatus::done);
    EXPECT_EQ(lines(), cpu);
    ASSERT_EQ(run({"sensors", "nowhere", "--json"}), ExitStatus::done);
    EXPECT_EQ(output, "[]\n");
}

TEST_F(MachineCommands, LeaveOutTheTemperatureOfASensorThatComesOff) {
    const std::string key = SMC(mac).temperatureSensors().front().key;
    UnpluggingRegistry unplugging(mac, key);
    registry = &unplugging;
    ASSERT_EQ(run({"sensors", "--json", QString::fromStdString(key)}), ExitStatus::done);
    EXPECT_NE(output.find("\"key\":\"" + key + "\""), std::string::npos) << output;
    EXPECT_EQ(output.find("celsius"), std::string::npos);
    mac.heal(key);
    ASSERT_EQ(run({"sensors", QString::fromStdString(key)}), ExitStatus::done);
    EXPECT_TRUE(output.ends_with("–\n")) << output;
}

TEST_F(MachineCommands, FailInOneLineWithoutAController) {
    mac.setService(service::Absent{});
    for (const char* command : {"fans", "sensors", "monitor"}) {
        EXPECT_EQ(run({command}), ExitStatus::refused);
        EXPECT_EQ(output, "");
        EXPECT_TRUE(errors.starts_with("tervalectl: ")) << errors;
        EXPECT_EQ(std::ranges::count(errors, '\n'), 1);
    }
}

TEST_F(MachineCommands, MonitorWritesLinesThatReplayReads) {
    ASSERT_EQ(run({"monitor", "--json", "--count", "2", "--interval", "0.01"}), ExitStatus::done);
    ASSERT_EQ(lines(), 2U);
    const auto decoded = decode<MachineReading>(output.substr(0, output.find('\n')));
    const MachineReading& tick = std::get<MachineReading>(decoded);
    EXPECT_EQ(tick.time, 12 * 3600.0 + Date::referenceSinceUnixEpoch);
    EXPECT_EQ(tick.minute, 720);
    EXPECT_EQ(tick.load, mac.load());
    EXPECT_TRUE(tick.temperatures.at(TemperatureInput::hottestOf(SensorGroup::cpu)));
    EXPECT_NE(output.find(R"("fans":[{"index":0,)"), std::string::npos);
}

TEST_F(MachineCommands, MonitorPrintsAColumnForWhatIsThere) {
    ASSERT_EQ(run({"monitor", "--count", "1"}), ExitStatus::done);
    EXPECT_EQ(lines(), 2U);
    EXPECT_NE(output.find("CPU average"), std::string::npos);
    EXPECT_NE(output.find("Fan 2"), std::string::npos);
    EXPECT_NE(output.find("\n12:00:00 "), std::string::npos) << output;
    ASSERT_EQ(run({"monitor", "--count", "0"}), ExitStatus::done);
    EXPECT_EQ(output, "");
}

TEST_F(MachineCommands, MonitorGoesOnWhereTheFansFail) {
    mac.inject("F0Ac", fault::KernelError{1});
    ASSERT_EQ(run({"monitor", "--json", "--count", "1"}), ExitStatus::done);
    EXPECT_TRUE(output.ends_with("\"fans\":[]}\n")) << output;
}

TEST_F(MachineCommands, MonitorFindsTheControllerAgain) {
    VanishingRegistry vanishing(mac);
    registry = &vanishing;
    ASSERT_EQ(run({"monitor", "--json", "--count", "3", "--interval", "0.01"}), ExitStatus::done);
    std::vector<bool> hasFans;
    std::istringstream stream(output);
    for (std::string line; std::getline(stream, line);)
        hasFans.push_back(!line.ends_with("\"fans\":[]}"));
    EXPECT_EQ(hasFans, (std::vector<bool>{false, true, true})) << output;
}

TEST_F(MachineCommands, MonitorRecordsTheLoadOfTheMachineThatItWatches) {
    hostLoad = 99.5;
    ASSERT_EQ(run({"monitor", "--json", "--count", "1"}), ExitStatus::done);
    EXPECT_EQ(std::get<MachineReading>(decode<MachineReading>(output)).load, mac.load());
    // One that is no simulation is this machine.
    registry = &onlyController;
    ASSERT_EQ(run({"monitor", "--json", "--count", "1"}), ExitStatus::done);
    EXPECT_EQ(std::get<MachineReading>(decode<MachineReading>(output)).load, hostLoad);
    EXPECT_EQ(mac.openConnections(), 0U);
    EXPECT_EQ(mac.heldServices(), 0U);
}

TEST_F(MachineCommands, MonitorTellsWhatTheAgentSays) {
    ASSERT_EQ(run({"monitor", "--json", "--count", "1"}), ExitStatus::done);
    EXPECT_EQ(output.find("selection"), std::string::npos) << "nobody has said anything";
    ScriptedAgent agent(center);
    agent.state.selection = action::Fixed{0.5};
    agent.state.timerAction = action::Fixed{1};
    agent.state.timerEnds = Date{700000000};
    agent.state.status = "Too hot: Max until it is cooler.";
    ASSERT_EQ(run({"monitor", "--json", "--count", "1"}), ExitStatus::done);
    EXPECT_NE(output.find(R"("selection":{"fixed":{"_0":0.5}},"timerAction":{"fixed":{"_0":1}},)"
                          R"("timerEnds":700000000,"timerEndsAt":"2023-03-08T20:26:40Z",)"
                          R"("status":"Too hot: Max until it is cooler.","safety":true})"),
              std::string::npos)
        << output;
    EXPECT_EQ(output.find("launchAtLogin"), std::string::npos) << output;
    // As before, it can be replayed.
    EXPECT_TRUE(std::holds_alternative<MachineReading>(decode<MachineReading>(output)));
}

TEST_F(MachineCommands, MonitorAsksTheAgentAgainOnANewSessionBus) {
    BreakableCenter breakable;
    ScriptedAgent agent(breakable);
    otherCenter = &breakable;
    registry = &onlyController;
    atLoad = [&, loads = 0]() mutable {
        // Once before the first line, and once for each.
        if (++loads != 3)
            return;
        breakable.change(Channel::gone);
        agent.state.status = "Too hot: Max until it is cooler.";
        breakable.change(Channel::back);
    };
    ASSERT_EQ(run({"monitor", "--json", "--count", "2", "--interval", "0.1"}), ExitStatus::done);
    const auto end = output.find('\n');
    EXPECT_GT(output.find("Too hot"), end) << output;
    EXPECT_NE(output.find("Too hot"), std::string::npos) << output;
}

TEST_F(MachineCommands, MonitorShowsWhatTheSafetyLatchDoes) {
    ScriptedAgent agent(center);
    agent.state.status = "Too hot: Max until it is cooler.";
    tellDuringFirstReading(BridgeState{});
    ASSERT_EQ(run({"monitor", "--count", "2", "--interval", "0.1"}), ExitStatus::done);
    const auto shown = QString::fromStdString(output).split('\n');
    ASSERT_EQ(shown.size(), 4) << output;
    EXPECT_TRUE(shown[0].endsWith("SAFETY")) << output;
    EXPECT_TRUE(shown[1].endsWith("engaged")) << output;
    EXPECT_FALSE(shown[2].contains("engaged")) << output;
}

TEST_F(MachineCommands, MonitorTellsThatATimerHasEnded) {
    ScriptedAgent agent(center);
    agent.state.timerAction = action::Fixed{1};
    agent.state.timerEnds = Date{700000000};
    tellDuringFirstReading(BridgeState{});
    ASSERT_EQ(run({"monitor", "--json", "--count", "2", "--interval", "0.1"}), ExitStatus::done);
    const auto end = output.find('\n');
    EXPECT_LT(output.find("timerAction"), end) << output;
    EXPECT_EQ(output.find("timerAction", end), std::string::npos) << output;
    EXPECT_NE(output.find(R"("safety":false)", end), std::string::npos) << output;
}

TEST(MachineReading, SurvivesTheJourneyThroughALine) {
    MachineReading reading{12.5,
                           8,
                           30,
                           {{TemperatureInput::averageOf(SensorGroup::ssd), 40.25}},
                           {{1, 2000, 2100, 1200, 5000, true}}};
    EXPECT_EQ(std::get<MachineReading>(decode<MachineReading>(encode(reading))), reading);
}

TEST(MachineReading, LeavesOutWhatIsNotKnown) {
    MachineReading tick;
    tick.fans = {{.actual = std::nan("")}};
    EXPECT_EQ(encode(tick), R"({"time":0,"minute":0,"temperatures":{},)"
                            R"("fans":[{"index":0,"target":0,"min":0,"max":0,"manual":false}]})");
}

TEST(MachineReading, TellsTheTimeOfAnyTick) {
    EXPECT_EQ((MachineReading{90, 485}.timeOfDay()), "08:05:30");
    EXPECT_EQ((MachineReading{-1, 0}.timeOfDay()), "00:00:59");
    EXPECT_EQ((MachineReading{1e300, 1439}.timeOfDay()).size(), 8U);
}
