#include "tervalectl/ActionArgument.h"
#include "tervalectl/Failure.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

Profile named(const char* name) {
    return {UUID::random(), name, kind::Load{}};
}

std::string refusalOf(const char* name, const std::vector<Profile>& profiles) {
    try {
        resolve(ProfileReference{name}, profiles);
        return "not refused";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.status, ExitStatus::refused);
        return failure.line;
    }
}

} // namespace

TEST(ActionArgument, ReadsWhatPeopleType) {
    EXPECT_EQ(parseAction("automatic"), ActionArgument(Action(action::Automatic{})));
    EXPECT_EQ(parseAction("max"), ActionArgument(Action(action::Fixed{1.0})));
    EXPECT_EQ(parseAction("40%"), ActionArgument(Action(action::Fixed{0.4})));
    EXPECT_EQ(parseAction("profile Late at night"),
              ActionArgument(ProfileReference{"Late at night"}));
    for (const char* text :
         {"", "Automatic", "profile", "profile ", "40", "140%", "quiet", R"({"automatic":{}})"})
        EXPECT_EQ(parseAction(text), std::nullopt) << text;
}

TEST(ActionArgument, ReadsAnActionsJSONWhereItMay) {
    EXPECT_EQ(parseActionOrJSON(R"({"fixed":{"_0":0.25}})"),
              ActionArgument(Action(action::Fixed{0.25})));
    EXPECT_EQ(parseActionOrJSON("max"), ActionArgument(Action(action::Fixed{1.0})));
    EXPECT_EQ(parseActionOrJSON(R"({"fixed":{}})"), std::nullopt);
    EXPECT_EQ(parseActionOrJSON("{"), std::nullopt);
}

TEST(ActionArgument, FindsProfilesByIdBeforeName) {
    const Profile quiet = named("Quiet");
    const Profile disguised = named(quiet.id.text().c_str());
    const std::vector<Profile> profiles{disguised, quiet};
    EXPECT_EQ(resolve(ProfileReference{"Quiet"}, profiles), Action(action::Profile{quiet.id}));
    EXPECT_EQ(resolve(ProfileReference{quiet.id.text()}, profiles),
              Action(action::Profile{quiet.id}));
    EXPECT_EQ(resolve(Action(action::Fixed{0.5}), profiles), Action(action::Fixed{0.5}));
}

TEST(ActionArgument, RefusesProfilesThatAreMissingOrAmbiguous) {
    EXPECT_EQ(refusalOf("Quiet", {named("quiet")}), "There is no profile 'Quiet'.");
    EXPECT_EQ(refusalOf("Quiet", {named("Quiet"), named("Quiet")}),
              "Several profiles are named 'Quiet'; give the id.");
    const Profile quiet = named("Quiet");
    Profile twin = named("Twin");
    twin.id = quiet.id;
    EXPECT_EQ(refusalOf("Twin", {quiet, twin}), "Another profile has the id of 'Twin'.");
}
