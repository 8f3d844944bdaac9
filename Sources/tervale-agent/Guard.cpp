#include "tervale-agent/Guard.h"

#include "Agent/FanDriver.h"
#include "Base/Terminal.h"
#include "Platform/GuardDuty.h"
#include "Platform/Platform.h"
#include "Platform/RuntimeFolder.h"
#include "Profiles/Clock.h"
#include "SMC/SMC.h"
#include "tervale-agent/AgentLog.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <memory>
#include <string_view>
#include <variant>

namespace tervale {

namespace {

constexpr std::string_view asGuard = "--guard";
constexpr std::string_view onSocket = "--socket";

/// Has the controller described every key that handing back needs, so that it takes no time later.
void prepare(SMC& smc) {
    // Whatever the controller counts.
    constexpr std::int64_t mostFans = 100;
    const std::int64_t count = std::min(smc.fanCount(), mostFans);
    for (std::int64_t fan = 0; fan < count; ++fan)
        smc.exists(smc.modeKey(fan));
    smc.exists("Ftst");
}

int guard(IORegistry& registry) {
    const auto log = [](AgentLog::Level level, std::string_view line) {
        AgentLog::standard(AgentLog::Level::info).write(level, line, SystemClock().steady());
    };
    try {
        SMC smc(registry);
        prepare(smc);
        FanDriver fans(smc);
        const GuardDuty duty{.lock = runtimeFolder() / "guard.lock",
                             .handBack = [&fans] { return !fans.handBack(); }};
        switch (duty.stand()) {
        case GuardDuty::End::handedBack:
            log(AgentLog::Level::warning,
                "The agent was gone. Its guard has handed the fans back.");
            return exitStatus::done;
        case GuardDuty::End::notHandedBack:
            log(AgentLog::Level::error,
                "The agent was gone, and its guard could not hand the fans back.");
            return exitStatus::failure;
        case GuardDuty::End::refused:
            return exitStatus::failure;
        }
        return exitStatus::failure;
    } catch (const std::exception& error) {
        log(AgentLog::Level::error, std::string("No guard: ") + error.what());
        return exitStatus::failure;
    }
}

} // namespace

std::vector<std::string> guardArguments(const MachineChoice& machine) {
    std::vector<std::string> arguments{"tervale-agent", std::string(asGuard)};
    if (const auto* remote = std::get_if<machineChoice::Remote>(&machine)) {
        arguments.emplace_back(onSocket);
        arguments.push_back(remote->socket);
    }
    return arguments;
}

std::optional<int> standGuard(int count, char** arguments) {
    if (count < 2 || arguments[1] != asGuard)
        return std::nullopt;
    std::unique_ptr<IORegistry> registry;
    if (count == 4 && arguments[2] == onSocket)
        registry = makeRemoteRegistry(arguments[3]);
    else if (count == 2)
        registry = makeRegistry();
    return registry ? guard(*registry) : exitStatus::wrongUsage;
}

} // namespace tervale
