#include "fundfile/rules/scale.h"

#include "base/error.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::size_t kLabelPlaces = 6;

std::int32_t ToInt32(std::int64_t value) {
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        throw Error{ErrorNumber::Overflow, "a scale beyond 32 bits"};
    }
    return static_cast<std::int32_t>(value);
}

std::int64_t TopAbove(std::int64_t value) {
    return (value / 15 + 1) * 15;
}
std::int64_t BottomBelow(std::int64_t value) {
    return (value / 10 - 1) * 10;
}
std::int64_t TopFor(std::int64_t bottom) {
    return -(3 * bottom) / 2;
}
std::int64_t BottomFor(std::int64_t top) {
    return -(2 * top) / 3;
}

}  // namespace

ScaleRange AutomaticScale(std::span<const std::int32_t> values) {
    std::int64_t largest = 0, smallest = 0;
    for (const std::int32_t value : values) {
        largest = std::max<std::int64_t>(largest, value);
        smallest = std::min<std::int64_t>(smallest, value);
    }
    const std::int64_t top = std::max(TopAbove(largest), TopFor(BottomBelow(smallest)));
    return {ToInt32(top), ToInt32(BottomFor(top))};
}

ScaleRange ScaleWithTop(std::int32_t top) {
    return {top, ToInt32(BottomFor(top))};
}

ScaleRange WidenFor(ScaleRange shown, std::int32_t percent) {
    if (percent < shown.bottom) {
        // A bottom above zero stands in no file of ours; there a gain must not turn the scale over.
        const std::int64_t bottom = BottomBelow(std::min(percent, 0));
        return {ToInt32(TopFor(bottom)), ToInt32(bottom)};
    }
    if (percent > shown.top) {
        const std::int64_t top = TopAbove(std::max(percent, 0));
        return {ToInt32(top), ToInt32(BottomFor(top))};
    }
    return shown;
}

std::vector<std::int32_t> ScaleLabels(ScaleRange scale) {
    const std::int64_t step = scale.top / 3;
    std::vector<std::int32_t> labels;
    for (std::int64_t value = scale.bottom; value <= scale.top && labels.size() < kLabelPlaces;
         value += step) {
        labels.push_back(static_cast<std::int32_t>(value));
        if (step == 0) break;
    }
    return labels;
}
