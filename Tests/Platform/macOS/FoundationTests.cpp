#include "Platform/macOS/FoundationSession.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <fstream>
#include <ostream>

using namespace tervale;

/// For what a test that fails says.
static void PrintTo(const QString& text, std::ostream* stream) {
    *stream << text.toStdString();
}

namespace {

QStringList words(const char* text) {
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

const QString a = QStringLiteral("61");
const QString end = QStringLiteral("656e64");
const QString nothing = QStringLiteral("nothing");

class FoundationTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_TRUE(session.serves()); }

    FoundationSession session;
};

/// A process that observes, and another that posts to it.
class DistributedNotificationsTest : public FoundationTest {
  protected:
    /// What the observing process says of what the other does, once it has said so many lines of
    /// it. Sorted, because the server of this library keeps no order.
    QStringList observed(const char* how, const QStringList& posting, int count) {
        ChildProcess observer(QStringLiteral(TERVALE_FOUNDATION_PROGRAM),
                              {QString::fromLatin1(how)}, session.environment());
        EXPECT_TRUE(observer.says("ready\n"));
        const auto linesBefore = observer.output().count('\n');
        EXPECT_EQ(session.run(posting), QStringList());
        EXPECT_TRUE(
            eventually([&] { return observer.output().count('\n') >= linesBefore + count; }));
        EXPECT_EQ(session.run({QStringLiteral("post"), end, nothing}), QStringList());
        EXPECT_TRUE(observer.ends());
        EXPECT_EQ(observer.status(), 0);
        EXPECT_EQ(observer.errors(), QByteArray());
        QStringList lines = QString::fromUtf8(observer.output()).split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        return lines;
    }
    static QStringList of(const char* who, const QStringList& lines) {
        return lines.filter(QRegularExpression(QLatin1String("^") + QLatin1String(who)));
    }
};

class UserDefaultsTest : public FoundationTest {
  protected:
    QStringList load(const char* keys) {
        return session.run(words("load com.velnor.tervale") + words(keys));
    }
    void store(const char* command, const char* key, const QString& value) {
        EXPECT_EQ(session.run({QString::fromLatin1(command), QStringLiteral("com.velnor.tervale"),
                               QString::fromLatin1(key), value}),
                  QStringList());
    }
};

/// The program in a bundle.
class BundleTest : public FoundationTest {
  protected:
    void layOut(const std::string& dictionary) {
        const std::filesystem::path folder = session.path("Tervale.app");
        // Here this library looks for the file that lies in "Contents" on a Mac.
        std::filesystem::create_directories(folder / "Resources");
        std::ofstream(folder / "Resources" / "Info.plist")
            << R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)" << dictionary
            << "</dict></plist>";
        std::filesystem::copy_file(TERVALE_FOUNDATION_PROGRAM, folder / "Tervale");
        program = QString::fromStdString((folder / "Tervale").string());
    }

    const std::string identifier = "<key>CFBundleIdentifier</key><string>com.velnor.tervale"
                                   "</string>";
    QString program;
};

} // namespace

TEST_F(FoundationTest, LeavesTextAsItIs) {
    EXPECT_EQ(
        session.run(words("convert 61 c3a9 e282ac f09f9880 00610000 efbfbd") + QStringList("")),
        words("<61> <c3a9> <e282ac> <f09f9880> <00610000> <efbfbd> <>"));
}

TEST_F(FoundationTest, ReplacesEveryByteThatIsNoText) {
    EXPECT_EQ(session.run(words("convert ff 80 61ff62 ff00 c3 e282 e28261 f09f98 c080 eda080 "
                                "f5808080 ffc3a9")),
              words("<efbfbd> <efbfbd> <61efbfbd62> <efbfbd00> <efbfbd> <efbfbdefbfbd> "
                    "<efbfbdefbfbd61> <efbfbdefbfbdefbfbd> <efbfbdefbfbd> "
                    "<efbfbdefbfbdefbfbd> <efbfbdefbfbdefbfbdefbfbd> <efbfbdc3a9>"));
}

TEST_F(FoundationTest, TakesOtherObjectsForNoText) {
    EXPECT_EQ(session.run(words("convert-foreign number array data string")).mid(0, 5),
              words("nothing nothing nothing <7b7d> nothing"));
}

TEST_F(FoundationTest, HoldsOnToNothing) {
    const QStringList lines = session.run(words("count-left com.velnor.tervale"));
    ASSERT_EQ(lines.size(), 1);
    bool isNumber = false;
    // Of a hundred rounds. The library's caches may grow by a few.
    EXPECT_LT(lines[0].toInt(&isNumber), 50);
    EXPECT_TRUE(isNumber) << lines[0].toStdString();
}

TEST_F(DistributedNotificationsTest, ReachEveryObserverInAnotherProcess) {
    const QStringList lines = observed("observe",
                                       {QStringLiteral("post"),
                                        a,
                                        QStringLiteral("7b7d"),
                                        a,
                                        nothing,
                                        a,
                                        {},
                                        QStringLiteral("62"),
                                        QStringLiteral("7b7d")},
                                       6);
    EXPECT_EQ(lines, QStringList({"done", "first <7b7d>", "first <>", "first nothing", "ready",
                                  "second <7b7d>", "second <>", "second nothing"}));
}

TEST_F(DistributedNotificationsTest, CarryZerosAndRepairWhatIsNoText) {
    EXPECT_EQ(of("first", observed("observe", words("post 61 ff00c3 61 0061 61 f09f9880"), 6)),
              QStringList({"first <0061>", "first <efbfbd00efbfbd>", "first <f09f9880>"}));
}

TEST_F(DistributedNotificationsTest, CarryAWholeModel) {
    const QString large = QStringLiteral("7b").repeated(50'000);
    EXPECT_EQ(of("first", observed("observe", {QStringLiteral("post"), a, large}, 2)),
              QStringList({"first <" + large + ">"}));
}

TEST_F(DistributedNotificationsTest, CountAsOnesWithoutAStringWhenTheyCarryAnythingElse) {
    EXPECT_EQ(of("first", observed("observe", words("post-foreign number array data string"), 8)),
              QStringList({"first <7b7d>", "first nothing", "first nothing", "first nothing"}));
}

TEST_F(DistributedNotificationsTest, PassAnObserverThatWasLetGo) {
    EXPECT_EQ(observed("observe-and-let-go", words("post 61 7b7d"), 1),
              QStringList({"done", "kept <7b7d>", "owned by 1", "ready"}));
}

TEST_F(DistributedNotificationsTest, PassAnObserverWhoseCenterIsGone) {
    EXPECT_EQ(observed("observe-beyond-the-center", words("post 61 7b7d"), 1),
              QStringList({"done", "kept <7b7d>", "owned by 1", "ready"}));
}

TEST_F(DistributedNotificationsTest, LetAnObserverLetItselfGo) {
    EXPECT_EQ(observed("observe-once", words("post 61 7b7d 61 7b7d 61 7b7d"), 5),
              QStringList({"done", "kept <7b7d>", "kept <7b7d>", "kept <7b7d>", "once <7b7d>",
                           "owned by 2", "ready", "then by 1"}));
}

TEST_F(DistributedNotificationsTest, AreDeliveredOnTheMainThread) {
    EXPECT_EQ(observed("observe-behind-a-thread", words("post 61 7b7d"), 2),
              QStringList({"done", "first <7b7d>", "ready", "second <7b7d>"}));
}

TEST_F(DistributedNotificationsTest, ArePostedFromAnyThread) {
    EXPECT_EQ(session.run(words("post-from-a-thread")),
              QStringList({"ready", "first <7b7d>", "done"}));
}

TEST_F(UserDefaultsTest, OutliveTheProcess) {
    store("store", "profiles", QStringLiteral("00ff7b00"));
    store("store", "empty", {});
    store("store", "other", QStringLiteral("01"));
    store("store", "other", QStringLiteral("0203"));
    EXPECT_EQ(load("profiles empty other absent"), words("<00ff7b00> <> <0203> nothing"));
    EXPECT_TRUE(std::filesystem::exists(session.path("defaults") / "com.velnor.tervale.plist"));
}

TEST_F(UserDefaultsTest, ReadAsAbsentWhereTheyAreNoData) {
    for (const char* kind : {"number", "array", "string", "data"})
        store("store-foreign", kind, QString::fromLatin1(kind));
    EXPECT_EQ(load("number array string data"), words("nothing nothing nothing <7b7d>"));
    store("store", "number", QStringLiteral("07"));
    EXPECT_EQ(load("number"), words("<07>"));
}

TEST_F(BundleTest, TellsItsTexts) {
    layOut(identifier + "<key>CFBundleVersion</key><string>2.1</string><key>A</key><integer>7"
                        "</integer><key>B</key><array><string>x</string></array>");
    EXPECT_EQ(session.run(program, words("metadata CFBundleVersion A B Missing")),
              QStringList({"bundle", "<322e31>", "nothing", "nothing", "nothing"}));
}

TEST_F(BundleTest, IsNoneWithoutAnIdentifier) {
    layOut("<key>CFBundleVersion</key><string>2.1</string>");
    EXPECT_EQ(session.run(program, words("metadata")), QStringList({"no bundle"}));
}

TEST_F(BundleTest, IsNoneAroundAProgramAlone) {
    EXPECT_EQ(session.run(words("metadata CFBundleVersion")), QStringList({"no bundle", nothing}));
}

TEST_F(BundleTest, KeepsItsOwnDefaults) {
    layOut(identifier);
    EXPECT_EQ(session.run(program, words("store com.velnor.tervale key 00ff")), QStringList());
    EXPECT_EQ(session.run(program, words("load com.velnor.tervale key absent")),
              QStringList({"<00ff>", nothing}));
}
