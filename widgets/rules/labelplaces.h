#pragma once
// Where labels stand so that none covers another: in the order of their heights, moved up or down
// as little as possible. Knows rectangles only.

#include <span>
#include <vector>

/// y grows downward.
struct LabelBox {
    double left = 0, top = 0, width = 0, height = 0;
    double Right() const { return left + width; }
    double Bottom() const { return top + height; }
    bool operator==(const LabelBox&) const = default;
};

/// The places of the labels, in their order: inside `area` and free of each other. Where too many
/// stand over each other for the area's height they go into several columns; where its width is too
/// small for that, too, they share the height.
std::vector<LabelBox> PlaceLabels(std::span<const LabelBox> wanted, const LabelBox& area);
