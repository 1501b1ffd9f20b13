#pragma once
// Where the curves' numbers stand: at the curves' ends, and again along the curves. A number stands
// nearer to its own curve than to any other, or a line leads from it to its curve's end.

#include "widgets/rules/curveextent.h"
#include "widgets/rules/labelplaces.h"
#include "widgets/rules/stroke.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

/// A number that is wished at its curve's end.
struct EndNumber {
    std::size_t curve = 0;  ///< among the extents
    Point end;              ///< of its curve in the picture
    double top = 0;         ///< where it is wished, right of the end
    double width = 0, height = 0;
};

/// From the number's edge to the end of its curve.
struct Leader {
    Point from, to;
    bool operator==(const Leader&) const = default;
};

struct NumberPlace {
    std::size_t curve = 0;
    LabelBox box;
    std::optional<Leader> leader;
    bool operator==(const NumberPlace&) const = default;
};

/// In the order of the wishes: free of each other inside `area`, right of the ends by `gap` and, if
/// a leader is needed anywhere, by more, so that it shows.
std::vector<NumberPlace> PlaceEndNumbers(std::span<const EndNumber> wishes,
                                         std::span<const CurveExtent> extents, const LabelBox& area,
                                         double gap);

struct NumberSize {
    double width = 0, height = 0;
};

/// Numbers along the curves, a few on each, where no other curve and none of the `taken` places is
/// near; where curves run too close together there is none. `sizes` are those of the extents; a
/// curve with none has no number.
std::vector<NumberPlace> PlaceAlongCurves(std::span<const NumberSize> sizes,
                                          std::span<const CurveExtent> extents,
                                          std::vector<LabelBox> taken, const LabelBox& area);
