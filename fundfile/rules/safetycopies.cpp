#include "fundfile/rules/safetycopies.h"

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <set>

namespace {

constexpr std::size_t kLastDays = 10;
constexpr std::int32_t kMonths = 24;
constexpr std::size_t kDateLength = 10;
constexpr std::string_view kBeforeNumber = " nr ";

struct NameParts {
    std::string_view stem, extension;
};

NameParts PartsOf(std::string_view fileName) {
    const std::size_t point = fileName.rfind('.');
    if (point == std::string_view::npos || point == 0) return {fileName, {}};
    return {fileName.substr(0, point), fileName.substr(point)};
}

/// Months since the year 0.
std::int32_t MonthOf(std::int32_t day) {
    constexpr std::int32_t kMonthsInYear = 12;
    const auto date = DateOf(day);
    return static_cast<int>(date.year()) * kMonthsInYear +
           static_cast<std::int32_t>(static_cast<unsigned>(date.month())) - 1;
}

std::optional<std::int32_t> NumberIn(std::string_view text) {
    if (text.empty()) return 1;
    if (!text.starts_with(kBeforeNumber)) return std::nullopt;
    try {
        const std::int32_t number = ParseInteger(text.substr(kBeforeNumber.size()));
        return number > 1 ? std::optional(number) : std::nullopt;
    } catch (const Error&) {
        return std::nullopt;
    }
}

}  // namespace

std::string CopyFileName(std::string_view fundFile, CopyName name) {
    const NameParts parts = PartsOf(fundFile);
    std::string text = std::string(parts.stem) + " " + FormatDay(name.day);
    if (name.number > 1) text += std::string(kBeforeNumber) + PlainText(name.number);
    return text + std::string(parts.extension);
}

std::optional<CopyName> ReadCopyName(std::string_view fundFile, std::string_view copy) {
    const NameParts parts = PartsOf(fundFile);
    const std::size_t dateAt = parts.stem.size() + 1;
    const std::size_t shortest = dateAt + kDateLength + parts.extension.size();
    if (copy.size() < shortest || !copy.starts_with(parts.stem)) return std::nullopt;
    const std::optional<std::int32_t> day = ParseDate(copy.substr(dateAt, kDateLength));
    if (!day) return std::nullopt;
    const std::size_t numberAt = dateAt + kDateLength;
    const auto number =
        NumberIn(copy.substr(numberAt, copy.size() - parts.extension.size() - numberAt));
    if (!number) return std::nullopt;
    const CopyName name{*day, *number};
    // A name that only looks like one of ours is somebody else's file.
    return CopyFileName(fundFile, name) == copy ? std::optional(name) : std::nullopt;
}

bool IsCopyName(std::string_view name) {
    const std::string extension(PartsOf(name).extension);
    for (std::size_t at = name.find(' '); at != std::string_view::npos;
         at = name.find(' ', at + 1)) {
        if (ReadCopyName(std::string(name.substr(0, at)) + extension, name)) return true;
    }
    return false;
}

std::vector<std::int32_t> DaysToKeep(std::vector<std::int32_t> days, std::int32_t today) {
    std::sort(days.begin(), days.end());
    const auto future = std::upper_bound(days.begin(), days.end(), today);
    const auto past = static_cast<std::size_t>(future - days.begin());
    std::set<std::int32_t> kept(future, days.end());
    std::set<std::int32_t> months;
    const std::int32_t firstMonth = MonthOf(today) - kMonths + 1;
    for (auto day = days.begin(); day != future; ++day) {
        const std::int32_t month = MonthOf(*day);
        if (month >= firstMonth && months.insert(month).second) kept.insert(*day);
    }
    const std::size_t last = past > kLastDays ? past - kLastDays : 0;
    kept.insert(days.begin() + static_cast<std::ptrdiff_t>(last), future);
    return {kept.begin(), kept.end()};
}
