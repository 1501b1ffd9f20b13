#pragma once
// One stored point of a holding's series.

#include <cstdint>

/// A day number and a whole percentage.
struct CurvePoint {
    std::int32_t day = 0, value = 0;
    bool operator==(const CurvePoint&) const = default;
};
