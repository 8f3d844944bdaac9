#include "Profiles/JSONSupport.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace tervale {

using test::decoded;
using test::decodingError;
using Kind = DecodingError::Kind;

namespace {

const UUID quietId = *UUID::parse("7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95");
const char* const oneCaseExpected = "Invalid number of keys found, expected one.";

Profile quiet() {
    return {
        quietId, "Quiet",
        kind::Temperature{TemperatureInput::averageOf(SensorGroup::cpu), {{{40, 0.2}, {80, 1}}}}};
}

/// Both ways: the value gives the text, and the text the value.
template <class Value>
void expectGolden(const Value& value, const std::string& text) {
    EXPECT_EQ(encode(value), text);
    EXPECT_EQ(decoded<Value>(text), value);
}

} // namespace

TEST(ProfilesJSON, WritesActions) {
    expectGolden<Action>(action::Automatic{}, R"({"automatic":{}})");
    expectGolden<Action>(action::Fixed{0.5}, R"({"fixed":{"_0":0.5}})");
    expectGolden<Action>(action::Profile{quietId},
                         R"({"profile":{"_0":"7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95"}})");
}

TEST(ProfilesJSON, WritesTheSmallTypes) {
    expectGolden(SensorGroup(SensorGroup::memory), R"("memory")");
    expectGolden(TemperatureInput{SensorGroup::ssd, false}, R"({"group":"ssd","average":false})");
    expectGolden(CurvePoint{40, 0.2}, R"({"x":40,"speed":0.2})");
    expectGolden(Curve{{{40, 0.2}}}, R"({"points":[{"x":40,"speed":0.2}]})");
    expectGolden(Curve{}, R"({"points":[]})");
    expectGolden(Window{1320, 420, action::Fixed{0.4}},
                 R"({"start":1320,"end":420,"action":{"fixed":{"_0":0.4}}})");
}

TEST(ProfilesJSON, WritesProfileKinds) {
    expectGolden<ProfileKind>(
        kind::Load{{{{20, 0}, {90, 0.8}}}},
        R"({"load":{"_0":{"points":[{"x":20,"speed":0},{"x":90,"speed":0.8}]}}})");
    expectGolden<ProfileKind>(
        kind::Schedule{{{0, 480, action::Profile{quietId}}}},
        R"({"schedule":{"_0":[{"start":0,"end":480,"action":{"profile":{"_0":)"
        R"("7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95"}}}]}})");
}

TEST(ProfilesJSON, WritesProfilesAndListsOfThem) {
    const std::string text = R"({"id":"7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95","name":"Quiet",)"
                             R"("kind":{"temperature":{"_0":{"group":"cpu","average":true},)"
                             R"("_1":{"points":[{"x":40,"speed":0.2},{"x":80,"speed":1}]}}}})";
    expectGolden(quiet(), text);
    expectGolden(std::vector{quiet(), quiet()}, "[" + text + "," + text + "]");
    expectGolden(std::vector<Profile>(), "[]");
}

TEST(ProfilesJSON, WritesCommands) {
    expectGolden<BridgeCommand>(command::Select{action::Fixed{0.5}},
                                R"({"select":{"_0":{"fixed":{"_0":0.5}}}})");
    expectGolden<BridgeCommand>(command::StartTimer{action::Automatic{}, 900},
                                R"({"startTimer":{"_0":{"automatic":{}},"_1":900}})");
    expectGolden<BridgeCommand>(command::SaveProfiles{}, R"({"saveProfiles":{"_0":[]}})");
    expectGolden<BridgeCommand>(command::SetLaunchAtLogin{true},
                                R"({"setLaunchAtLogin":{"_0":true}})");
    expectGolden<BridgeCommand>(command::CancelTimer{}, R"({"cancelTimer":{}})");
    expectGolden<BridgeCommand>(command::CheckForUpdates{}, R"({"checkForUpdates":{}})");
    expectGolden<BridgeCommand>(command::RequestState{}, R"({"requestState":{}})");
}

TEST(ProfilesJSON, WritesTheOptionalMembersOfAStateOnlyWhenPresent) {
    expectGolden(BridgeState(),
                 R"({"selection":{"automatic":{}},"launchAtLogin":false,"profiles":[]})");
    expectGolden(BridgeState{action::Fixed{1},
                             action::Automatic{},
                             Date{785000000.25},
                             "on",
                             true,
                             {{quietId, "", kind::Schedule{}}}},
                 R"({"selection":{"fixed":{"_0":1}},"timerAction":{"automatic":{}},)"
                 R"("timerEnds":785000000.25,"status":"on","launchAtLogin":true,)"
                 R"("profiles":[{"id":"7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95","name":"",)"
                 R"("kind":{"schedule":{"_0":[]}}}]})");
}

TEST(ProfilesJSON, KeepsTheSignOfZero) {
    for (const char* text : {R"({"fixed":{"_0":-0}})", R"({"fixed":{"_0":-0.0}})"})
        EXPECT_EQ(encode(decoded<Action>(text)), R"({"fixed":{"_0":-0}})");
}

TEST(ProfilesJSON, RefusesToEncodeNumbersThatAreNotFinite) {
    constexpr double infinity = std::numeric_limits<double>::infinity();
    for (const double number : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THROW(encode(CurvePoint{0, number}), EncodingError);
        EXPECT_THROW(encode(Action(action::Fixed{number})), EncodingError);
        EXPECT_THROW(encode(BridgeCommand(command::StartTimer{action::Automatic{}, number})),
                     EncodingError);
        BridgeState state;
        state.timerEnds = Date{number};
        EXPECT_THROW(encode(state), EncodingError);
    }
}

TEST(ProfilesJSON, WantsExactlyOneCase) {
    for (const char* text : {"{}", R"({"automatic":{},"fixed":{"_0":1}})", R"({"note":1})",
                             R"({"Automatic":{}})", R"({"fixed":null,"automatic":{}})"}) {
        const DecodingError error = decodingError<Action>(text);
        EXPECT_EQ(error.kind, Kind::typeMismatch);
        EXPECT_EQ(error.description, oneCaseExpected) << text;
    }
    for (const char* text : {"{}", R"({"cancelTimer":{},"requestState":{}})", R"({"x":{}})"})
        EXPECT_EQ(decodingError<BridgeCommand>(text).description, oneCaseExpected) << text;
    EXPECT_EQ(decodingError<ProfileKind>("{}").description, oneCaseExpected);
}

TEST(ProfilesJSON, IgnoresUnknownMembers) {
    EXPECT_EQ(decoded<Action>(R"({"automatic":{},"note":1})"), Action(action::Automatic{}));
    EXPECT_EQ(decoded<Action>(R"({"automatic":{"_0":3}})"), Action(action::Automatic{}));
    EXPECT_EQ(decoded<Action>(R"({"fixed":{"_0":1,"_1":[{}]}})"), Action(action::Fixed{1}));
    EXPECT_EQ(decoded<CurvePoint>(R"({"y":null,"speed":1,"x":2})"), (CurvePoint{2, 1}));
}

TEST(ProfilesJSON, ChecksNoRange) {
    EXPECT_EQ(decoded<Curve>(R"({"points":[{"x":-900,"speed":5}]})"), (Curve{{{-900, 5}}}));
    EXPECT_EQ(decoded<Window>(R"({"start":2000,"end":-1,"action":{"fixed":{"_0":7}}})"),
              (Window{2000, -1, action::Fixed{7}}));
}

TEST(ProfilesJSON, ReadsNoNumberBeyondADouble) {
    const DecodingError error = decodingError<Action>(R"({"fixed":{"_0":1e400}})");
    EXPECT_EQ(error.kind, Kind::dataCorrupted);
    EXPECT_EQ(error.path, (std::vector<std::string>{"fixed", "_0"}));
    EXPECT_EQ(decoded<Action>(R"({"automatic":{},"note":1e400})"), Action(action::Automatic{}));
}

TEST(ProfilesJSON, KeepsNamesAndTheOrderOfPoints) {
    const Profile profile{quietId, "  spaced ", kind::Load{{{{80, 1}, {20, 0}, {50, 0.3}}}}};
    EXPECT_EQ(decoded<Profile>(encode(profile)), profile);
}

TEST(ProfilesJSON, TakesUUIDsInEitherCase) {
    EXPECT_EQ(decoded<Action>(R"({"profile":{"_0":"7c3e2f80-5d1a-4b6e-9a0c-2f4d8e1b6a95"}})"),
              Action(action::Profile{quietId}));
    EXPECT_EQ(decodingError<Action>(R"({"profile":{"_0":"not-a-uuid"}})").kind,
              Kind::dataCorrupted);
}

TEST(ProfilesJSON, TellsWhatIsWrongAndWhere) {
    const DecodingError error = decodingError<std::vector<Profile>>(
        R"([{"id":"7C3E2F80-5D1A-4B6E-9A0C-2F4D8E1B6A95","name":"","kind":)"
        R"({"load":{"_0":{"points":[{"x":1,"speed":0},{"x":"q","speed":0}]}}}}])");
    EXPECT_EQ(error.kind, Kind::typeMismatch);
    EXPECT_EQ(error.path,
              (std::vector<std::string>{"0", "kind", "load", "_0", "points", "1", "x"}));
    EXPECT_EQ(error.text(), "0.kind.load._0.points.1.x: Expected a number, found a string.");

    EXPECT_EQ(decodingError<Action>(R"({"fixed":{}})").text(),
              "fixed: The member \"_0\" is missing.");
    EXPECT_EQ(decodingError<Action>("[]").text(), "Expected an object, found an array.");
    EXPECT_EQ(decodingError<CurvePoint>(R"({"x":null,"speed":1})"),
              (DecodingError{Kind::valueNotFound, {"x"}, "Expected a number, found null."}));
    EXPECT_EQ(decodingError<TemperatureInput>(R"({"group":"CPU","average":true})"),
              (DecodingError{Kind::dataCorrupted, {"group"}, "The string names no sensor group."}));
    EXPECT_EQ(decodingError<Action>("{\"fixed\"").text(), "The text is not JSON at byte 9.");
}

TEST(ProfilesJSON, NeverTakesANumberForATruthValue) {
    EXPECT_EQ(decodingError<BridgeCommand>(R"({"setLaunchAtLogin":{"_0":1}})").kind,
              Kind::typeMismatch);
    EXPECT_EQ(decodingError<Action>(R"({"fixed":{"_0":true}})").kind, Kind::typeMismatch);
}

TEST(ProfilesJSON, TakesNullForAbsenceInOptionalMembersOnly) {
    EXPECT_EQ(decoded<BridgeState>(R"({"selection":{"automatic":{}},"timerAction":null,)"
                                   R"("timerEnds":null,"status":null,"launchAtLogin":false,)"
                                   R"("profiles":[]})"),
              BridgeState());
    const DecodingError error = decodingError<BridgeState>(
        R"({"selection":{"automatic":{}},"launchAtLogin":false,"profiles":null})");
    EXPECT_EQ(error.kind, Kind::valueNotFound);
}

} // namespace tervale
