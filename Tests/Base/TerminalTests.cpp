#include "Base/Terminal.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

using namespace tervale;

TEST(Printable, LetsNothingThroughThatATerminalObeys) {
    EXPECT_EQ(printable("a\x1B[2J\n\t\x7F"
                        "b\xC2\x9B"
                        "c"),
              "a [2J   b c");
    EXPECT_EQ(printable("a\u202Eb\u2028c\u200Ed"), "a b c d");
    EXPECT_EQ(printable(std::string_view("a\0b", 3)), "a b");
}

TEST(Printable, KeepsEverythingThatIsSeen) {
    EXPECT_EQ(printable(""), "");
    EXPECT_EQ(printable("48 °C – ü 👩‍🔧 \U0010FFFF"),
              "48 °C – ü 👩‍🔧 \U0010FFFF");
}

TEST(Printable, RepairsIllFormedText) {
    EXPECT_EQ(printable("a\xFF"), "a\uFFFD");
    EXPECT_EQ(printable("\x80z"), "\uFFFDz");
    // Cut short, too long for what it encodes, a surrogate, beyond the last character.
    EXPECT_EQ(printable("\xE2\x82"), "\uFFFD\uFFFD");
    EXPECT_EQ(printable("\xC0\x9B"), "\uFFFD\uFFFD");
    EXPECT_EQ(printable("\xED\xA0\x80"), "\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(printable("\xF4\x90\x80\x80"), "\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(Print, TellsThatTheStreamIsFull) {
    std::FILE* full = std::fopen("/dev/full", "w");
    if (!full)
        GTEST_SKIP() << "this system has no device that is always full";
    EXPECT_FALSE(print(full, "text"));
    std::fclose(full);
    std::FILE* null = std::fopen("/dev/null", "w");
    ASSERT_TRUE(null);
    EXPECT_TRUE(print(null, "text"));
    std::fclose(null);
}

namespace {

/// What is written to a stream, read back.
class Written {
  public:
    Written() : file(std::tmpfile()) {}
    ~Written() { std::fclose(file); }
    Written(const Written&) = delete;
    Written& operator=(const Written&) = delete;

    std::FILE* stream() const { return file; }
    std::string text() const {
        EXPECT_EQ(std::fseek(file, 0, SEEK_SET), 0);
        std::string read;
        for (int byte = std::fgetc(file); byte != EOF; byte = std::fgetc(file))
            read += static_cast<char>(byte);
        return read;
    }

  private:
    std::FILE* file;
};

} // namespace

TEST(Terminal, BeginsAComplaintWithTheNameOfTheProgram) {
    const Written output;
    const Written errors;
    const Terminal terminal("tervale", output.stream(), errors.stream());
    EXPECT_EQ(terminal.complain("No file 'a\x1B[2Jb'.", exitStatus::wrongUsage),
              exitStatus::wrongUsage);
    EXPECT_EQ(errors.text(), "tervale: No file 'a [2Jb'.\n");
    EXPECT_EQ(output.text(), "");
}

TEST(Terminal, PrintsATextAsItIs) {
    const Written output;
    const Written errors;
    const Terminal terminal("tervale", output.stream(), errors.stream());
    EXPECT_EQ(terminal.print("one\n\ttwo\n"), exitStatus::done);
    EXPECT_EQ(output.text(), "one\n\ttwo\n");
    EXPECT_EQ(errors.text(), "");
}

TEST(Terminal, FailsIfItsOutputIsFull) {
    std::FILE* full = std::fopen("/dev/full", "w");
    if (!full)
        GTEST_SKIP() << "this system has no device that is always full";
    const Written errors;
    EXPECT_EQ(Terminal("tervale", full, errors.stream()).print("text"), exitStatus::failure);
    EXPECT_EQ(errors.text(), "tervale: The output cannot be written.\n");
    std::fclose(full);
}
