#pragma once
// The diagram's vertical scale in whole percent: found from values, widened for a value, labelled.

#include <cstdint>
#include <span>
#include <vector>

struct ScaleRange {
    std::int32_t top = 15;
    std::int32_t bottom = -10;
    bool operator==(const ScaleRange&) const = default;
};

/// The scale that takes in all values: the next steps of 15 above and 10 below, then as 3 : -2.
/// Throws Overflow where the scale has no 32-bit answer.
ScaleRange AutomaticScale(std::span<const std::int32_t> values);

/// The scale with this top in the proportion 3 : -2; the bottom is truncated toward zero.
ScaleRange ScaleWithTop(std::int32_t top);

/// `shown`, or a scale that takes `percent` in where it lies outside.
ScaleRange WidenFor(ScaleRange shown, std::int32_t percent);

/// The labels from the bottom upward, a third of the top apart; at most the six there are places
/// for.
std::vector<std::int32_t> ScaleLabels(ScaleRange scale);
