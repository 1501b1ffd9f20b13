#pragma once
// What a step along the time axis may be, in days: day, week or month view.

#include <cstdint>

namespace daystep {
inline constexpr std::int32_t kDay = 1, kWeek = 7, kMonth = 30;
}
