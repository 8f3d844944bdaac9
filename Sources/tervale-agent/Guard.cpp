#include "tervale-agent/Guard.h"

#include "Agent/FanDriver.h"
#include "Agent/SafetySensors.h"
#include "Base/Terminal.h"
#include "Platform/GuardDuty.h"
#include "Platform/GuardLock.h"
#include "Platform/Platform.h"
#include "Profiles/Clock.h"
#include "Profiles/SafetyLatch.h"
#include "SMC/SMC.h"
#include "tervale-agent/AgentLog.h"

#include <exception>
#include <memory>
#include <string_view>
#include <variant>

namespace tervale {

namespace {

constexpr std::string_view asGuard = "--guard";
constexpr std::string_view onSocket = "--socket";
constexpr std::string_view atLevel = "--log-level";

int guard(IORegistry& registry, AgentLog::Level most) {
    AgentLog messages = AgentLog::standard(most);
    const auto log = [&messages](AgentLog::Level level, std::string_view line) {
        messages.write(level, line, SystemClock().steady());
    };
    try {
        SMC smc(registry);
        FanDriver fans(smc);
        fans.prepare();
        SafetySensors sensors(smc);
        const auto isCool = [&] {
            const std::optional<double> hottest = sensors.hottest();
            log(AgentLog::Level::debug, "The agent is silent, the hottest sensor " +
                                            (hottest ? "at " + std::to_string(*hottest) + " °C."
                                                     : std::string("cannot be read.")));
            // Not to know is not to know that it is cool.
            return hottest && *hottest < SafetyLatch::on;
        };
        const GuardDuty duty{.lock = guardLock::defaultPath(),
                             .handBack = [&fans] { return !fans.handBack(); },
                             .isCool = isCool};
        log(AgentLog::Level::debug, "The guard goes on duty.");
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

std::vector<std::string> guardArguments(const MachineChoice& machine, AgentLog::Level level) {
    std::vector<std::string> arguments{"tervale-agent", std::string(asGuard), std::string(atLevel),
                                       std::string(AgentLog::nameOf(level))};
    if (const auto* remote = std::get_if<machineChoice::Remote>(&machine)) {
        arguments.emplace_back(onSocket);
        arguments.push_back(remote->socket);
    }
    return arguments;
}

std::optional<int> standGuard(int count, char** arguments) {
    if (count < 2 || arguments[1] != asGuard)
        return std::nullopt;
    auto level = std::optional(AgentLog::Level::info);
    std::optional<std::string> socket;
    for (int i = 2; i < count; i += 2) {
        const std::string value = i + 1 < count ? arguments[i + 1] : "";
        if (arguments[i] == onSocket && !value.empty())
            socket = value;
        else if (arguments[i] == atLevel && level)
            level = AgentLog::levelNamed(value);
        else
            return exitStatus::wrongUsage;
    }
    const auto registry = socket ? makeRemoteRegistry(*socket) : makeRegistry();
    return registry && level ? guard(*registry, *level) : exitStatus::wrongUsage;
}

} // namespace tervale
