#include "JSON/JSON.h"
#include "Profiles/Profile.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <cerrno>
#include <fstream>
#include <iterator>

using namespace tervale;

namespace {

const Curve rising{{{30, 0.2}, {80, 0.8}}};
// More than one of the system's buffers holds.
const std::vector<Profile> news(200, {UUID::random(), "New", kind::Load{rising}});
constexpr const char* old = "[]";

/// How a call fails; zero means that it writes half of what it should.
struct Fault {
    int error;
    bool lasts;
};

/// Runs a program again and again, while one call after another on its files fails.
class FaultyFilesTest : public testing::Test {
  protected:
    struct Outcome {
        int status = 0;
        std::string errors;
        /// Of the file; nothing if there is none.
        std::optional<std::string> content;
        long calls = 0;
    };

    FaultyFilesTest() {
        std::filesystem::create_directory(below);
        environment = QProcessEnvironment::systemEnvironment();
        const auto set = [this](const char* name, const std::string& value) {
            environment.insert(QString::fromLatin1(name), QString::fromStdString(value));
        };
        set("LD_PRELOAD", TERVALE_FAILING_CALLS);
        set("ASAN_OPTIONS", "verify_asan_link_order=0");
        set("TERVALE_FAULT_FOLDER", below);
        set("TERVALE_FAULT_REPORT", report);
        set("XDG_CONFIG_HOME", folder.path / "config");
        set("LC_ALL", "C.UTF-8");
    }

    static std::optional<std::string> contentOf(const std::filesystem::path& path) {
        std::ifstream stream(path);
        if (!stream)
            return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(stream), {});
    }
    Outcome run(const QString& program, const QStringList& arguments, const std::string& input,
                long call, const Fault& fault) {
        environment.insert(QStringLiteral("TERVALE_FAULT_AT"), QString::number(call));
        environment.insert(QStringLiteral("TERVALE_FAULT_ERROR"), QString::number(fault.error));
        environment.insert(QStringLiteral("TERVALE_FAULT_LASTS"),
                           QString::number(static_cast<int>(fault.lasts)));
        std::filesystem::remove(report);
        ChildProcess process(program, arguments, environment);
        process.write(QByteArray::fromStdString(input));
        process.closeInput();
        EXPECT_TRUE(process.ends());
        const auto calls = contentOf(report);
        EXPECT_TRUE(calls) << "the calls are not watched";
        return {process.status(), process.errors().toStdString(), contentOf(file),
                calls ? std::stol(*calls) : 0};
    }
    /// Whatever call fails, the file holds the old or the new text, and a failure is told.
    void expectOldOrNewAndTold(const QString& program, const QStringList& arguments,
                               const std::string& input, bool existed) {
        std::string fresh;
        for (const Fault fault : {Fault{0, false}, Fault{ENOSPC, false}, Fault{EIO, false},
                                  Fault{EDQUOT, false}, Fault{EROFS, false}, Fault{EACCES, false},
                                  Fault{ENOSPC, true}, Fault{EACCES, true}}) {
            long calls = 1;
            for (long call = 0; call <= calls; ++call) {
                std::filesystem::remove_all(below);
                std::filesystem::create_directory(below);
                if (existed)
                    std::ofstream(file) << old;
                const Outcome outcome = run(program, arguments, input, call, fault);
                const std::string what = "call " + std::to_string(call) + " of " +
                                         std::to_string(outcome.calls) + ", error " +
                                         std::to_string(fault.error) + ", " + outcome.errors;
                // The first run goes well, and tells how many calls there are.
                if (call == 0) {
                    calls = outcome.calls;
                    ASSERT_GT(calls, 4) << what;
                    ASSERT_EQ(outcome.status, 0) << what;
                    ASSERT_TRUE(outcome.content);
                    fresh = *outcome.content;
                }
                ASSERT_TRUE(outcome.status == 0 || outcome.status == 1) << what;
                if (outcome.status == 0)
                    EXPECT_EQ(outcome.content, fresh) << what;
                else
                    EXPECT_NE(outcome.errors, "") << what;
                if (outcome.content != fresh) {
                    const auto before = existed ? std::optional<std::string>(old) : std::nullopt;
                    EXPECT_EQ(outcome.content, before) << what;
                }
            }
        }
    }

    TemporaryFolder folder;
    std::filesystem::path below = folder.path / "below";
    std::filesystem::path file = below / "profiles";
    std::filesystem::path report = folder.path / "report";
    QProcessEnvironment environment;
};

} // namespace

TEST_F(FaultyFilesTest, HoldTheOldProfilesOrTheNewOnesAndTellWhenTheStoreFails) {
    const QString place = QString::fromStdString(below);
    expectOldOrNewAndTold(QStringLiteral(TERVALE_STORE_ONCE), {place}, encode(news), true);
}

TEST_F(FaultyFilesTest, HoldNoProfilesOrTheNewOnesWhenTheFirstStoreFails) {
    file = below / "new" / "folder" / "profiles";
    const QString place = QString::fromStdString(file.parent_path());
    expectOldOrNewAndTold(QStringLiteral(TERVALE_STORE_ONCE), {place}, encode(news), false);
}

TEST_F(FaultyFilesTest, HoldTheOldExportOrTheNewOneAndTellWhenItFails) {
    const QStringList arguments{"profiles", "export", "--simulate", QString::fromStdString(file)};
    expectOldOrNewAndTold(QStringLiteral(TERVALE_CTL), arguments, {}, true);
}

TEST_F(FaultyFilesTest, HoldNoExportOrAWholeOneWhenTheFirstFails) {
    const QStringList arguments{"profiles", "export", "--simulate", QString::fromStdString(file)};
    expectOldOrNewAndTold(QStringLiteral(TERVALE_CTL), arguments, {}, false);
}
