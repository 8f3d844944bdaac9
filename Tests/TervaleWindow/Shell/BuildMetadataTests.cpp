#include "TervaleWindow/Shell/BuildMetadata.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>

using namespace tervale;

TEST(BuildMetadata, HoldsTheVersionAndTheBuildAsText) {
    for (const char* key : {"CFBundleShortVersionString", "CFBundleVersion"}) {
        const auto value = BuildMetadata().value(key);
        ASSERT_TRUE(value && std::holds_alternative<std::string>(*value)) << key;
        const auto& text = std::get<std::string>(*value);
        ASSERT_FALSE(text.empty()) << key;
        EXPECT_TRUE(std::all_of(text.begin(), text.end(), [](unsigned char character) {
            return std::isdigit(character) || character == '.';
        })) << text;
    }
}

TEST(BuildMetadata, HoldsNothingUnderAnotherKey) {
    EXPECT_EQ(BuildMetadata().value("CFBundleName"), std::nullopt);
}
