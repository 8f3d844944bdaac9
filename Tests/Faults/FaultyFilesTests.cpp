#include "JSON/JSON.h"
#include "Platform/FileDescriptor.h"
#include "Profiles/Profile.h"
#include "Support/ChildProcess.h"
#include "Support/TemporaryFolder.h"

#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <fstream>
#include <functional>
#include <iterator>
#include <sys/stat.h>

using namespace tervale;

namespace {

const Curve rising{{{30, 0.2}, {80, 0.8}}};
// More than one of the system's buffers holds.
const std::vector<Profile> news(200, {UUID::random(), "New", kind::Load{rising}});
constexpr const char* old = "[]";
constexpr const char* unreadable = "no list";
const QString storeOnce = QStringLiteral(TERVALE_STORE_ONCE);
const QString ctl = QStringLiteral(TERVALE_CTL);

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

    QStringList exportArguments() const {
        return {"profiles", "export", "--simulate", QString::fromStdString(file)};
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
        return {process.status(), process.errors().toStdString(),
                std::filesystem::is_fifo(file) ? std::nullopt : contentOf(file),
                calls ? std::stol(*calls) : 0};
    }
    /// What lies at the file's place before each run.
    enum class Before : std::uint8_t { nothing, list, link, rubbish, pipe };

    void prepare(Before before) {
        std::filesystem::remove_all(below);
        std::filesystem::create_directory(below);
        switch (before) {
        case Before::nothing:
            break;
        case Before::list:
            std::ofstream(file) << old;
            break;
        case Before::link:
            std::ofstream(below / "elsewhere") << old;
            std::filesystem::create_symlink("elsewhere", file);
            break;
        case Before::rubbish:
            std::ofstream(file) << unreadable;
            break;
        case Before::pipe:
            ASSERT_EQ(::mkfifo(file.c_str(), S_IRUSR | S_IWUSR), 0);
            // Whoever opens it finds the other end open.
            pipe = FileDescriptor(::open(file.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
            break;
        }
    }
    /// Runs it with one call after another failing in each of the ways. Every run ends, and with a
    /// reason unless all went well. `look` is at what each has left.
    void withEveryFault(const QString& program, const QStringList& arguments,
                        const std::string& input, Before before,
                        const std::function<void(const Outcome&)>& look) {
        for (const Fault fault :
             {Fault{0, false}, Fault{ENOSPC, false}, Fault{EIO, false}, Fault{EDQUOT, false},
              Fault{EROFS, false}, Fault{EACCES, false}, Fault{EMFILE, false}, Fault{EINTR, false},
              Fault{ENOSPC, true}, Fault{EIO, true}, Fault{EACCES, true}}) {
            long calls = 1;
            for (long call = 0; call <= calls; ++call) {
                prepare(before);
                const Outcome outcome = run(program, arguments, input, call, fault);
                SCOPED_TRACE("call " + std::to_string(call) + " of " +
                             std::to_string(outcome.calls) + ", error " +
                             std::to_string(fault.error) + (fault.lasts ? " from then on" : "") +
                             ", " + outcome.errors);
                // The first run goes well, and tells how many calls there are.
                if (call == 0) {
                    calls = outcome.calls;
                    ASSERT_GT(calls, 3);
                    ASSERT_EQ(outcome.status, 0);
                }
                ASSERT_TRUE(outcome.status == 0 || outcome.status == 1);
                EXPECT_TRUE(outcome.status == 0 || !outcome.errors.empty());
                look(outcome);
            }
        }
    }
    /// Whatever call fails, the file holds the old or the new text, and a failure is told.
    void expectOldOrNewAndTold(const QString& program, const QStringList& arguments,
                               const std::string& input, Before before) {
        std::optional<std::string> fresh;
        withEveryFault(program, arguments, input, before, [&](const Outcome& outcome) {
            if (!fresh)
                fresh = outcome.content;
            const bool hadContent = before != Before::nothing;
            const auto previous = hadContent ? std::optional<std::string>(old) : std::nullopt;
            EXPECT_TRUE(outcome.status != 0 || outcome.content == fresh);
            EXPECT_TRUE(outcome.content == fresh || outcome.content == previous);
            EXPECT_EQ(std::filesystem::is_symlink(file), before == Before::link);
        });
        EXPECT_TRUE(fresh);
    }
    /// What is in the folder, apart from the names that the calls themselves give.
    std::vector<std::string> everythingStored() const {
        std::vector<std::string> contents;
        for (const auto& entry : std::filesystem::directory_iterator(below))
            contents.push_back(contentOf(entry.path()).value_or(""));
        return contents;
    }

    TemporaryFolder folder;
    std::filesystem::path below = folder.path / "below";
    std::filesystem::path file = below / "profiles";
    std::filesystem::path report = folder.path / "report";
    FileDescriptor pipe;
    QProcessEnvironment environment;
};

} // namespace

TEST_F(FaultyFilesTest, HoldTheOldProfilesOrTheNewOnesAndTellWhenTheStoreFails) {
    const QStringList arguments{"store", QString::fromStdString(below)};
    expectOldOrNewAndTold(storeOnce, arguments, encode(news), Before::list);
}

TEST_F(FaultyFilesTest, HoldNoProfilesOrTheNewOnesWhenTheFirstStoreFails) {
    file = below / "new" / "folder" / "profiles";
    const QStringList arguments{"store", QString::fromStdString(file.parent_path())};
    expectOldOrNewAndTold(storeOnce, arguments, encode(news), Before::nothing);
}

TEST_F(FaultyFilesTest, HoldTheOldProfilesOrTheNewOnesAtTheEndOfALinkThatStays) {
    const QStringList arguments{"store", QString::fromStdString(below)};
    expectOldOrNewAndTold(storeOnce, arguments, encode(news), Before::link);
}

TEST_F(FaultyFilesTest, HoldProfilesAsTheyAreHoweverAStartFails) {
    withEveryFault(storeOnce, {"start", QString::fromStdString(below)}, {}, Before::list,
                   [](const Outcome& outcome) { EXPECT_EQ(outcome.content, old); });
}

TEST_F(FaultyFilesTest, HoldWhatCannotBeReadAsItIsHoweverAStartFails) {
    withEveryFault(storeOnce, {"start", QString::fromStdString(below)}, {}, Before::rubbish,
                   [](const Outcome& outcome) { EXPECT_EQ(outcome.content, unreadable); });
}

TEST_F(FaultyFilesTest, HoldWhatCannotBeReadBesideWhateverTakesItsPlace) {
    std::optional<std::string> fresh;
    withEveryFault(storeOnce, {"replace", QString::fromStdString(below)}, encode(news),
                   Before::rubbish, [&](const Outcome& outcome) {
                       if (!fresh)
                           fresh = outcome.content;
                       EXPECT_TRUE(outcome.content == fresh || outcome.content == unreadable);
                       EXPECT_TRUE(outcome.status != 0 || outcome.content == fresh);
                       EXPECT_GE(std::ranges::count(everythingStored(), std::string(unreadable)),
                                 1);
                   });
    EXPECT_NE(fresh, unreadable);
}

TEST_F(FaultyFilesTest, HoldTheOldExportOrTheNewOneAndTellWhenItFails) {
    expectOldOrNewAndTold(ctl, exportArguments(), {}, Before::list);
}

TEST_F(FaultyFilesTest, HoldNoExportOrAWholeOneWhenTheFirstFails) {
    expectOldOrNewAndTold(ctl, exportArguments(), {}, Before::nothing);
}

TEST_F(FaultyFilesTest, LeaveAPipeInItsPlaceHoweverAnExportIntoItFails) {
    withEveryFault(ctl, exportArguments(), {}, Before::pipe,
                   [this](const Outcome&) { EXPECT_TRUE(std::filesystem::is_fifo(file)); });
}
