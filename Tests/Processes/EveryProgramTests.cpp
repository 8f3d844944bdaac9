#include "Processes/Programs.h"

#include <gtest/gtest.h>

#include <utility>

using namespace tervale;

namespace {

class EveryProgramTest : public testing::TestWithParam<const char*> {
  protected:
    PrivateBus bus;
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Programs, EveryProgramTest,
                         testing::Values(TERVALE_AGENT, TERVALE_CTL, TERVALE_SIMULATOR,
                                         TERVALE_WINDOW));

TEST_P(EveryProgramTest, FailsIfItsHelpOrVersionCannotBeWritten) {
    for (const char* option : {"--help", "--version"}) {
        ChildProcess program(QStringLiteral("sh"),
                             {"-c", "exec \"$1\" \"$2\" >/dev/full", "sh", GetParam(), option},
                             bus.environment());
        ASSERT_TRUE(program.ends());
        EXPECT_EQ(program.status(), 1) << option;
        EXPECT_TRUE(program.errors().endsWith(": The output cannot be written.\n"))
            << program.errors().toStdString();
    }
}

TEST_P(EveryProgramTest, PrintsNoControlCharactersOfItsArguments) {
    for (const char* argument : {"--a\x1B[2Jb", "a\u009Bb\x07", "--simulate=\x1B[2J", "a\nb"}) {
        ChildProcess program(QString::fromUtf8(GetParam()), {QString::fromUtf8(argument)},
                             bus.environment());
        ASSERT_TRUE(program.ends());
        EXPECT_EQ(program.status(), 2) << argument;
        const QString errors = QString::fromUtf8(program.errors());
        EXPECT_TRUE(errors.endsWith('\n'));
        for (const QChar character : errors.chopped(1))
            EXPECT_TRUE(character.isPrint()) << errors.toStdString();
    }
}

TEST(ProgramsTest, PrintNoControlCharactersOfWhatTheyRefuse) {
    const PrivateBus bus;
    const QString name = QString::fromUtf8("/a\x1B[2Jb\u009B/s");
    const std::pair<const char*, QStringList> refused[] = {
        {TERVALE_SIMULATOR, {"--socket", name}},
        {TERVALE_CTL, {"profiles", "validate", name}},
        {TERVALE_CTL, {"profiles", "export", "--simulate", name}}};
    for (const auto& [path, arguments] : refused) {
        ChildProcess program(QString::fromUtf8(path), arguments, bus.environment());
        ASSERT_TRUE(program.ends());
        EXPECT_EQ(program.status(), 1) << path;
        const QString errors = QString::fromUtf8(program.errors());
        EXPECT_TRUE(errors.contains("[2Jb")) << errors.toStdString();
        for (const QChar character : errors.chopped(1))
            EXPECT_TRUE(character.isPrint()) << errors.toStdString();
    }
}
