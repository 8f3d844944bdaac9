#include "tervalectl/ProfileCommands.h"

#include "Base/Overloaded.h"
#include "Base/Terminal.h"
#include "Profiles/JSONCoding.h"
#include "Profiles/Validation.h"
#include "tervalectl/AgentConnection.h"
#include "tervalectl/Files.h"
#include "tervalectl/Formatting.h"

#include <algorithm>

namespace tervale {

namespace {

/// A profile and what is wrong with it.
struct Finding {
    const Profile& profile;
    /// From 1, in the list.
    std::size_t position = 0;
    std::vector<std::string> problems;
};

std::vector<Finding> examine(const std::vector<Profile>& profiles) {
    std::vector<Finding> findings;
    findings.reserve(profiles.size());
    for (const Profile& profile : profiles)
        findings.push_back({profile, findings.size() + 1, problems(profile, profiles)});
    return findings;
}

bool isSound(const Finding& finding) {
    return finding.problems.empty();
}

/// For people; a profile may have no name, which is one of the problems.
std::string nameOf(const Finding& finding) {
    const bool blank = finding.profile.name.find_first_not_of(" \t\r\n") == std::string::npos;
    return blank ? "Profile " + std::to_string(finding.position) : finding.profile.name;
}

std::string sentences(const Finding& finding) {
    std::string text;
    for (const std::string& problem : finding.problems)
        text += (text.empty() ? "" : " ") + problem;
    return text;
}

void write(JSONWriter& json, const Finding& finding) {
    json.object([&] {
        json.member("id", finding.profile.id);
        json.member("name", finding.profile.name);
        json.member("problems", finding.problems);
    });
}

std::string kindText(const Profile& profile) {
    return std::visit(overloaded{
                          [](const kind::Temperature& temperature) {
                              return "temperature, " + temperature.input.title();
                          },
                          [](const kind::Load&) -> std::string { return "load"; },
                          [](const kind::Schedule&) -> std::string { return "schedule"; },
                      },
                      profile.kind);
}

} // namespace

ExitStatus perform(const ctl::ListProfiles&, Context& context) {
    const BridgeState state = AgentConnection(context).state();
    if (context.json) {
        printJSON(context.out, encode(state.profiles));
        return ExitStatus::done;
    }
    Table table({{"PROFILE"}, {"KIND"}, {"ID"}});
    for (const Profile& profile : state.profiles)
        table.add({profile.name, kindText(profile), profile.id.text()});
    table.print(context.out);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::ExportProfiles& command, Context& context) {
    const BridgeState state = AgentConnection(context).state();
    files::write(command.file, terminalSafe(encode(state.profiles)) + '\n', context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::ImportProfiles& command, Context& context) {
    const std::vector<Profile> profiles = files::readProfiles(command.file, context);
    std::string line;
    for (const Finding& finding : examine(profiles)) {
        if (!isSound(finding))
            line += (line.empty() ? "" : " ") + nameOf(finding) + ": " + sentences(finding);
    }
    if (!line.empty())
        throw refusal(line);
    AgentConnection agent(context);
    const auto confirms = [&](const BridgeState& state) { return state.profiles == profiles; };
    printConfirmation(agent.carryOut(command::SaveProfiles{profiles}, confirms), context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::ValidateProfiles& command, Context& context) {
    const std::vector<Profile> profiles = files::readProfiles(command.file, context);
    const std::vector<Finding> findings = examine(profiles);
    if (context.json) {
        JSONWriter json;
        json.array(findings);
        printJSON(context.out, json.text);
    } else {
        for (const Finding& finding : findings) {
            for (const std::string& problem : finding.problems)
                context.out << printable(nameOf(finding) + ": " + problem) << '\n';
        }
    }
    return std::ranges::all_of(findings, isSound) ? ExitStatus::done : ExitStatus::refused;
}

} // namespace tervale
