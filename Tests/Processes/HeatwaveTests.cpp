#include "Processes/AgentSession.h"
#include "Profiles/Controller.h"
#include "Support/SilentSocket.h"

#include <QElapsedTimer>

#include <algorithm>
#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <vector>

using namespace tervale;

namespace {

/// A Mac that grows too hot at the lowest speed, and an agent that is told to run the fans at it.
/// Whatever then happens, the fans are at full speed or with the firmware while it is too hot; an
/// agent has a tick to notice. The Mac moves on five times a second, and is looked at far more
/// often.
class HeatwaveTest : public AgentSession {
  protected:
    HeatwaveTest() {
        startMac();
        startAgent();
        const Action slowest = action::Fixed{0};
        EXPECT_TRUE(obeys(command::Select{slowest}, [&] { return state.selection == slowest; }));
    }

    void startMac(const QString& speed = "15") {
        mac = std::make_unique<SimulatorProgram>(
            bus, QStringList{"--scenario", "heatwave", "--speed", speed, "--sensors", "12"});
    }
    void startAgent() { agent = std::make_unique<AgentProcess>(bus); }
    void kill(ChildProcess& process, int signal = SIGKILL) {
        // A crash leaves no file behind.
        const rlimit none{0, 0};
        ASSERT_EQ(::prlimit(static_cast<pid_t>(process.id()), RLIMIT_CORE, &none, nullptr), 0);
        process.send(signal);
        ASSERT_TRUE(process.ends());
    }
    void killGuard() const {
        const auto process = guard();
        ASSERT_TRUE(process);
        ::kill(static_cast<pid_t>(*process), SIGKILL);
    }

    /// Whether a sensor of the CPU or the GPU has so many degrees.
    bool isAsHotAs(double celsius) {
        if (sensors.empty())
            sensors = controller().temperatureSensors();
        return std::ranges::any_of(sensors, [&](const TemperatureSensor& sensor) {
            return (sensor.group == SensorGroup::cpu || sensor.group == SensorGroup::gpu) &&
                   controller().temperature(sensor).value_or(0) >= celsius;
        });
    }
    bool isTooHot() { return isAsHotAs(SafetyLatch::on); }
    bool isSafe() {
        const auto fans = controller().fans();
        return std::ranges::all_of(
            fans, [](const Fan& fan) { return !fan.manual || fan.target == fan.max; });
    }
    /// Looks at the Mac until the condition holds. Counts how long it is too hot at a stretch while
    /// the fans are slow.
    bool watchUntil(const std::function<bool()>& condition) {
        QElapsedTimer danger;
        return eventually([&] {
            try {
                const bool hot = isTooHot();
                wasTooHot = wasTooHot || hot;
                if (!hot || isSafe())
                    danger.invalidate();
                else if (!danger.isValid())
                    danger.start();
                else
                    longestDanger = std::max(longestDanger, danger.elapsed());
            } catch (const SMCError&) {
                danger.invalidate();
            }
            return condition();
        });
    }
    void watchFor(qint64 milliseconds) {
        QElapsedTimer watched;
        watched.start();
        watchUntil([&] { return watched.elapsed() >= milliseconds; });
    }
    /// Until it grows hot, some seconds before it is too hot, while the fans run as slowly as they
    /// can.
    void waitForTheHeat() {
        ASSERT_TRUE(watchUntil([this] { return manual() && isAsHotAs(SafetyLatch::on - 20); }));
        ASSERT_FALSE(isSafe()) << "the fans are slow";
        ASSERT_FALSE(wasTooHot);
    }
    /// Until the agent has the fans run at full speed.
    bool watchUntilTheLatchEngages() {
        wasTooHot = false;
        return watchUntil([this] { return wasTooHot && manual() && isSafe(); });
    }

    std::unique_ptr<SimulatorProgram> mac;
    std::unique_ptr<AgentProcess> agent;
    std::vector<TemperatureSensor> sensors;
    bool wasTooHot = false;
    /// In milliseconds. A tick, and what a busy machine adds to it.
    qint64 longestDanger = 0;
    static constexpr qint64 tick = 2000;
};

} // namespace

class HeatwaveAndASignalTest : public HeatwaveTest, public testing::WithParamInterface<int> {};

INSTANTIATE_TEST_SUITE_P(Crashes, HeatwaveAndASignalTest,
                         testing::Values(SIGKILL, SIGSEGV, SIGABRT));

TEST_F(HeatwaveTest, IsMetWithFullSpeedWhateverIsSelected) {
    waitForTheHeat();
    EXPECT_TRUE(watchUntilTheLatchEngages());
    watchFor(3000);
    EXPECT_LT(longestDanger, tick);
}

TEST_P(HeatwaveAndASignalTest, IsLeftToTheFirmwareWhenTheAgentIsGone) {
    waitForTheHeat();
    kill(*agent, GetParam());
    EXPECT_TRUE(watchUntil([this] { return automatic(); }));
    watchFor(1000);
    EXPECT_TRUE(automatic());
    startAgent();
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_LT(longestDanger, tick);
}

TEST_F(HeatwaveTest, IsLeftToTheFirmwareWhenTheAgentIsKilledAtFullSpeed) {
    ASSERT_TRUE(watchUntilTheLatchEngages());
    kill(*agent);
    EXPECT_TRUE(watchUntil([this] { return automatic(); }));
    watchFor(1000);
    startAgent();
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_LT(longestDanger, tick);
}

TEST_F(HeatwaveTest, IsMetByAnAgentWhoseGuardIsKilled) {
    waitForTheHeat();
    const auto before = guard();
    killGuard();
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_TRUE(watchUntil([&] { return guard() && guard() != before; }));
    killGuard();
    watchFor(3000);
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_LT(longestDanger, tick);
}

TEST_F(HeatwaveTest, IsMetByAnAgentWhoseGuardIsStopped) {
    waitForTheHeat();
    const auto stopped = guard();
    ASSERT_TRUE(stopped);
    ASSERT_EQ(::kill(static_cast<pid_t>(*stopped), SIGSTOP), 0);
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_TRUE(watchUntil([&] { return guard() && guard() != stopped; }));
    EXPECT_LT(longestDanger, tick);
}

TEST_F(HeatwaveTest, IsMetWithFullSpeedWhileTheAgentIsStoppedAndThenLeftToTheFirmware) {
    ASSERT_TRUE(watchUntilTheLatchEngages());
    agent->send(SIGSTOP);
    ASSERT_TRUE(watchUntil([this] { return automatic(); }));
    watchFor(1000);
    EXPECT_LT(longestDanger, tick);
}

TEST_F(HeatwaveTest, IsMetWithFullSpeedThatStaysWhenAgentAndGuardAreKilledAtOnce) {
    ASSERT_TRUE(watchUntilTheLatchEngages());
    // So that it starts no other guard.
    agent->send(SIGSTOP);
    killGuard();
    kill(*agent);
    watchFor(2000);
    startAgent();
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_LT(longestDanger, tick);
}

TEST_F(HeatwaveTest, IsMetByNobodyWhenAgentAndGuardAreKilledAtOnceUntilAnAgentIsStarted) {
    waitForTheHeat();
    // So that it starts no other guard.
    agent->send(SIGSTOP);
    killGuard();
    kill(*agent);
    EXPECT_TRUE(watchUntil([this] { return wasTooHot; }));
    EXPECT_TRUE(manual()) << "there is nobody who could hand them back";
    longestDanger = 0;
    startAgent();
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_LT(longestDanger, tick) << "its first tick sets the fans right";
}

TEST_F(HeatwaveTest, IsMetAgainOnceTheControllersSocketIsBack) {
    waitForTheHeat();
    mac.reset();
    watchFor(1000);
    startMac();
    EXPECT_TRUE(watchUntilTheLatchEngages());
    EXPECT_LT(longestDanger, tick);
}

TEST_F(HeatwaveTest, IsMetByAnAgentWhoseBusIsStopped) {
    waitForTheHeat();
    bus.send(SIGSTOP);
    EXPECT_TRUE(watchUntilTheLatchEngages());
    watchFor(2000);
    EXPECT_LT(longestDanger, tick);
    QElapsedTimer asked;
    asked.start();
    agent->send(SIGTERM);
    ASSERT_TRUE(agent->ends());
    EXPECT_LT(asked.elapsed(), 2000);
    EXPECT_EQ(agent->status(), 0);
    EXPECT_TRUE(automatic());
    bus.send(SIGCONT);
}

TEST_F(HeatwaveTest, IsMetByAnAgentWhereNobodyAnswersInPlaceOfItsBus) {
    waitForTheHeat();
    const auto before = guard();
    bus.stop();
    const SilentSocket silent(bus.busSocket());
    EXPECT_TRUE(watchUntilTheLatchEngages());
    // Long enough for an agent that waited for the bus to count as one that hangs.
    watchFor(12'000);
    EXPECT_LT(longestDanger, tick);
    EXPECT_TRUE(agent->runs());
    EXPECT_EQ(guard(), before);
    QElapsedTimer asked;
    asked.start();
    agent->send(SIGTERM);
    ASSERT_TRUE(agent->ends());
    EXPECT_LT(asked.elapsed(), 2000);
    EXPECT_EQ(agent->status(), 0);
    EXPECT_TRUE(automatic());
}

TEST_F(HeatwaveTest, IsLeftToTheFirmwareWhenTheAgentIsStoppedBeforeItIsTooHot) {
    // Late enough that it is too hot long before the agent counts as gone.
    ASSERT_TRUE(eventually([this] { return manual() && isAsHotAs(SafetyLatch::on - 12); }));
    ASSERT_FALSE(isSafe()) << "the fans are slow";
    QElapsedTimer stopped;
    stopped.start();
    agent->send(SIGSTOP);
    ASSERT_TRUE(watchUntil([this] { return wasTooHot && automatic(); }));
    EXPECT_LT(longestDanger, tick);
    RecordProperty("millisecondsUntilAutomatic", static_cast<int>(stopped.elapsed()));
    EXPECT_LT(stopped.elapsed(), 9000) << "nobody waited until the agent counted as gone";
    watchFor(1000);
    EXPECT_LT(longestDanger, tick);
}
