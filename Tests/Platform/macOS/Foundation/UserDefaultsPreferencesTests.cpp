#include "Platform/macOS/Foundation/FoundationSession.h"

#include <gtest/gtest.h>

using namespace tervale;

namespace {

class UserDefaultsPreferencesTest : public testing::Test {
  protected:
    /// Each time in a program that has just started.
    std::optional<QByteArray> afterRestart(const QByteArray& command) const {
        const auto program = session.start();
        auto answer = program->does(command);
        EXPECT_TRUE(program->ends());
        return answer;
    }

    FoundationSession session;
};

} // namespace

TEST_F(UserDefaultsPreferencesTest, KeepBlobsOverARestart) {
    QByteArray everyByte;
    for (int byte = 0; byte < 256; ++byte)
        everyByte += static_cast<char>(byte);
    EXPECT_TRUE(afterRestart("save d store x" + everyByte.toHex()));
    EXPECT_TRUE(afterRestart("save d empty x"));
    EXPECT_EQ(afterRestart("load d store"), "loaded x" + everyByte.toHex() + '\n');
    EXPECT_EQ(afterRestart("load d empty"), "loaded x\n");
}

TEST_F(UserDefaultsPreferencesTest, HoldTheLatestBlob) {
    EXPECT_TRUE(afterRestart("save d store x0102"));
    EXPECT_TRUE(afterRestart("save d store x03"));
    EXPECT_EQ(afterRestart("load d store"), "loaded x03\n");
}

TEST_F(UserDefaultsPreferencesTest, KeepDomainsApart) {
    EXPECT_TRUE(afterRestart("save one key x01"));
    EXPECT_TRUE(afterRestart("save two key x02"));
    EXPECT_EQ(afterRestart("load one key"), "loaded x01\n");
    EXPECT_EQ(afterRestart("load three key"), "loaded nothing\n");
    EXPECT_EQ(afterRestart("load one other"), "loaded nothing\n");
}

TEST_F(UserDefaultsPreferencesTest, ReadAValueOfAnotherTypeAsAbsent) {
    const auto write = [this](const char* key, const char* value) {
        EXPECT_TRUE(session.writeDefault(QStringLiteral("d"), QString::fromLatin1(key),
                                         QString::fromLatin1(value)));
    };
    write("text", "some text");
    write("list", "(1, 2)");
    write("number", "<*I5>");
    write("dictionary", "{ key = value; }");
    write("data", "<0102>");
    for (const char* key : {"text", "list", "number", "dictionary"})
        EXPECT_EQ(afterRestart(QByteArray("load d ") + key), "loaded nothing\n") << key;
    EXPECT_EQ(afterRestart("load d data"), "loaded x0102\n");
}

TEST_F(UserDefaultsPreferencesTest, KeepACopyOfWhateverIsThere) {
    EXPECT_TRUE(session.writeDefault(QStringLiteral("d"), QStringLiteral("key"),
                                     QStringLiteral("some text")));
    EXPECT_EQ(afterRestart("copy d key copied-2"), "copied\n");
    EXPECT_EQ(afterRestart("copy d absent copied-3"), "not copied\n");
    EXPECT_TRUE(afterRestart("save d key x07"));
    EXPECT_EQ(afterRestart("copy d key copied-2"), "not copied\n");
    EXPECT_EQ(afterRestart("copy d key copied-1"), "copied\n");
    EXPECT_EQ(afterRestart("load d copied-1"), "loaded x07\n");
    EXPECT_EQ(afterRestart("keys d copied-"), "keys copied-1 copied-2\n");
    EXPECT_TRUE(afterRestart("remove d copied-1"));
    EXPECT_EQ(afterRestart("keys d copied-"), "keys copied-2\n");
}

TEST_F(UserDefaultsPreferencesTest, ReplaceAValueOfAnotherType) {
    EXPECT_TRUE(session.writeDefault(QStringLiteral("d"), QStringLiteral("key"),
                                     QStringLiteral("some text")));
    EXPECT_TRUE(afterRestart("save d key x07"));
    EXPECT_EQ(afterRestart("load d key"), "loaded x07\n");
}
