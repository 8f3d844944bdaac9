#pragma once

#include "Platform/AgentLock.h"
#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/SocketRegistry.h"
#include "Processes/Programs.h"
#include "Profiles/Bridge.h"
#include "SMC/SMC.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>

namespace tervale {

inline const Action maximum = action::Fixed{1};

/// A session in which a test starts agents: it speaks with them as a window does, and sees the
/// controller as they do.
class AgentSession : public testing::Test {
  protected:
    AgentSession() { PrivateBus::settle(connection); }

    bool manual() { return controller().fan(0).manual; }
    /// Every fan is the firmware's, and locked. False while the controller does not answer.
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
    /// Whether the agent confirms the selection, and the fans turn manual.
    bool selectsMaximum() {
        bridge.send(command::Select{maximum});
        return eventually([this] { return state.selection == maximum && manual(); });
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
    SocketRegistry registry{bus.socket()};
    std::optional<SMC> smc;
};

} // namespace tervale
