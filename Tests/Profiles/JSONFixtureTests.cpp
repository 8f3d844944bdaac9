#include "Profiles/JSONSupport.h"

#include <gtest/gtest.h>

#include <map>

namespace tervale {

using nlohmann::json;
using test::fixtures;
using test::inputOf;
using test::withType;

namespace {

/// Encodes what the text holds, or tells the error.
std::variant<std::string, DecodingError> encodedAgain(const std::string& type,
                                                      const std::string& text) {
    return withType(type,
                    [&text]<class Value>(
                        std::type_identity<Value>) -> std::variant<std::string, DecodingError> {
                        const Decoded<Value> result = decode<Value>(text);
                        if (const auto* error = std::get_if<DecodingError>(&result))
                            return *error;
                        return encode(std::get<Value>(result));
                    });
}

const std::map<std::string, DecodingError::Kind> kinds{
    {"typeMismatch", DecodingError::Kind::typeMismatch},
    {"valueNotFound", DecodingError::Kind::valueNotFound},
    {"keyNotFound", DecodingError::Kind::keyNotFound},
    {"dataCorrupted", DecodingError::Kind::dataCorrupted},
};

std::vector<std::string> pathOf(const json& fixture) {
    std::vector<std::string> path;
    for (const json& step : fixture["path"])
        path.push_back(step.is_string() ? step.get<std::string>()
                                        : std::to_string(step.get<int>()));
    return path;
}

} // namespace

TEST(JSONFixtures, WhatTheAgentWritesKeepsItsValue) {
    const std::vector<json> cases = fixtures("encode.jsonl");
    EXPECT_EQ(cases.size(), 730U);
    for (const json& fixture : cases) {
        const std::string text = fixture["text"];
        const auto again = encodedAgain(fixture["type"], text);
        const std::string* encoded = std::get_if<std::string>(&again);
        ASSERT_TRUE(encoded) << text << "\n" << std::get<DecodingError>(again).text();
        EXPECT_EQ(json::parse(*encoded), json::parse(text));
    }
}

TEST(JSONFixtures, WhatTheAgentAcceptsArrivesAtItsValue) {
    std::size_t accepted = 0;
    for (const json& fixture : fixtures("decode.jsonl")) {
        if (!fixture["accept"])
            continue;
        ++accepted;
        const auto again = encodedAgain(fixture["type"], inputOf(fixture));
        const std::string* encoded = std::get_if<std::string>(&again);
        if (!encoded && fixture.contains("either"))
            continue;
        ASSERT_TRUE(encoded) << fixture << "\n" << std::get<DecodingError>(again).text();
        EXPECT_EQ(json::parse(*encoded), json::parse(fixture["canonical"].get<std::string>()));
    }
    EXPECT_EQ(accepted, 134U);
}

TEST(JSONFixtures, WhatTheAgentRefusesIsRefused) {
    std::size_t refused = 0;
    std::size_t sameKind = 0;
    std::size_t samePath = 0;
    for (const json& fixture : fixtures("decode.jsonl")) {
        if (fixture["accept"])
            continue;
        ++refused;
        const auto again = encodedAgain(fixture["type"], inputOf(fixture));
        const DecodingError* error = std::get_if<DecodingError>(&again);
        if (!error && fixture.contains("either"))
            continue;
        ASSERT_TRUE(error) << fixture;
        EXPECT_FALSE(error->description.empty());
        if (fixture.contains("description")) {
            EXPECT_EQ(error->description, fixture["description"].get<std::string>());
        }
        sameKind += error->kind == kinds.at(fixture["error"]);
        samePath += error->path == pathOf(fixture);
    }
    EXPECT_EQ(refused, 895U);
    // Ours differs in that a null where a truth value is required is a missing value like any
    // other, that a number that is no JSON is found before the members are looked at, and that the
    // place of a number that is no integer, or no double, is told. On one of the others either
    // answer is good.
    EXPECT_EQ(sameKind, 888U);
    EXPECT_EQ(samePath, 882U);
}

} // namespace tervale
