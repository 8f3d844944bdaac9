#include "Platform/macOS/Foundation/FoundationSession.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

const QByteArray information = R"({
    CFBundleIdentifier = "com.velnor.tervale";
    CFBundleShortVersionString = "1.2.3 \U03B2";
    CFBundleVersion = <*I45>;
    CFBundleDocumentTypes = ("a", "b");
})";

} // namespace

TEST(BundleMetadata, IsTheTextOfTheInformationDictionary) {
    const FoundationSession session;
    const auto program = session.startBundled(information);
    EXPECT_EQ(program->does("bundle"), "bundle\n");
    EXPECT_EQ(program->does("bundle-text CFBundleShortVersionString"),
              "text x" + QByteArray("1.2.3 β").toHex() + '\n');
}

TEST(BundleMetadata, IsAbsentWhereItIsMissingOrNoText) {
    const FoundationSession session;
    const auto program = session.startBundled(information);
    EXPECT_EQ(program->does("bundle-text CFBundleName"), "text nothing\n");
    EXPECT_EQ(program->does("bundle-text CFBundleVersion"), "text nothing\n");
    EXPECT_EQ(program->does("bundle-text CFBundleDocumentTypes"), "text nothing\n");
}

TEST(BundleMetadata, IsAbsentWithoutABundle) {
    const FoundationSession session;
    const auto program = session.start();
    EXPECT_EQ(program->does("bundle"), "no bundle\n");
    EXPECT_EQ(program->does("bundle-text CFBundleVersion"), "text nothing\n");
}

TEST(BundleMetadata, IsOfNoUseWithoutAnIdentifier) {
    const FoundationSession session;
    EXPECT_EQ(session.startBundled("{ CFBundleVersion = 1; }")->does("bundle"), "no bundle\n");
}

TEST(BundleMetadata, OpensAProgramsOwnDefaultsAsItsStandardOnes) {
    const FoundationSession session;
    EXPECT_TRUE(session.startBundled(information)->does("save com.velnor.tervale key x0102"));
    EXPECT_EQ(session.startBundled(information)->does("load com.velnor.tervale key"),
              "loaded x0102\n");
    // This implementation of Foundation calls a program's standard domain by the program's name.
    EXPECT_EQ(session.start()->does("load adapter-program key"), "loaded x0102\n");
}
