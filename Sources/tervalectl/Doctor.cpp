#include "tervalectl/Doctor.h"

#include "JSON/JSON.h"
#include "Profiles/ProfileStore.h"
#include "Profiles/UUID.h"
#include "SMC/Believable.h"
#include "SMC/SMC.h"
#include "tervalectl/AgentConnection.h"
#include "tervalectl/Formatting.h"
#include "tervalectl/StatusJudgement.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tervale {

namespace {

struct Finding {
    std::string check;
    bool isGood = false;
    std::string details;
};

using Findings = std::vector<Finding>;

void write(JSONWriter& json, const Finding& finding) {
    json.object([&] {
        json.member("check", finding.check);
        json.member("ok", finding.isGood);
        json.member("details", finding.details);
    });
}

/// What the look comes to; the controller's error if it throws one.
Finding look(std::string check, const std::function<Finding()>& inspect) {
    Finding finding;
    try {
        finding = inspect();
    } catch (const SMCError& error) {
        finding = {{}, false, error.description};
    }
    finding.check = std::move(check);
    return finding;
}

Finding inspectFans(SMC& smc) {
    const std::int64_t count = believable::fanCount(smc);
    if (count == 0)
        return {{}, true, "none: this machine has nothing to drive"};
    std::string ranges;
    std::string faults;
    for (std::int64_t index = 0; index < count; ++index) {
        const Fan fan = smc.fan(index);
        ranges += (ranges.empty() ? ": " : ", ") + rangeText(fan);
        if (!believable::hasLimits(fan))
            faults += "; fan " + std::to_string(index) + " has no limits";
    }
    return {{}, faults.empty(), std::to_string(count) + ranges + faults};
}

/// Without a processor's temperature nothing would notice that the machine is too hot.
Finding inspectSensors(SMC& smc) {
    // What is no count of keys would end this program.
    believable::keyCount(smc);
    std::array<std::size_t, SensorGroup::allCases.size()> counts{};
    for (const TemperatureSensor& sensor : smc.temperatureSensors())
        ++counts.at(sensor.group);
    std::string text;
    for (const SensorGroup group : SensorGroup::allCases)
        text += (text.empty() ? "" : ", ") + std::string(group.title()) + ' ' +
                std::to_string(counts.at(group));
    return {{}, counts[SensorGroup::cpu] + counts[SensorGroup::gpu] > 0, text};
}

Finding inspectKeys(SMC& smc) {
    const std::int64_t count = believable::keyCount(smc);
    return {{}, count > 0, std::to_string(count)};
}

void inspectController(const Context& context, Findings& findings) {
    const Machine machine = context.makeMachine();
    std::optional<SMC> smc;
    findings.push_back(look("Controller", [&]() -> Finding {
        smc.emplace(*machine.registry);
        return {{}, true, "answers"};
    }));
    const std::pair<const char*, Finding (*)(SMC&)> checks[]{
        {"Keys", inspectKeys}, {"Fans", inspectFans}, {"Sensors", inspectSensors}};
    for (const auto& [check, inspect] : checks)
        findings.push_back(look(check, [&, inspect = inspect]() -> Finding {
            return smc ? inspect(*smc) : Finding{{}, false, "not known without a controller"};
        }));
}

std::string textOf(const RunningAgent& agent) {
    if (!agent.holder.process)
        return "a process that has not told its number yet";
    const std::string text =
        "process " + std::to_string(*agent.holder.process) + " since " + agent.holder.started;
    if (!agent.holder.guard)
        return text + ", no guard";
    return text + ", guard " + std::to_string(*agent.holder.guard) +
           (agent.isGuarded ? "" : " is gone");
}

Finding inspectAgent(const Context& context) {
    const auto process = runningAgent(context.session);
    // One that has not taken a fan yet needs no guard.
    const bool lacksGuard = process && process->holder.guard && !process->isGuarded;
    const std::string text = process ? textOf(*process) : "";
    const auto joined = [&](const std::string& more) {
        return text.empty() || more.empty() ? text + more : text + ": " + more;
    };
    try {
        const BridgeState state = AgentConnection(context).state();
        return {"Agent", tellsThatAllIsWell(state) && !lacksGuard,
                joined(state.status.value_or(""))};
    } catch (const Failure& failure) {
        return {"Agent", false, joined(failure.line)};
    }
}

/// Why what is stored under the key is of no use to the agent; nothing if it is, or if nothing is
/// stored.
template <class Value>
std::optional<std::string> fault(const Preferences& preferences, const char* key) {
    if (!preferences.contains(key))
        return std::nullopt;
    const auto data = preferences.data(key);
    if (!data)
        return std::string(key) + " cannot be read";
    const auto value = decode<Value>({reinterpret_cast<const char*>(data->data()), data->size()});
    if (const auto* error = std::get_if<DecodingError>(&value))
        return std::string(key) + " cannot be read: " + error->text();
    return std::nullopt;
}

/// Stores as much as the agent may have to, beside what it has stored, and reads it back. Why that
/// does not work; nothing if it does. The key is nobody else's, and is removed.
std::optional<std::string> tryToStore(Preferences& preferences) {
    constexpr std::size_t least = 4096;
    const std::string key = "doctor-" + UUID::random().text();
    const std::size_t stored =
        preferences.data(ProfileStore::profilesKey).value_or(Preferences::Data()).size();
    Preferences::Data trial(std::max(stored, least));
    for (std::size_t i = 0; i < trial.size(); ++i)
        trial[i] = static_cast<std::byte>(i * 31 % 251);
    auto reason = preferences.setData(key, trial);
    if (!reason && preferences.data(key) != trial)
        reason = "it does not read back";
    preferences.remove(key);
    return reason;
}

Finding inspectPreferences(const Context& context) {
    const auto preferences = context.session.makePreferences();
    const auto profiles = fault<std::vector<Profile>>(*preferences, ProfileStore::profilesKey);
    const auto selection = fault<Action>(*preferences, ProfileStore::selectionKey);
    const auto reason = tryToStore(*preferences);
    std::string text;
    for (const auto& each :
         {profiles, selection,
          reason ? std::optional("nothing can be stored: " + *reason) : std::nullopt}) {
        if (each)
            text += (text.empty() ? "" : "; ") + *each;
    }
    if (!text.empty())
        return {"Preferences", false, text};
    const std::size_t count = ProfileStore(*preferences).profiles().size();
    return {"Preferences", true, "readable, writable; profiles: " + std::to_string(count)};
}

} // namespace

ExitStatus perform(const ctl::Doctor&, Context& context) {
    Findings findings;
    inspectController(context, findings);
    const bool hasChannel = context.session.hasChannel();
    findings.push_back({"Session bus", hasChannel, hasChannel ? "reachable" : "not reachable"});
    findings.push_back(inspectAgent(context));
    findings.push_back(inspectPreferences(context));
    if (context.json) {
        JSONWriter json;
        json.array(findings);
        printJSON(context.out, json.text);
    } else {
        Table table({{"CHECK"}, {"RESULT"}, {"DETAILS"}});
        for (const Finding& finding : findings)
            table.add({finding.check, finding.isGood ? "good" : "wrong", finding.details});
        table.print(context.out);
    }
    return std::ranges::all_of(findings, &Finding::isGood) ? ExitStatus::done : ExitStatus::refused;
}

} // namespace tervale
