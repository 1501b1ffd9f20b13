#include "base/daynumber.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"

#include <algorithm>
#include <array>

namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kDayZero{year{1899} / month{12} / day{30}};
constexpr std::int32_t kCenturyTurn = 30;  // two-digit years from here on belong to the 1900s

void CheckRange(std::int64_t number) {
    if (number < kFirstDay || number > kLastDay) {
        throw Error{ErrorNumber::Overflow, "day number without a date: " + PlainText(number)};
    }
}

std::string Padded(std::int64_t value, std::size_t width) {
    std::string text = PlainText(value);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

/// The whole piece as a number, if it is `from` to `to` digits and nothing else.
std::optional<std::int32_t> Digits(std::string_view piece, std::size_t from, std::size_t to) {
    if (piece.size() < from || piece.size() > to) return std::nullopt;
    const bool digits =
        std::all_of(piece.begin(), piece.end(), [](char c) { return c >= '0' && c <= '9'; });
    if (!digits) return std::nullopt;
    return ParseInteger(piece);
}

std::optional<std::int32_t> Year(std::string_view piece) {
    const auto number = Digits(piece, 2, 4);
    if (!number || piece.size() == 3) return std::nullopt;
    if (piece.size() == 4) return number;
    return *number < kCenturyTurn ? 2000 + *number : 1900 + *number;
}

}  // namespace

std::int32_t DayNumber(year_month_day date) {
    const std::int64_t number = (sys_days{date} - kDayZero).count();
    CheckRange(number);
    return static_cast<std::int32_t>(number);
}

year_month_day DateOf(std::int32_t number) {
    CheckRange(number);
    return year_month_day{kDayZero + std::chrono::days{number}};
}

std::int32_t DayOfSerial(double serial) {
    const std::int32_t number = RoundHalfEven(serial);
    CheckRange(number);
    return number;
}

std::optional<std::int32_t> ParseDate(std::string_view text) {
    const std::string trimmed = Trim(text);
    const bool slashes = trimmed.find('/') != std::string::npos;
    const auto pieces = Split(trimmed, slashes ? "/" : "-");
    if (pieces.size() != 3) return std::nullopt;
    const auto y = Year(pieces[0]);
    const auto m = Digits(pieces[1], 1, 2);
    const auto d = Digits(pieces[2], 1, 2);
    if (!y || !m || !d) return std::nullopt;
    const year_month_day date{year{*y}, month{static_cast<unsigned>(*m)},
                              day{static_cast<unsigned>(*d)}};
    constexpr std::int32_t kFirstYear = 100;
    if (!date.ok() || *y < kFirstYear) return std::nullopt;
    return DayNumber(date);
}

std::string FormatDay(std::int32_t number) {
    const year_month_day date = DateOf(number);
    return Padded(static_cast<int>(date.year()), 4) + "-" + Padded(unsigned{date.month()}, 2) +
           "-" + Padded(unsigned{date.day()}, 2);
}

std::string FormatDayShort(std::int32_t number) {
    return FormatDay(number).substr(2);
}

std::string FormatDayLong(std::int32_t number) {
    const year_month_day date = DateOf(number);
    return PlainText(std::int64_t{unsigned{date.day()}}) + "  " +
           std::string(MonthName(unsigned{date.month()})) + " " +
           PlainText(static_cast<int>(date.year()));
}

std::string DateText(std::int32_t number) {
    const year_month_day date = DateOf(number);
    return ProperCase(std::string(WeekdayName(number)) + " " +
                      PlainText(std::int64_t{unsigned{date.day()}}) + " " +
                      std::string(MonthName(unsigned{date.month()})) + " " +
                      PlainText(static_cast<int>(date.year())));
}

std::string_view WeekdayName(std::int32_t number) {
    constexpr std::array<std::string_view, 7> kNames = {"söndag",  "måndag", "tisdag", "onsdag",
                                                        "torsdag", "fredag", "lördag"};
    CheckRange(number);
    return kNames[std::chrono::weekday{kDayZero + std::chrono::days{number}}.c_encoding()];
}

std::string_view MonthName(std::uint32_t number) {
    constexpr std::array<std::string_view, 12> kNames = {
        "januari", "februari", "mars",      "april",   "maj",      "juni",
        "juli",    "augusti",  "september", "oktober", "november", "december"};
    if (number < 1 || number > kNames.size()) {
        throw Error{ErrorNumber::SubscriptOutOfRange, "no such month"};
    }
    return kNames[number - 1];
}
