#include "Profiles/JSONSupport.h"
#include "Profiles/RandomValues.h"

#include <gtest/gtest.h>

namespace tervale {

using test::decoded;
using test::RandomValues;

namespace {

constexpr int rounds = 300;

/// Encoding and decoding gives the value back, bit for bit, and so the same text again.
template <class Value>
void expectRoundTrip(const Value& value) {
    const std::string text = encode(value);
    const Value again = decoded<Value>(text);
    EXPECT_EQ(again, value) << text;
    EXPECT_EQ(encode(again), text);
}

/// No beginning of a text is a value.
template <class Value>
void expectTruncationsRefused(const Value& value) {
    const std::string text = encode(value);
    ASSERT_EQ(decoded<Value>(text), value);
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_TRUE(std::holds_alternative<DecodingError>(
            decode<Value>(std::string_view(text).substr(0, length))))
            << text.substr(0, length);
}

/// The text with a few of its bytes replaced, removed, doubled or swapped.
std::string damaged(std::string text, RandomValues& random) {
    for (std::size_t count = 1 + random.below(3); count > 0 && !text.empty(); --count) {
        const std::size_t position = random.below(text.size());
        const std::size_t digit = text.find_first_of("0123456789", position);
        switch (random.below(8)) {
        case 0:
            text[position] = static_cast<char>(random.below(256));
            break;
        case 1:
            text.erase(position, 1 + random.below(8));
            break;
        case 2:
            text.insert(position, text.substr(position, 1 + random.below(20)));
            break;
        case 3:
            text.resize(position);
            break;
        case 4:
            std::swap(text[position], text[random.below(text.size())]);
            break;
        default:
            // What stays JSON: another number, identity or payload.
            if (digit != std::string::npos)
                text[digit] = static_cast<char>('0' + random.below(10));
        }
    }
    return text;
}

} // namespace

TEST(JSONProperties, EveryTypeRoundTrips) {
    RandomValues random(1);
    for (int round = 0; round < rounds; ++round) {
        expectRoundTrip(random.input());
        expectRoundTrip(random.point());
        expectRoundTrip(random.curve());
        expectRoundTrip(random.action());
        expectRoundTrip(random.window());
        expectRoundTrip(random.kind());
        expectRoundTrip(random.profile());
        expectRoundTrip(random.profiles());
        expectRoundTrip(random.command());
        expectRoundTrip(random.state());
    }
    for (const SensorGroup group : SensorGroup::allCases)
        expectRoundTrip(group);
}

TEST(JSONProperties, NoTruncationIsAValue) {
    RandomValues random(2);
    for (int round = 0; round < 3; ++round) {
        expectTruncationsRefused(random.input());
        expectTruncationsRefused(random.point());
        expectTruncationsRefused(random.curve());
        expectTruncationsRefused(random.action());
        expectTruncationsRefused(random.window());
        expectTruncationsRefused(random.kind());
        expectTruncationsRefused(random.profile());
        expectTruncationsRefused(random.profiles());
        expectTruncationsRefused(random.command());
        expectTruncationsRefused(random.state());
    }
    for (const SensorGroup group : SensorGroup::allCases)
        expectTruncationsRefused(group);
}

TEST(JSONProperties, WhatIsAcceptedOfDamagedTextsRoundTrips) {
    RandomValues random(3);
    int accepted = 0;
    int refused = 0;
    for (const char* file : {"encode.jsonl", "decode.jsonl"}) {
        for (const nlohmann::json& fixture : test::fixtures(file)) {
            const std::string text = damaged(test::inputOf(fixture), random);
            test::withType(fixture["type"], [&]<class Value>(std::type_identity<Value>) {
                const Decoded<Value> result = decode<Value>(text);
                if (const auto* value = std::get_if<Value>(&result)) {
                    ++accepted;
                    expectRoundTrip(*value);
                } else {
                    ++refused;
                    EXPECT_FALSE(std::get<DecodingError>(result).text().empty());
                }
            });
        }
    }
    EXPECT_GT(accepted, 50);
    EXPECT_GT(refused, 1000);
}

TEST(JSONProperties, WhateverBytesAreInAStringTheTextIsJSON) {
    RandomValues random(4);
    for (int round = 0; round < rounds; ++round) {
        BridgeState state;
        state.status.emplace();
        for (std::size_t count = random.below(30); count > 0; --count)
            *state.status += static_cast<char>(random.below(256));
        const std::string text = encode(state);
        const BridgeState repaired = decoded<BridgeState>(text);
        EXPECT_EQ(encode(repaired), text);
    }
}

} // namespace tervale
