#include "diagram/rules/curvewalk.h"

#include <algorithm>
#include <utility>

namespace {

bool IsShown(const CurvePoint& point, ShownDays shown) {
    return point.day >= shown.first && point.day <= shown.last;
}

/// The first point of a later day than this one.
StoredPoints::iterator After(StoredPoints stored, std::int32_t day) {
    return std::upper_bound(stored.begin(), stored.end(), day,
                            [](std::int32_t left, const CurvePoint& at) { return left < at.day; });
}

}  // namespace

std::optional<CurvePoint> NearestPoint(StoredPoints stored, double day) {
    if (stored.empty()) return std::nullopt;
    const auto after = std::partition_point(
        stored.begin(), stored.end(),
        [&](const CurvePoint& at) { return static_cast<double>(at.day) < day; });
    if (after == stored.begin()) return stored.front();
    if (after == stored.end()) return stored.back();
    const CurvePoint& before = *(after - 1);
    return day - before.day <= after->day - day ? before : *after;
}

std::optional<CurvePoint> LastShownPoint(StoredPoints stored, ShownDays shown) {
    const auto after = After(stored, shown.last);
    if (after == stored.begin() || !IsShown(*(after - 1), shown)) return std::nullopt;
    return *(after - 1);
}

std::optional<CurvePoint> NextPoint(StoredPoints stored, ShownDays shown, std::int32_t day,
                                    Walk walk) {
    const auto after = After(stored, day);
    if (walk == Walk::Ahead) {
        if (after == stored.end() || !IsShown(*after, shown)) return std::nullopt;
        return *after;
    }
    const auto notBefore = std::partition_point(stored.begin(), after,
                                                [&](const CurvePoint& at) { return at.day < day; });
    if (notBefore == stored.begin() || !IsShown(*(notBefore - 1), shown)) return std::nullopt;
    return *(notBefore - 1);
}

std::optional<std::size_t> NextCurve(const std::vector<std::optional<std::int32_t>>& values,
                                     std::size_t current, Walk walk) {
    if (!values[current]) return std::nullopt;
    const auto place = [&](std::size_t curve) { return std::pair(*values[curve], curve); };
    std::optional<std::size_t> next;
    for (std::size_t curve = 0; curve < values.size(); ++curve) {
        if (!values[curve] || curve == current) continue;
        const bool beyond =
            walk == Walk::Up ? place(curve) > place(current) : place(curve) < place(current);
        if (!beyond) continue;
        const bool nearer =
            !next || (walk == Walk::Up ? place(curve) < place(*next) : place(curve) > place(*next));
        if (nearer) next = curve;
    }
    return next;
}
