#include "Profiles/Validation.h"
#include "Support/NotANumber.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

using namespace tervale;

namespace {

using Problems = std::vector<std::string>;

using tervale::test::notANumber;
constexpr UUID own{{1}};
constexpr UUID curveId{{2}};
constexpr UUID scheduleId{{3}};

const std::string noName = "Give the profile a name.";
const std::string count = "A curve needs 2 to 8 points.";
const std::string order = "Points must go left to right, each above the one before.";
const std::string celsius = "Points must be between 0 and 120 °C.";
const std::string percent = "Points must be between 0 and 100 %.";
const std::string speeds = "Speeds must be between 0% and 100%.";
const std::string noWindow = "Add at least one time window.";
const std::string zeroLength = "A window cannot start and end at the same time.";
const std::string times = "Times must be within the day.";
const std::string overlap = "Windows overlap.";
const std::string runsItself = "A schedule cannot run itself.";
const std::string runsMissing = "A window runs a profile that no longer exists.";
const std::string runsSchedule = "A schedule cannot run another schedule.";

const Curve valid{{{0, 0}, {100, 1}}};
const std::vector<Profile> all{
    {own, "Own", kind::Schedule{}},
    {curveId, "Curve", kind::Load{valid}},
    {scheduleId, "Schedule", kind::Schedule{}},
    {curveId, "Hidden by the first of its id", kind::Schedule{}},
};

Problems ofName(const std::string& name) {
    return problems(Profile{own, name, kind::Load{valid}}, all);
}
Problems ofTemperature(const Curve& curve) {
    return problems(Profile{own, "x", kind::Temperature{{}, curve}}, all);
}
Problems ofLoad(const Curve& curve) {
    return problems(Profile{own, "x", kind::Load{curve}}, all);
}
Problems ofWindows(const std::vector<Window>& windows) {
    return problems(Profile{own, "x", kind::Schedule{windows}}, all);
}
Problems ofActions(const std::vector<Action>& actions) {
    std::vector<Window> windows;
    std::int64_t start = 0;
    for (const Action& action : actions) {
        windows.push_back({start, start + 10, action});
        start += 10;
    }
    return ofWindows(windows);
}
Window anAutomatic(std::int64_t start, std::int64_t end) {
    return {start, end, action::Automatic{}};
}

} // namespace

TEST(ProfileProblems, AreNoneForAValidProfile) {
    EXPECT_EQ(ofName("Quiet"), Problems{});
    EXPECT_EQ(ofWindows({anAutomatic(0, 720), anAutomatic(720, 0)}), Problems{});
}

TEST(ProfileProblems, IncludeABlankName) {
    for (const char* name : {"", " ", "   ", "\t", " \t "})
        EXPECT_EQ(ofName(name), Problems{noName}) << '"' << name << '"';
}

TEST(ProfileProblems, TakeEverySpaceSeparatorForBlank) {
    // U+00A0, U+1680, U+2000 to U+200A, U+202F, U+205F, U+3000.
    for (const char* space :
         {"\u00A0", "\u1680", "\u2000", "\u2001", "\u2002", "\u2003", "\u2004", "\u2005", "\u2006",
          "\u2007", "\u2008", "\u2009", "\u200A", "\u202F", "\u205F", "\u3000"}) {
        EXPECT_EQ(ofName(space), Problems{noName}) << space;
        EXPECT_EQ(ofName(std::string(" ") + space + "\t"), Problems{noName}) << space;
        EXPECT_EQ(ofName(std::string(space) + "x" + space), Problems{}) << space;
    }
}

TEST(ProfileProblems, TakeNothingElseForBlank) {
    // Line breaks, separators of lines and paragraphs, and what merely has no width.
    for (const char* name : {"\n", "\r", "\r\n", " \n ", "\v", "\f", "\u0085", "\u2028", "\u2029",
                             "\u200B", "\u180E", "\u2060", "\uFEFF", "\u2800", "x", " . "})
        EXPECT_EQ(ofName(name), Problems{}) << name;
    EXPECT_EQ(ofName(std::string(1, '\0')), Problems{});
}

TEST(ProfileProblems, TakeIllFormedTextForAName) {
    // A part of a space, a lone continuation, a space in more bytes than it needs.
    for (const char* name : {"\xC2", "\xE2\x80", "\x80", "\xA0", " \xE3\x80", "\xC0\xA0"})
        EXPECT_EQ(ofName(name), Problems{});
}

TEST(CurveProblems, IncludeTooFewOrTooManyPoints) {
    EXPECT_EQ(ofTemperature({}), Problems{count});
    EXPECT_EQ(ofTemperature({{{50, 0.5}}}), Problems{count});
    Curve curve;
    for (int i = 0; i < 8; ++i)
        curve.points.push_back({i * 10.0, 0.5});
    EXPECT_EQ(ofTemperature(curve), Problems{});
    curve.points.push_back({90, 0.5});
    EXPECT_EQ(ofTemperature(curve), Problems{count});
}

TEST(CurveProblems, IncludePointsOutOfOrderOnce) {
    EXPECT_EQ(ofTemperature({{{50, 0.3}, {50, 0.6}}}), Problems{order});
    EXPECT_EQ(ofTemperature({{{50, 0.3}, {40, 0.6}, {30, 0.7}}}), Problems{order});
    EXPECT_EQ(ofTemperature({{{10, 0.3}, {40, 0.6}, {39, 0.7}}}), Problems{order});
    EXPECT_EQ(ofTemperature({{{10, 0.9}, {40, 0.1}}}), Problems{}) << "speeds may fall";
}

TEST(CurveProblems, IncludePointsOutOfRangeOnce) {
    EXPECT_EQ(ofTemperature({{{0, 0}, {120, 1}}}), Problems{});
    EXPECT_EQ(ofTemperature({{{-0.5, 0}, {120.5, 1}}}), Problems{celsius});
    EXPECT_EQ(ofLoad({{{0, 0}, {100, 1}}}), Problems{});
    EXPECT_EQ(ofLoad({{{0, 0}, {100.5, 1}}}), Problems{percent});
    EXPECT_EQ(ofLoad({{{notANumber, 0}, {notANumber, 1}}}), Problems{percent})
        << "NaN is in no order";
}

TEST(CurveProblems, IncludeSpeedsOutOfRangeOnce) {
    EXPECT_EQ(ofLoad({{{0, -0.01}, {100, 1.01}}}), Problems{speeds});
    EXPECT_EQ(ofLoad({{{0, 0}, {100, notANumber}}}), Problems{speeds});
}

TEST(CurveProblems, ComeTogetherInTheirOrder) {
    EXPECT_EQ(ofTemperature({{{-5, 0.2}, {130, 1.2}}}), (Problems{celsius, speeds}));
    EXPECT_EQ(ofTemperature({{{-5, 1.2}}}), (Problems{count, celsius, speeds}));
    const Problems everything =
        problems(Profile{own, " ", kind::Load{{std::vector<CurvePoint>(9, {101, 2})}}}, all);
    EXPECT_EQ(everything, (Problems{noName, count, order, percent, speeds}));
}

TEST(ScheduleProblems, AreOneSentenceWithoutWindows) {
    EXPECT_EQ(ofWindows({}), Problems{noWindow});
}

TEST(ScheduleProblems, IncludeAWindowWithoutLengthOnce) {
    EXPECT_EQ(ofWindows({anAutomatic(60, 60)}), Problems{zeroLength});
    EXPECT_EQ(ofWindows({anAutomatic(0, 0), anAutomatic(600, 700)}),
              (Problems{zeroLength, overlap}));
    EXPECT_EQ(ofWindows({anAutomatic(0, 0), anAutomatic(5, 5)}), (Problems{zeroLength, overlap}));
}

TEST(ScheduleProblems, IncludeTimesOutsideTheDayOnce) {
    EXPECT_EQ(ofWindows({anAutomatic(0, 1439)}), Problems{});
    EXPECT_EQ(ofWindows({anAutomatic(0, 1440)}), Problems{times});
    EXPECT_EQ(ofWindows({anAutomatic(-1, 5), anAutomatic(1440, 3000)}), Problems{times});
    EXPECT_EQ(ofWindows({anAutomatic(0, 1440), anAutomatic(5, 6)}), (Problems{times, overlap}));
}

TEST(ScheduleProblems, IncludeAnOverlap) {
    EXPECT_EQ(ofWindows({anAutomatic(1320, 420), anAutomatic(400, 500)}), Problems{overlap});
    EXPECT_EQ(ofWindows({anAutomatic(1320, 420), anAutomatic(420, 1320)}), Problems{});
    EXPECT_EQ(ofWindows({anAutomatic(1438, 0), anAutomatic(1439, 0)}), Problems{overlap});
    EXPECT_EQ(ofWindows({anAutomatic(0, 1), anAutomatic(0, 1), anAutomatic(0, 1)}),
              Problems{overlap});
}

TEST(ScheduleProblems, IncludeASpeedOutOfRange) {
    EXPECT_EQ(ofActions({action::Fixed{0}, action::Fixed{1}}), Problems{});
    EXPECT_EQ(ofActions({action::Fixed{-0.1}, action::Fixed{1.1}, action::Fixed{notANumber}}),
              (Problems{speeds, speeds, speeds}));
}

TEST(ScheduleProblems, IncludeProfilesThatItCannotRun) {
    const Action missing = action::Profile{UUID{{9}}};
    EXPECT_EQ(ofActions({action::Profile{curveId}}), Problems{});
    EXPECT_EQ(ofActions({action::Profile{own}}), Problems{runsItself});
    EXPECT_EQ(ofActions({action::Profile{scheduleId}}), Problems{runsSchedule});
    EXPECT_EQ(ofActions({missing, missing}), (Problems{runsMissing, runsMissing}));
    EXPECT_EQ(ofActions({action::Profile{scheduleId}, action::Automatic{}, missing,
                         action::Fixed{2}, action::Profile{own}}),
              (Problems{runsSchedule, runsMissing, speeds, runsItself}));
}

TEST(ScheduleProblems, IncludeRunningItselfEvenWhenItIsNotListed) {
    const Profile self{own, "x", kind::Schedule{{{0, 10, action::Profile{own}}}}};
    EXPECT_EQ(problems(self, {}), Problems{runsItself});
}

TEST(ScheduleProblems, ComeWhenAProfileThatItRunsIsDeleted) {
    const Profile schedule{own, "x", kind::Schedule{{{0, 10, action::Profile{curveId}}}}};
    EXPECT_EQ(problems(schedule, all), Problems{});
    EXPECT_EQ(problems(schedule, std::vector{schedule}), Problems{runsMissing});
}

TEST(ScheduleProblems, ComeInTheirOrder) {
    EXPECT_EQ(ofWindows({{5, 5, action::Fixed{2}}, {0, 1440, action::Profile{own}}}),
              (Problems{zeroLength, times, overlap, speeds, runsItself}));
}

TEST(ScheduleProblems, FindAnOverlapWhereTheMinutesAreCountedTwice) {
    std::mt19937_64 random(5);
    const std::array<std::int64_t, 8> edges{
        std::numeric_limits<std::int64_t>::min(), -1, 0, 1, 1438, 1439, 1440,
        std::numeric_limits<std::int64_t>::max()};
    const auto time = [&] {
        if (random() % 8 == 0)
            return edges[random() % edges.size()];
        return static_cast<std::int64_t>(random() % 1440);
    };
    int overlapping = 0;
    for (int round = 0; round < 500; ++round) {
        std::array<int, 1440> counts{};
        std::vector<Window> windows;
        for (std::size_t i = random() % 4 + 1; i > 0; --i) {
            windows.push_back(anAutomatic(time(), time()));
            const auto [start, end, ignored] = windows.back();
            for (std::int64_t minute = 0; minute < 1440; ++minute) {
                const bool afterStart = minute >= start;
                const bool beforeEnd = minute < end;
                if (start < end ? afterStart && beforeEnd : afterStart || beforeEnd)
                    ++counts[static_cast<std::size_t>(minute)];
            }
        }
        const bool expected = std::ranges::any_of(counts, [](int covered) { return covered > 1; });
        const Problems found = ofWindows(windows);
        ASSERT_EQ(std::ranges::count(found, overlap), expected ? 1 : 0);
        overlapping += expected ? 1 : 0;
    }
    EXPECT_GT(overlapping, 50);
    EXPECT_LT(overlapping, 450);
}
