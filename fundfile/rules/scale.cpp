#include "fundfile/rules/scale.h"

#include "base/error.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::size_t kLabelPlaces = 6;
/// Five digits are what the labels have room for.
constexpr std::int64_t kMaxLabelledTop = 99990;

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

ScaleRange Normalised(ScaleRange read) {
    if (read.top <= 0 || read.bottom >= 0) return {};
    std::int64_t top = read.top;
    if (3 * std::int64_t{read.bottom} != -2 * top) {
        top = std::max(TopAbove(top - 1), TopFor(BottomBelow(std::int64_t{read.bottom} + 1)));
    }
    if (top > kMaxLabelledTop) return {};
    return {ToInt32(top), ToInt32(BottomFor(top))};
}

ScaleRange WidenedFor(ScaleRange stored, std::span<const std::int32_t> values) {
    const bool fits = std::all_of(values.begin(), values.end(), [&](std::int32_t value) {
        return value <= stored.top && value >= stored.bottom;
    });
    if (fits) return stored;
    const ScaleRange needed = AutomaticScale(values);
    return needed.top > stored.top ? needed : stored;
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
