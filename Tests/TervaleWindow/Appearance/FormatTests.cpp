#include "TervaleWindow/Appearance/Format.h"

#include <QRegularExpression>
#include <QTime>

#include <gtest/gtest.h>

using namespace tervale;

namespace {

QString written(const QLocale& locale, const QTime& time) {
    return locale.toString(time, timeOfDayFormat(locale));
}

} // namespace

TEST(TimeOfDayFormat, KnowsTheHourAndTheMinuteAlone) {
    EXPECT_EQ(written(QLocale("C"), {14, 30}), "14:30");
    EXPECT_EQ(written(QLocale("de_DE"), {14, 30}), "14:30");
    EXPECT_EQ(written(QLocale("fr_CA"), {14, 30}), "14 h 30");
    EXPECT_TRUE(written(QLocale("en_US"), {14, 30}).endsWith("PM"));
}

TEST(TimeOfDayFormat, WritesThePartOfTheDayInWords) {
    EXPECT_EQ(written(QLocale("zh_TW"), {14, 30}), "下午2:30");
    EXPECT_EQ(written(QLocale("zh_TW"), {9, 5}), "上午9:05");
}

TEST(TimeOfDayFormat, HasNoLetterThatIsNoPartOfATimeInAnyLocale) {
    static const QRegularExpression quoted("'[^']*'");
    static const QRegularExpression parts("h{1,2}|H{1,2}|m{1,2}|AP|Ap|ap|A|a");
    static const QRegularExpression letter("[A-Za-z]");
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    ASSERT_GT(locales.size(), 100);
    for (const QLocale& locale : locales) {
        QString rest = timeOfDayFormat(locale);
        EXPECT_FALSE(rest.remove(quoted).remove(parts).contains(letter))
            << locale.name().toStdString() << " " << timeOfDayFormat(locale).toStdString();
    }
}

TEST(TimeOfDayFormat, TellsMorningFromAfternoonInEveryLocale) {
    const auto locales =
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory);
    for (const QLocale& locale : locales)
        EXPECT_NE(written(locale, {2, 30}), written(locale, {14, 30}))
            << locale.name().toStdString();
}
