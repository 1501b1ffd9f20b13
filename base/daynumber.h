#pragma once
// Days as numbers: day 0 is 30 December 1899. Dates in and out as text, with Swedish names.

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The days that have a date: 1 January 100 to 31 December 9999.
/// Outside, the functions below throw Overflow (6).
inline constexpr std::int32_t kFirstDay = -657434;
inline constexpr std::int32_t kLastDay = 2958465;

std::int32_t DayNumber(std::chrono::year_month_day date);
std::chrono::year_month_day DateOf(std::int32_t day);
/// The day of a date serial with a time of day in its fraction:
/// the nearest, a half to the even one.
std::int32_t DayOfSerial(double serial);

/// yyyy-mm-dd, yy-mm-dd, yyyy/mm/dd or yy/mm/dd, month and day also with one digit; blanks around
/// it are allowed. Years 00 to 29 are 2000 to 2029, 30 to 99 are 1930 to 1999.
/// Nothing if it is no date.
std::optional<std::int32_t> ParseDate(std::string_view text);

std::string FormatDay(std::int32_t day);       ///< 2006-02-24
std::string FormatDayShort(std::int32_t day);  ///< 06-02-24
std::string FormatDayLong(std::int32_t day);   ///< "24  februari 2006", two blanks after the day
std::string DateText(std::int32_t day);        ///< "Fredag 24 Februari 2006"

std::string_view WeekdayName(std::int32_t day);  ///< "fredag"
std::string_view MonthName(
    std::uint32_t month);  ///< 1 is "januari"; SubscriptOutOfRange (9) outside 1 to 12
