#include "base/daynumber.h"

#include "base/error.h"

#include <gtest/gtest.h>

namespace {

using namespace std::chrono;

TEST(DayNumber, CountsFromTheThirtiethOfDecember1899) {
    const struct {
        year_month_day date;
        std::int32_t day;
    } rows[] = {
        {1899y / December / 30, 0},        {1899y / December / 31, 1},
        {1900y / January / 1, 2},          {2000y / January / 1, 36526},
        {2000y / December / 31, 36891},    {2006y / February / 24, 38772},
        {1899y / December / 29, -1},       {100y / January / 1, kFirstDay},
        {9999y / December / 31, kLastDay},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(DayNumber(row.date), row.day);
        EXPECT_EQ(DateOf(row.day), row.date);
    }
}

TEST(DayNumber, OutsideTheCalendarOverflows) {
    EXPECT_THROW(DateOf(kLastDay + 1), Error);
    EXPECT_THROW(DateOf(kFirstDay - 1), Error);
    EXPECT_THROW(FormatDay(2147483647), Error);
    EXPECT_THROW(DayOfSerial(1e12), Error);
}

TEST(DayOfSerial, RoundsATimeOfDayToTheNearestDay) {
    EXPECT_EQ(DayOfSerial(38772.0), 38772);
    EXPECT_EQ(DayOfSerial(38772.25), 38772);
    EXPECT_EQ(DayOfSerial(38772.5), 38772);
    EXPECT_EQ(DayOfSerial(38773.5), 38774);
    EXPECT_EQ(DayOfSerial(38772.75), 38773);
}

TEST(ParseDate, ReadsTheFormsThatAreTyped) {
    const struct {
        std::string_view text;
        year_month_day date;
    } rows[] = {
        {"2000-12-31", 2000y / December / 31},   {"01-12-31", 2001y / December / 31},
        {"01/12/31", 2001y / December / 31},     {"2001/12/31", 2001y / December / 31},
        {"2006-2-4", 2006y / February / 4},      {"06/2/4", 2006y / February / 4},
        {" 2006-02-24 ", 2006y / February / 24}, {"29-01-01", 2029y / January / 1},
        {"30-01-01", 1930y / January / 1},       {"99-12-31", 1999y / December / 31},
        {"00-01-01", 2000y / January / 1},       {"2004-02-29", 2004y / February / 29},
        {"1899-12-30", 1899y / December / 30},
    };
    for (const auto& row : rows) EXPECT_EQ(ParseDate(row.text), DayNumber(row.date)) << row.text;
}

TEST(ParseDate, RefusesWhatIsNoDate) {
    for (const std::string_view text :
         {"",           " ",           "2000",        "2000-12",      "2000-13-01", "2000-02-30",
          "2005-02-29", "2000-00-10",  "2000-10-00",  "2000-12-31-1", "2000-12/31", "31-12-2000",
          "200-12-31",  "1-12-31",     "20001-01-01", "20001231",     "2000-123-1", "a-b-c",
          "2000-1a-01", "-2000-12-31", "2000--12-31", "0000-01-01",   "0099-12-31", "38772",
          "2000-12-",   "+200-1-1"}) {
        EXPECT_EQ(ParseDate(text), std::nullopt) << text;
    }
}

TEST(FormatDay, ShowsYearMonthAndDay) {
    EXPECT_EQ(FormatDay(0), "1899-12-30");
    EXPECT_EQ(FormatDay(38772), "2006-02-24");
    EXPECT_EQ(FormatDay(kFirstDay), "0100-01-01");
    EXPECT_EQ(FormatDayShort(38772), "06-02-24");
}

TEST(FormatDayLong, HasTwoBlanksAfterTheDay) {
    EXPECT_EQ(FormatDayLong(DayNumber(2006y / April / 11)), "11  april 2006");
    EXPECT_EQ(FormatDayLong(DayNumber(2006y / December / 1)), "1  december 2006");
}

TEST(DateText, BeginsEveryWordWithACapital) {
    EXPECT_EQ(DateText(DayNumber(2026y / November / 16)), "Måndag 16 November 2026");
    EXPECT_EQ(DateText(DayNumber(2006y / February / 4)), "Lördag 4 Februari 2006");
    EXPECT_EQ(DateText(0), "Lördag 30 December 1899");
    EXPECT_EQ(DateText(1), "Söndag 31 December 1899");
}

TEST(WeekdayName, KnowsAllSeven) {
    const std::string_view names[] = {"måndag", "tisdag", "onsdag", "torsdag",
                                      "fredag", "lördag", "söndag"};
    const std::int32_t monday = DayNumber(2026y / November / 16);
    for (int i = 0; i < 14; ++i) EXPECT_EQ(WeekdayName(monday + i), names[i % 7]);
}

TEST(MonthName, KnowsAllTwelveAndNoOther) {
    EXPECT_EQ(MonthName(1), "januari");
    EXPECT_EQ(MonthName(8), "augusti");
    EXPECT_EQ(MonthName(12), "december");
    EXPECT_THROW(MonthName(0), Error);
    EXPECT_THROW(MonthName(13), Error);
}

}  // namespace
