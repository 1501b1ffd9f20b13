#pragma once
// The days on which a holding should have had a price and has none.

#include "fundfile/rules/point.h"

#include <cstdint>
#include <span>
#include <vector>

/// How far back a missing day is looked for.
inline constexpr std::int32_t kMaxDaysBack = 60;

/// Monday to Friday. Knows no holidays.
bool IsWeekday(std::int32_t day);

/// The weekdays of the 60 days before today on which the series has no point, from its first point
/// on. Today is not missing: its price may still come. In their order; none of an empty series.
std::vector<std::int32_t> MissingWeekdays(std::span<const CurvePoint> points, std::int32_t today);
