#pragma once
// The diagram's vertical scale in whole percent: found from values, brought to its proportion,
// widened for values, labelled.

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

/// A scale as it was read from somewhere: itself where it is 3 : -2, else the narrowest step that
/// takes both its ends in. What is no scale (top above 0, bottom below), or one whose labels would
/// find no room, becomes 15/-10.
ScaleRange Normalised(ScaleRange read);

/// `stored`, or the automatic scale of `values` where one of them lies outside `stored`: never
/// narrower than `stored`. Throws Overflow where the scale has no 32-bit answer.
ScaleRange WidenedFor(ScaleRange stored, std::span<const std::int32_t> values);

/// The labels from the bottom upward, a third of the top apart;
/// at most the six there are places for.
std::vector<std::int32_t> ScaleLabels(ScaleRange scale);
