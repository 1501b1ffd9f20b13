#pragma once
// What is drawn of one holding's series: a line and a label, in days and percent or in centimetres.
// Knows no painter and no window; strokepainter draws it.

#include "fundfile/rules/curvecolour.h"
#include "fundfile/rules/point.h"
#include "fundfile/rules/scale.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct Point {
    double x = 0, y = 0;
    bool operator==(const Point&) const = default;
};

/// Whose curve it is and how it looks.
struct CurveStyle {
    std::int32_t kontoId = 0;
    Colour colour;
};

struct Drawing {
    std::vector<Point> line;  ///< joined in order; empty where there is nothing to join
    Point end;                ///< where the curve ends in the picture, or leaves it at the right
    Point labelAt;            ///< the label's upper left corner: over the end
    std::string label;        ///< the KontoId; empty: nothing at all is drawn
    Colour colour;
    std::int32_t kontoId = 0;
    std::vector<CurvePoint> stored;  ///< all points of the series, joined or not
    bool operator==(const Drawing&) const = default;
};

/// The curve in the diagram's own units: x in days from `startDay`, y in percent. Every
/// `dayStep`-th stored point is joined, and always the last one. Points outside the window are not
/// left out: the picture's edge cuts them off.
Drawing ScreenDrawing(std::span<const CurvePoint> points, const CurveStyle& style,
                      std::int32_t startDay, std::int32_t dayStep);

/// Where the diagram lies on the page, in centimetres from the page's upper left corner.
namespace onpage {
inline constexpr double kLeftCm = 3.0;
inline constexpr double kCmPerDay = 0.041;
inline constexpr double kZeroCm = 9.2;
inline constexpr double kHeightCm = 7.0;
inline constexpr double kEndCm = 18.3;

/// Centimetres per percent. Throws DivisionByZero for a scale without height.
double CmPerPercent(ScaleRange scale);
}  // namespace onpage

/// The same curve on the page, in centimetres, y growing downward: what lies left of the diagram is
/// moved to its left edge, and the series ends with the first point at 18.3 cm or beyond.
Drawing PageDrawing(std::span<const CurvePoint> points, const CurveStyle& style,
                    std::int32_t startDay, std::int32_t dayStep, ScaleRange scale);
