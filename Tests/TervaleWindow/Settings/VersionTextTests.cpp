#include "TervaleWindow/Settings/VersionText.h"

#include <gtest/gtest.h>

#include <map>

using namespace tervale;

namespace {

using Values = std::map<std::string, ApplicationMetadata::Value>;

struct MapMetadata final : ApplicationMetadata {
    Values values;

    std::optional<Value> value(const std::string& key) const override {
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
};

QString versionOf(const Values& values) {
    MapMetadata metadata;
    metadata.values = values;
    return versionText(metadata);
}

constexpr auto version = "CFBundleShortVersionString";
constexpr auto build = "CFBundleVersion";

} // namespace

TEST(VersionText, PutsTheBuildInParenthesesAfterTheVersion) {
    EXPECT_EQ(versionOf({{version, "1.2"}, {build, "34"}}), "1.2 (34)");
}

TEST(VersionText, StandsAQuestionMarkInForWhatIsMissing) {
    EXPECT_EQ(versionOf({{version, "1.2"}}), "1.2 (?)");
    EXPECT_EQ(versionOf({{build, "34"}}), "? (34)");
    EXPECT_EQ(versionOf({}), "? (?)");
}

TEST(VersionText, StandsAQuestionMarkInForWhatIsNoText) {
    const ApplicationMetadata::NotText other;
    EXPECT_EQ(versionOf({{version, other}, {build, "34"}}), "? (34)");
    EXPECT_EQ(versionOf({{version, "1.2"}, {build, other}}), "1.2 (?)");
}

TEST(VersionText, LeavesAnEmptyTextEmpty) {
    EXPECT_EQ(versionOf({{version, ""}, {build, ""}}), " ()");
}

TEST(VersionText, ReadsTextAsUnicode) {
    EXPECT_EQ(versionOf({{version, "1.0β"}, {build, "7"}}), QString("1.0β (7)"));
}
