#include "app/rules/timewindow.h"

#include "base/daynumber.h"
#include "base/error.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

const std::vector<std::string> kNames{"Jan",  "Feb",   "Mars", "April", "Maj",  "Juni", "Juli",
                                      "Aug",  "Sep",   "Okt",  "Nov",   "Dec",  "Jan",  "Feb",
                                      "Mars", "April", "Maj",  "Juni",  "Juli", "Aug",  "Sep",
                                      "Okt",  "Nov",   "Dec",  "Jan"};

std::int32_t Day(const char* date) {
    return *ParseDate(date);
}

TEST(TimeWindow, MovesByFixedDayCountsToTheFirstOfAMonth) {
    struct Row {
        const char* from;
        WindowMove move;
        const char* to;
    };
    using enum WindowMove;
    const std::vector<Row> rows{
        {"2005-03-01", QuarterBack, "2004-12-01"},
        {"2004-12-01", QuarterAhead, "2005-03-01"},
        {"2005-04-01", OneMonthAhead, "2005-05-01"},
        {"2005-01-01", OneMonthAhead, "2005-02-01"},
        {"2004-02-01", OneMonthAhead, "2004-03-01"},
        {"2005-12-01", OneMonthAhead, "2006-01-01"},
        {"2005-04-01", YearBack, "2004-04-01"},
        {"2005-04-01", YearAhead, "2006-04-01"},
        {"2004-03-01", YearBack, "2003-03-01"},
        // 365 days fall one day short over a 29th of February: eleven months only
        {"2004-01-01", YearAhead, "2004-12-01"},
        {"2004-02-01", YearAhead, "2005-01-01"},
        {"2004-03-01", YearAhead, "2005-03-01"},
        {"2003-03-01", YearAhead, "2004-02-01"},
        {"2003-04-01", YearAhead, "2004-03-01"},
        {"2003-02-01", YearAhead, "2004-02-01"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FormatDay(MovedStart(Day(row.from), row.move)), row.to) << row.from;
    }
}

TEST(TimeWindow, EndsWhereTheCalendarEnds) {
    EXPECT_THROW(MovedStart(kLastDay - 30, WindowMove::OneMonthAhead), Error);
    EXPECT_THROW(MovedStart(kFirstDay, WindowMove::YearBack), Error);
}

TEST(TimeWindow, StartsWithTheMonthAfterTodaysOneYearBack) {
    struct Row {
        const char *today, *start;
    };
    const std::vector<Row> rows{
        {"2026-03-15", "2025-04-01"}, {"2026-03-31", "2025-04-01"}, {"2026-11-16", "2025-12-01"},
        {"2026-12-01", "2026-01-01"}, {"2026-12-31", "2026-01-01"}, {"2026-01-01", "2025-02-01"},
        {"2024-02-29", "2023-03-01"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FormatDay(FirstWindowStart(Day(row.today))), row.start) << row.today;
    }
}

TEST(TimeWindow, ShowsTheNextMonthFromTheSixteenthOn) {
    EXPECT_FALSE(ShowsNextMonth(Day("2026-03-01")));
    EXPECT_FALSE(ShowsNextMonth(Day("2026-03-15")));
    EXPECT_TRUE(ShowsNextMonth(Day("2026-03-16")));
    EXPECT_TRUE(ShowsNextMonth(Day("2026-03-31")));
}

TEST(TimeWindow, StandsWhereTheDaySaysWhenTheProgramComesUp) {
    const struct {
        const char *today, *start;
    } rows[] = {
        {"2026-03-15", "2025-04-01"}, {"2026-03-16", "2025-05-01"}, {"2026-11-30", "2026-01-01"},
        {"2026-12-01", "2026-01-01"}, {"2026-12-16", "2026-02-01"},
    };
    for (const auto& row : rows) EXPECT_EQ(WindowStartFor(Day(row.today)), Day(row.start));
}

TEST(TimeWindow, LabelsReadTwelveMonthsFromItsStart) {
    const WindowLabels april = LabelsOf(Day("2025-04-01"), kNames);
    EXPECT_EQ(april.months,
              (std::array<std::string, 12>{"April", "Maj", "Juni", "Juli", "Aug", "Sep", "Okt",
                                           "Nov", "Dec", "Jan", "Feb", "Mars"}));
    EXPECT_EQ(april.leftYear, "2025");
    EXPECT_EQ(april.rightYear, "2026");

    const WindowLabels december = LabelsOf(Day("2025-12-01"), kNames);
    EXPECT_EQ(december.months.front(), "Dec");
    EXPECT_EQ(december.months.back(), "Nov");
    EXPECT_EQ(december.rightYear, "2026");
}

TEST(TimeWindow, AJanuaryStartShowsOneYearUnderBothHalves) {
    const WindowLabels january = LabelsOf(Day("2026-01-01"), kNames);
    EXPECT_EQ(january.months.front(), "Jan");
    EXPECT_EQ(january.months.back(), "Dec");
    EXPECT_EQ(january.leftYear, "2026");
    EXPECT_EQ(january.rightYear, "2026");
}

TEST(TimeWindow, TooFewMonthNamesAreASubscriptOutOfRange) {
    const std::vector<std::string> oneYear(kNames.begin(), kNames.begin() + 12);
    EXPECT_NO_THROW(LabelsOf(Day("2026-01-01"), oneYear));
    try {
        LabelsOf(Day("2026-02-01"), oneYear);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
    }
}

}  // namespace
