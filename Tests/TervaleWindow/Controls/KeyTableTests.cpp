#include "TervaleWindow/Controls/KeyTable.h"

#include <QFile>
#include <QKeyEvent>
#include <QStringList>

#include <gtest/gtest.h>

#include <set>

using namespace tervale;

namespace {

QKeyEvent press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    return QKeyEvent(QEvent::KeyPress, key, modifiers);
}

/// The rows of the manual's table, below its head.
QStringList readmeRows() {
    QFile file(QStringLiteral(TERVALE_README));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QString text = QString::fromUtf8(file.readAll());
    const QString section = text.section(QStringLiteral("## Keys\n"), 1).section("\n## ", 0, 0);
    QStringList rows;
    for (const QString& line : section.split('\n')) {
        if (line.startsWith('|'))
            rows << line;
    }
    return rows.mid(2);
}

} // namespace

TEST(KeyTable, IsWhatTheReadmeSays) {
    QStringList rows;
    for (const KeyRow& row : keyTable())
        rows << QStringLiteral("| %1 | %2 |")
                    .arg(shownKeys(row, QKeySequence::PortableText), row.title);
    EXPECT_EQ(readmeRows().join('\n').toStdString(), rows.join('\n').toStdString());
}

TEST(KeyTable, HasEachCommandOnceAndEachWithAKey) {
    std::set<KeyCommand> seen;
    for (const KeyRow& row : keyTable()) {
        EXPECT_TRUE(seen.insert(row.command).second) << row.title.toStdString();
        EXPECT_FALSE(row.keys.isEmpty()) << row.title.toStdString();
        for (const QKeySequence& key : row.keys) {
            EXPECT_EQ(key.count(), 1) << row.title.toStdString();
            EXPECT_FALSE(row.others.contains(key)) << row.title.toStdString();
        }
    }
    EXPECT_EQ(seen.size(), static_cast<std::size_t>(KeyCommand::showKeys) + 1);
}

TEST(KeyTable, KnowsTheKeysOfACommand) {
    const QKeyEvent right = press(Qt::Key_Right);
    const QKeyEvent altRight = press(Qt::Key_Right, Qt::AltModifier);
    const QKeyEvent farRight = press(Qt::Key_Right, Qt::AltModifier | Qt::ShiftModifier);
    EXPECT_TRUE(isKeyOf(KeyCommand::choosePoint, right));
    EXPECT_FALSE(isKeyOf(KeyCommand::movePoint, right));
    EXPECT_TRUE(isKeyOf(KeyCommand::movePoint, altRight));
    EXPECT_FALSE(isKeyOf(KeyCommand::movePointFar, altRight));
    EXPECT_TRUE(isKeyOf(KeyCommand::movePointFar, farRight));
    EXPECT_FALSE(isKeyOf(KeyCommand::choosePoint, press(Qt::Key_Up)));
}

TEST(KeyTable, TakesAPlusHoweverItIsTyped) {
    EXPECT_TRUE(isKeyOf(KeyCommand::addPoint, press(Qt::Key_Plus)));
    EXPECT_TRUE(isKeyOf(KeyCommand::addPoint, press(Qt::Key_Plus, Qt::ShiftModifier)));
    EXPECT_TRUE(isKeyOf(KeyCommand::addPoint, press(Qt::Key_Plus, Qt::KeypadModifier)));
}
