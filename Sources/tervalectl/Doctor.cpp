#include "tervalectl/Doctor.h"

#include "JSON/JSON.h"
#include "Profiles/ProfileStore.h"
#include "SMC/SMC.h"
#include "tervalectl/AgentConnection.h"
#include "tervalectl/Formatting.h"

#include <algorithm>
#include <array>
#include <string>
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
    const std::vector<Fan> fans = smc.fans();
    if (fans.empty())
        return {{}, true, "none: this machine has nothing to drive"};
    std::string ranges;
    for (const Fan& fan : fans)
        ranges += (ranges.empty() ? ": " : ", ") + rangeText(fan);
    return {{}, true, std::to_string(fans.size()) + ranges};
}

/// Without a processor's temperature nothing would notice that the machine is too hot.
Finding inspectSensors(SMC& smc) {
    std::array<std::size_t, SensorGroup::allCases.size()> counts{};
    for (const TemperatureSensor& sensor : smc.temperatureSensors())
        ++counts.at(sensor.group);
    std::string text;
    for (const SensorGroup group : SensorGroup::allCases)
        text += (text.empty() ? "" : ", ") + std::string(group.title()) + ' ' +
                std::to_string(counts.at(group));
    return {{}, counts[SensorGroup::cpu] + counts[SensorGroup::gpu] > 0, text};
}

void inspectController(const Context& context, Findings& findings) {
    const Machine machine = context.makeMachine();
    std::optional<SMC> smc;
    findings.push_back(look("Controller", [&]() -> Finding {
        smc.emplace(*machine.registry);
        return {{}, true, "answers"};
    }));
    if (!smc)
        return;
    findings.push_back(look("Keys", [&]() -> Finding {
        const std::int64_t count = smc->keyCount();
        return {{}, count > 0, std::to_string(count)};
    }));
    findings.push_back(look("Fans", [&] { return inspectFans(*smc); }));
    findings.push_back(look("Sensors", [&] { return inspectSensors(*smc); }));
}

Finding inspectAgent(const Context& context) {
    const auto process = context.session.agentProcess();
    std::string text;
    if (process) {
        text = "process " + std::to_string(process->process) + " since " + process->started;
        text += process->guard ? ", guard " + std::to_string(*process->guard) : ", no guard";
    }
    const auto joined = [&](const std::string& more) {
        return text.empty() || more.empty() ? text + more : text + ": " + more;
    };
    try {
        const BridgeState state = AgentConnection(context).state();
        return {"Agent", true, joined(state.status.value_or(""))};
    } catch (const Failure& failure) {
        return {"Agent", false, joined(failure.line)};
    }
}

Finding inspectPreferences(const Context& context) {
    constexpr const char* trialKey = "doctor";
    const auto preferences = context.session.makePreferences();
    for (const char* key : {ProfileStore::profilesKey, ProfileStore::selectionKey}) {
        if (preferences->contains(key) && !preferences->data(key))
            return {"Preferences", false, std::string(key) + " cannot be read"};
    }
    const auto reason = preferences->setData(trialKey, {});
    preferences->remove(trialKey);
    if (reason)
        return {"Preferences", false, "nothing can be stored: " + *reason};
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
