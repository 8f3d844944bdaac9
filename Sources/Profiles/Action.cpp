#include "Profiles/Action.h"

#include "Base/Overloaded.h"
#include "JSON/JSONReader.h"
#include "JSON/JSONWriter.h"
#include "Profiles/CombinedHash.h"

namespace tervale {

void write(JSONWriter& json, const Action& action) {
    std::visit(overloaded{
                   [&](action::Automatic) { json.oneOf("automatic"); },
                   [&](const action::Fixed& fixed) { json.oneOf("fixed", fixed.speed); },
                   [&](const action::Profile& profile) { json.oneOf("profile", profile.id); },
               },
               action);
}

Action read(const JSONReader& json, Type<Action>) {
    using Payload = const JSONReader&;
    return json.oneOf<Action>({
        {"automatic", [](Payload) -> Action { return action::Automatic{}; }},
        {"fixed",
         [](Payload payload) -> Action { return action::Fixed{payload.member<double>("_0")}; }},
        {"profile",
         [](Payload payload) -> Action { return action::Profile{payload.member<UUID>("_0")}; }},
    });
}

} // namespace tervale

std::size_t std::hash<tervale::Action>::operator()(const tervale::Action& action) const noexcept {
    const std::size_t payload = std::visit(
        tervale::overloaded{
            [](const tervale::action::Automatic&) { return std::size_t{0}; },
            [](const tervale::action::Fixed& fixed) { return std::hash<double>{}(fixed.speed); },
            [](const tervale::action::Profile& profile) {
                return std::hash<tervale::UUID>{}(profile.id);
            },
        },
        action);
    return tervale::combinedHash(action.index(), payload);
}
