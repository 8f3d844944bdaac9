#include "tervalectl/ProfileCommands.h"

#include "Base/Terminal.h"
#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "Profiles/Validation.h"
#include "tervalectl/AgentConnection.h"
#include "tervalectl/Files.h"
#include "tervalectl/Formatting.h"
#include "tervalectl/ProfilePicture.h"

#include <algorithm>

namespace tervale {

namespace {

/// A profile and what is wrong with it.
struct Examined {
    const Profile& profile;
    /// From 1, in the list.
    std::size_t position = 0;
    std::vector<std::string> problems;
};

std::vector<Examined> examine(const std::vector<Profile>& profiles) {
    std::vector<Examined> findings;
    findings.reserve(profiles.size());
    for (const Profile& profile : profiles)
        findings.push_back({profile, findings.size() + 1, problems(profile, profiles)});
    return findings;
}

bool isSound(const Examined& finding) {
    return finding.problems.empty();
}

/// For people; a profile may have no name, which is one of the problems.
std::string nameOf(const Examined& finding) {
    const bool blank = finding.profile.name.find_first_not_of(" \t\r\n") == std::string::npos;
    return blank ? "Profile " + std::to_string(finding.position) : finding.profile.name;
}

std::string sentences(const Examined& finding) {
    std::string text;
    for (const std::string& problem : finding.problems)
        text += (text.empty() ? "" : " ") + problem;
    return text;
}

void write(JSONWriter& json, const Examined& finding) {
    json.object([&] {
        json.member("id", finding.profile.id);
        json.member("name", finding.profile.name);
        json.member("problems", finding.problems);
    });
}

/// Has the agent store the profiles, unless one of them has a problem.
void save(const std::vector<Profile>& profiles, AgentConnection& agent, Context& context) {
    // Nobody would hear of it.
    if (!Bridge::fits(command::SaveProfiles{profiles}))
        throw refusal("Those profiles were not saved: they are too long.");
    const auto confirms = [&](const BridgeState& state) { return state.profiles == profiles; };
    printStored(agent.perform(command::SaveProfiles{profiles}, confirms), context);
}

void requireSound(const std::vector<Profile>& profiles) {
    std::string line;
    for (const Examined& finding : examine(profiles)) {
        if (!isSound(finding))
            line += (line.empty() ? "" : " ") + nameOf(finding) + ": " + sentences(finding);
    }
    if (!line.empty())
        throw refusal(line);
}

/// `profiles` with those of `news` in the places of the same ids, the others at the end.
std::vector<Profile> merged(std::vector<Profile> profiles, const std::vector<Profile>& news) {
    for (const Profile& profile : news) {
        const auto place = std::ranges::find(profiles, profile.id, &Profile::id);
        if (place == profiles.end())
            profiles.push_back(profile);
        else
            *place = profile;
    }
    return profiles;
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
    std::vector<Profile> profiles = files::readProfiles(command.file, context);
    if (!command.merge)
        requireSound(profiles);
    AgentConnection agent(context);
    if (command.merge) {
        profiles = merged(agent.state().profiles, profiles);
        requireSound(profiles);
    }
    save(profiles, agent, context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::RemoveProfile& command, Context& context) {
    AgentConnection agent(context);
    std::vector<Profile> profiles = agent.state().profiles;
    const Profile& removed = find(command.profile, profiles);
    profiles.erase(profiles.begin() + (&removed - profiles.data()));
    requireSound(profiles);
    save(profiles, agent, context);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::ShowProfile& command, Context& context) {
    const BridgeState state = AgentConnection(context).state();
    const Profile& profile = find(command.profile, state.profiles);
    if (context.json)
        printJSON(context.out, encode(profile));
    else
        printProfile(context.out, profile, state.profiles, context.textStyle);
    return ExitStatus::done;
}

ExitStatus perform(const ctl::ValidateProfiles& command, Context& context) {
    const std::vector<Profile> profiles = files::readProfiles(command.file, context);
    const std::vector<Examined> findings = examine(profiles);
    if (context.json) {
        JSONWriter json;
        json.array(findings);
        printJSON(context.out, json.text);
    } else {
        for (const Examined& finding : findings) {
            for (const std::string& problem : finding.problems)
                context.out << printable(nameOf(finding) + ": " + problem) << '\n';
        }
    }
    return std::ranges::all_of(findings, isSound) ? ExitStatus::done : ExitStatus::refused;
}

} // namespace tervale
