#include "TervaleWindow/Settings/VersionText.h"
#include "TervaleWindow/Shell/BuildMetadata.h"
#include "TervaleWindow/Shell/SystemMetadata.h"

#include <gtest/gtest.h>

#include <map>

using namespace tervale;

namespace {

SystemMetadata ofBundle(const std::map<std::string, std::string>& texts) {
    return SystemMetadata([texts](const std::string& key) -> std::optional<std::string> {
        const auto found = texts.find(key);
        if (found == texts.end())
            return std::nullopt;
        return found->second;
    });
}

} // namespace

TEST(SystemMetadata, IsTheBundlesWhereThereIsOne) {
    EXPECT_EQ(
        versionText(ofBundle({{"CFBundleShortVersionString", "1.2"}, {"CFBundleVersion", "34"}})),
        "1.2 (34)");
    EXPECT_EQ(versionText(ofBundle({{"CFBundleShortVersionString", "1.2"}})), "1.2 (?)");
    EXPECT_EQ(versionText(ofBundle({})), "? (?)");
}

TEST(SystemMetadata, IsTheBuildsOutsideABundle) {
    EXPECT_EQ(versionText(SystemMetadata(nullptr)), versionText(BuildMetadata()));
    EXPECT_EQ(SystemMetadata(nullptr).value("CFBundleName"), std::nullopt);
}
