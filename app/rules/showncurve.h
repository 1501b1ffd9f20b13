#pragma once
// The curves of the picture as the legend and the pointer name them, and the one that stands out.

#include "fundfile/rules/curvecolour.h"
#include "fundfile/rules/holding.h"
#include "fundfile/rules/point.h"

#include <cstdint>
#include <optional>
#include <string>

struct ShownCurve {
    std::int32_t kontoId = 0;
    Colour colour{};
    std::string name{};
    std::string change{};   ///< since its start, as it was stored; "" where none is known
    double startPrice = 0;  ///< that its percentages start from; 0 where there is none
    std::string latest{};   ///< price in kronor; "" where none is known
    bool operator==(const ShownCurve&) const = default;
};

ShownCurve ShownCurveOf(const HoldingRow& row);

/// Brought forward by its legend, or by the pointer at one of its stored points.
struct LitCurve {
    std::int32_t kontoId = 0;
    std::optional<CurvePoint> point{};
    bool operator==(const LitCurve&) const = default;
};

/// The change since the start of a holding with a price; "" of one without.
std::string ChangeOf(const HoldingRow& row);

/// "13 november 2026   20 %   190,32 kr"; without a start price there are no kronor. Throws
/// Overflow for a day without a date.
std::string PointText(const ShownCurve& curve, const CurvePoint& point);
