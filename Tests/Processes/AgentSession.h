#pragma once

#include "Platform/AgentLock.h"
#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/SocketRegistry.h"
#include "Processes/Programs.h"
#include "Profiles/Bridge.h"
#include "SMC/SMC.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>

namespace tervale {

inline const Action maximum = action::Fixed{1};

/// A session in which a test starts agents: it speaks with them as a window does, and sees the
/// controller as they do.
class AgentSession : public testing::Test {
  protected:
    AgentSession() { PrivateBus::settle(connection); }

    static void wait(std::chrono::milliseconds time) {
        QElapsedTimer waited;
        waited.start();
        eventually([&] { return waited.elapsed() >= time.count(); });
    }
    /// This and the next are false while the controller does not answer.
    bool manual() {
        try {
            return controller().fan(0).manual;
        } catch (const SMCError&) {
            return false;
        }
    }
    /// Every fan is the firmware's, and locked.
    bool automatic() {
        try {
            for (const Fan& fan : controller().fans())
                if (fan.manual)
                    return false;
            return controller().read("Ftst") == 0;
        } catch (const SMCError&) {
            return false;
        }
    }
    /// Whether the condition comes to hold after the command. An agent that does not hear it yet is
    /// told again.
    bool obeys(const BridgeCommand& command, const std::function<bool()>& condition) {
        QElapsedTimer sinceSent;
        return eventually([&] {
            if (!sinceSent.isValid() || sinceSent.hasExpired(2000)) {
                bridge.send(command);
                sinceSent.start();
            }
            return condition();
        });
    }
    /// Whether the agent confirms the selection, and the fans turn manual.
    bool selectsMaximum() {
        return obeys(command::Select{maximum},
                     [this] { return state.selection == maximum && manual(); });
    }
    std::filesystem::path lock() const { return bus.runtimeFolder() / "tervale" / "agent.lock"; }
    /// Of the agent that runs.
    std::optional<std::int64_t> guard() const {
        const auto holder = AgentLock::holder(lock());
        return holder ? holder->guard : std::nullopt;
    }
    SMC& controller() {
        if (!smc)
            smc.emplace(registry);
        return *smc;
    }

    PrivateBus bus;
    QDBusConnection connection = bus.connect();
    DBusNotificationCenter center{connection};
    Bridge bridge{center};
    BridgeState state;
    int states = 0;
    ObserverToken observer = bridge.onState([this](const BridgeState& published) {
        state = published;
        ++states;
    });
    SocketRegistry registry{bus.socket(), patienceWithMac};
    std::optional<SMC> smc;
};

} // namespace tervale
