#include "TervaleWindow/Shots/Gallery.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

constexpr const char* golden = TERVALE_SOURCES "/Tests/TervaleWindow/Shots/golden/";

QSet<QString> setOf(const QStringList& list) {
    return {list.begin(), list.end()};
}

QString read(const char* name) {
    QFile file(QString(TERVALE_SOURCES "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name;
    return QString::fromUtf8(file.readAll());
}

QStringList captures(const QString& text, const char* pattern) {
    QStringList found;
    const QRegularExpression expression{QLatin1String(pattern),
                                        QRegularExpression::MultilineOption};
    for (auto all = expression.globalMatch(text); all.hasNext();)
        found << all.next().captured(1);
    return found;
}

/// The pictures that a document shows.
QStringList shown(const char* document) {
    return captures(read(document), "Tests/TervaleWindow/Shots/golden/([^)\"\\s]+)");
}

std::string text(const QSet<QString>& names) {
    return QStringList(names.values()).join(", ").toStdString();
}

} // namespace

TEST(Gallery, HasANameForEachScene) {
    const QStringList names = galleryNames();
    EXPECT_EQ(setOf(names).size(), names.size());
    EXPECT_GT(names.size(), 20);
}

TEST(Gallery, KeepsAPictureOfEverySceneAtEveryScaleAndNoOther) {
    QSet<QString> wanted{"drawn-with.txt"};
    for (const QString& scale : galleryScales())
        wanted += setOf(galleryFiles(scale));
    const QSet<QString> kept = setOf(QDir(golden).entryList(QDir::Files | QDir::Hidden));
    EXPECT_TRUE((wanted - kept).isEmpty()) << text(wanted - kept);
    EXPECT_TRUE((kept - wanted).isEmpty()) << text(kept - wanted);
}

TEST(Gallery, IsShownByThePicturesThatAreKept) {
    for (const char* document : {"README.md", "docs/gallery.md"}) {
        const QStringList pictures = shown(document);
        EXPECT_FALSE(pictures.isEmpty()) << document;
        for (const QString& picture : pictures)
            EXPECT_TRUE(QFile::exists(golden + picture)) << picture.toStdString();
    }
}

TEST(Gallery, TellsOfEverySceneOnceAndOfNoOther) {
    const QString page = read("docs/gallery.md");
    const qsizetype heading = page.indexOf("\n## Not shown here\n");
    ASSERT_GT(heading, 0);
    QSet<QString> pictured;
    for (const QString& picture : shown("docs/gallery.md"))
        pictured << captures(picture, "^(.*)-(?:light|dark)@").value(0);
    const QStringList rows =
        captures(page.mid(heading + 1).section("\n## ", 0, 0), "^\\| `([^`]+)` \\|");
    const QSet<QString> listed = setOf(rows);
    EXPECT_EQ(listed.size(), rows.size()) << "one is listed twice";
    const QSet<QString> told = pictured + listed;
    const QSet<QString> wanted = setOf(galleryNames());
    EXPECT_TRUE((wanted - told).isEmpty()) << "not told of: " << text(wanted - told);
    EXPECT_TRUE((told - wanted).isEmpty()) << "no scenes: " << text(told - wanted);
    const QSet<QString> both = pictured & listed;
    EXPECT_TRUE(both.isEmpty()) << "shown and listed: " << text(both);
}
