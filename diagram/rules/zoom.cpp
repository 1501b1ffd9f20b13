#include "diagram/rules/zoom.h"

#include "base/error.h"

#include <cstdint>
#include <limits>

namespace {

constexpr std::int32_t kTopStep = 15;
constexpr std::int32_t kBottomStep = 10;
constexpr std::int32_t kMaxTop = 1000;
constexpr ScaleRange kNarrowest{15, -10};

std::int32_t Sum(std::int32_t value, std::int32_t step) {
    const std::int64_t sum = std::int64_t{value} + step;
    if (sum > std::numeric_limits<std::int32_t>::max() ||
        sum < std::numeric_limits<std::int32_t>::min()) {
        throw Error{ErrorNumber::Overflow, "a zoom step beyond 32 bits"};
    }
    return static_cast<std::int32_t>(sum);
}

}  // namespace

Zoomed ZoomIn(ScaleRange stored, ScaleRange automatic, CurveView view) {
    const ScaleRange next{Sum(stored.top, -kTopStep), Sum(stored.bottom, kBottomStep)};
    if (next.top < automatic.top) return {automatic, false};
    if (view == CurveView::Single && next.bottom > kNarrowest.bottom) return {kNarrowest, false};
    return {next, true};
}

Zoomed ZoomOut(ScaleRange stored) {
    const ScaleRange next{Sum(stored.top, kTopStep), Sum(stored.bottom, -kBottomStep)};
    return {next, next.top <= kMaxTop};
}
