#pragma once
// Which stored point of a curve is meant: the one under the pointer, or the next one when the keys
// walk along the days or from curve to curve.

#include "fundfile/rules/point.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

enum class Walk { Back, Ahead, Up, Down };

/// The days that the picture shows, both counted in.
struct ShownDays {
    std::int32_t first = 0, last = 0;
};

using StoredPoints = std::span<const CurvePoint>;  ///< in the order of their days

/// The stored point nearest to the day, the earlier of two; none where there are no points.
std::optional<CurvePoint> NearestPoint(StoredPoints stored, double day);

/// The last stored point in the picture: where a walk begins.
std::optional<CurvePoint> LastShownPoint(StoredPoints stored, ShownDays shown);

/// The stored point before or after the day, if the picture shows it.
std::optional<CurvePoint> NextPoint(StoredPoints stored, ShownDays shown, std::int32_t day,
                                    Walk walk);

/// Of curves that have these values on one day (none: not to be met there) the next one above or
/// below the `current` one; among equals in the order of the curves, so that each is met once.
std::optional<std::size_t> NextCurve(const std::vector<std::optional<std::int32_t>>& values,
                                     std::size_t current, Walk walk);
