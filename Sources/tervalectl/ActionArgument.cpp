#include "tervalectl/ActionArgument.h"

#include "Base/Overloaded.h"
#include "JSON/JSON.h"
#include "Profiles/Bridge.h"
#include "tervalectl/Failure.h"
#include "tervalectl/NumberParsing.h"

namespace tervale {

const Profile& find(const ProfileReference& reference, std::span<const Profile> profiles) {
    if (const auto id = UUID::parse(reference.text)) {
        if (const Profile* profile = findProfile(profiles, *id))
            return *profile;
    }
    const Profile* named = nullptr;
    for (const Profile& profile : profiles) {
        if (profile.name != reference.text)
            continue;
        if (named)
            throw refusal("Several profiles are named '" + reference.text + "'; give the id.");
        named = &profile;
    }
    if (!named)
        throw refusal("There is no profile '" + reference.text + "'.");
    if (findProfile(profiles, named->id) != named)
        throw refusal("Another profile has the id of '" + reference.text + "'.");
    return *named;
}

std::optional<ActionArgument> parseAction(std::string_view text) {
    constexpr std::string_view profile = "profile ";
    if (text == "automatic")
        return action::Automatic{};
    if (text == "max")
        return action::Fixed{1.0};
    if (const auto speed = parsePercentage(text))
        return action::Fixed{*speed};
    if (text.starts_with(profile) && text.size() > profile.size())
        return ProfileReference{std::string(text.substr(profile.size()))};
    return std::nullopt;
}

std::optional<ActionArgument> parseActionOrJSON(std::string_view text) {
    if (auto action = parseAction(text))
        return action;
    const auto decoded = decode<Action>(text);
    if (const auto* action = std::get_if<Action>(&decoded))
        return *action;
    return std::nullopt;
}

Action resolve(const ActionArgument& text, std::span<const Profile> profiles) {
    return std::visit(overloaded{
                          [](const Action& action) { return action; },
                          [profiles](const ProfileReference& reference) -> Action {
                              return action::Profile{find(reference, profiles).id};
                          },
                      },
                      text);
}

} // namespace tervale
