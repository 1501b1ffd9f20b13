#include "fundfile/rules/missingdays.h"

#include <algorithm>
#include <set>

bool IsWeekday(std::int32_t day) {
    constexpr std::int32_t kWeek = 7;
    // Day 0 was a Saturday.
    const std::int32_t sinceSaturday = (day % kWeek + kWeek) % kWeek;
    return sinceSaturday >= 2;
}

std::vector<std::int32_t> MissingWeekdays(std::span<const CurvePoint> points, std::int32_t today) {
    std::vector<std::int32_t> missing;
    if (points.empty()) return missing;
    std::int32_t first = points.front().day;
    std::set<std::int32_t> present;
    for (const CurvePoint& point : points) {
        first = std::min(first, point.day);
        if (point.day >= today - kMaxDaysBack) present.insert(point.day);
    }
    for (std::int32_t day = std::max(first, today - kMaxDaysBack); day < today; ++day) {
        if (IsWeekday(day) && !present.contains(day)) missing.push_back(day);
    }
    return missing;
}
