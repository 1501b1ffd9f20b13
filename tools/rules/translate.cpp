#include "tools/rules/translate.h"

#include "base/daynumber.h"
#include "base/number.h"
#include "base/text.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace {

constexpr std::int32_t kHours = 24, kMinutes = 60, kSeconds = 60;

/// "13", "05": a part of a time of day, below `limit`.
std::optional<std::int32_t> TimePart(std::string_view text, std::int32_t limit) {
    const bool digits = text.find_first_not_of("0123456789") == std::string_view::npos;
    if (text.empty() || text.size() > 2 || !digits) return std::nullopt;
    const std::int32_t number = ParseInteger(text);
    if (number >= limit) return std::nullopt;
    return number;
}

/// "13:30" or "13:30:05" as a part of a day.
std::optional<double> TimeOfDay(std::string_view text) {
    const std::vector<std::string> parts = Split(text, ":");
    if (parts.size() < 2 || parts.size() > 3) return std::nullopt;
    const auto hour = TimePart(parts[0], kHours);
    const auto minute = TimePart(parts[1], kMinutes);
    const auto second = parts.size() == 3 ? TimePart(parts[2], kSeconds) : 0;
    if (!hour || !minute || !second) return std::nullopt;
    const std::int32_t seconds = (*hour * kMinutes + *minute) * kSeconds + *second;
    return static_cast<double>(seconds) / (kHours * kMinutes * kSeconds);
}

/// The day number of a date, with or without a time of day, rounded to a whole day.
std::optional<std::int32_t> DayOfText(std::string_view text) {
    if (const auto day = ParseDate(text)) return day;
    const std::string trimmed = Trim(text);
    const std::size_t blank = trimmed.find(' ');
    if (blank == std::string::npos) return std::nullopt;
    const auto day = ParseDate(trimmed.substr(0, blank));
    const auto time = TimeOfDay(Trim(trimmed.substr(blank)));
    if (!day || !time) return std::nullopt;
    return DayOfSerial(*day + *time);
}

}  // namespace

std::string Translated(std::string_view text) {
    if (const auto day = DayOfText(text)) return PlainText(*day);
    return FormatDay(ParseInteger(text));
}
