#include "widgets/rules/stroke.h"

#include "base/error.h"
#include "base/number.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr double kLabelAboveLine = 2;   // percent above the last point
constexpr double kLabelAbovePoint = 1;  // percent above the only point
constexpr std::int64_t kDaysShown = 365;

/// The points that a walk stands on: the first, every `dayStep`-th after it, and the last.
template <typename Visit>
void Walk(std::size_t count, std::int32_t dayStep, Visit&& visit) {
    const std::size_t step = static_cast<std::size_t>(std::max(dayStep, 1));
    const std::size_t last = count - 1;
    for (std::size_t at = 0; visit(at) && at != last;) at = last - at > step ? at + step : last;
}

/// Where the picture ends at the left and at the right, in a drawing's own units.
struct Width {
    double left = 0, right = 0;
};

/// The last joined point inside the picture, or where the curve leaves it at the right. One that
/// lies beside it ends or begins out there.
Point EndInPicture(std::span<const Point> line, Width picture) {
    for (std::size_t at = line.size(); at-- > 0;) {
        const Point& point = line[at];
        if (point.x > picture.right) continue;
        const bool leaves = at + 1 < line.size() && point.x < picture.right;
        if (!leaves) return point;
        const Point& beyond = line[at + 1];
        const double part = (picture.right - point.x) / (beyond.x - point.x);
        return {picture.right, point.y + part * (beyond.y - point.y)};
    }
    return line.front();
}

std::int64_t WindowDay(const CurvePoint& point, std::int32_t startDay) {
    return std::int64_t{point.day} - startDay;
}

}  // namespace

Drawing ScreenDrawing(std::span<const CurvePoint> points, const CurveStyle& style,
                      std::int32_t startDay, std::int32_t dayStep) {
    Drawing drawing;
    if (points.empty()) return drawing;
    drawing.colour = style.colour;
    drawing.label = PlainText(style.kontoId);
    drawing.kontoId = style.kontoId;
    drawing.stored.assign(points.begin(), points.end());

    const auto at = [&](const CurvePoint& point) {
        return Point{static_cast<double>(WindowDay(point, startDay)),
                     static_cast<double>(point.value)};
    };
    if (points.size() == 1) {
        const Point only = at(points.front());
        drawing.end = only;
        drawing.labelAt = {only.x, only.y + kLabelAbovePoint};
        return drawing;
    }
    drawing.line.reserve(points.size() / static_cast<std::size_t>(std::max(dayStep, 1)) + 2);
    Walk(points.size(), dayStep, [&](std::size_t index) {
        drawing.line.push_back(at(points[index]));
        // A day in the window is compared with an absolute one. Kept on purpose: with real dates it
        // never ends the walk, and the picture's edge cuts the curve off.
        return index == 0 || WindowDay(points[index], startDay) <= startDay + kDaysShown;
    });
    drawing.end = EndInPicture(drawing.line, {0, kDaysShown});
    drawing.labelAt = {drawing.end.x, drawing.end.y + kLabelAboveLine};
    return drawing;
}

double onpage::CmPerPercent(ScaleRange scale) {
    const double height = static_cast<double>(scale.top) - scale.bottom;
    if (height == 0) throw Error{kDivisionByZero, "a scale without height"};
    return kHeightCm / height;
}

Drawing PageDrawing(std::span<const CurvePoint> points, const CurveStyle& style,
                    std::int32_t startDay, std::int32_t dayStep, ScaleRange scale) {
    Drawing drawing;
    const double cmPerPercent = onpage::CmPerPercent(scale);
    const auto x = [&](const CurvePoint& point) {
        return onpage::kLeftCm +
               onpage::kCmPerDay * static_cast<double>(WindowDay(point, startDay));
    };
    const auto pinned = [&](const CurvePoint& point) {
        return Point{std::max(x(point), onpage::kLeftCm),
                     onpage::kZeroCm - cmPerPercent * point.value};
    };
    if (points.empty() || x(points.front()) >= onpage::kEndCm) return drawing;
    drawing.colour = style.colour;
    drawing.label = PlainText(style.kontoId);
    drawing.kontoId = style.kontoId;

    if (points.size() == 1) {
        const Point only = pinned(points.front());
        drawing.end = only;
        drawing.labelAt = {only.x, only.y - cmPerPercent * kLabelAbovePoint};
        return drawing;
    }
    Walk(points.size(), dayStep, [&](std::size_t index) {
        drawing.line.push_back(pinned(points[index]));
        return x(points[index]) < onpage::kEndCm;
    });
    drawing.end = EndInPicture(drawing.line,
                               {onpage::kLeftCm, onpage::kLeftCm + onpage::kCmPerDay * kDaysShown});
    drawing.labelAt = {drawing.end.x, drawing.end.y - cmPerPercent * kLabelAboveLine};
    return drawing;
}
