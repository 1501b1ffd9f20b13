#pragma once
// What the two labels beside the cross-hair say about a place in the diagram.

#include "fundfile/rules/scale.h"
#include "widgets/rules/stroke.h"

#include <cstdint>
#include <optional>
#include <string>

/// Whether the diagram's twelve months and its scale take the place in.
bool InsideDiagram(Point at, ScaleRange scale);

/// The date under the pointer, "11  april 2006". Throws Overflow where there is no date.
std::string DateReading(double x, std::int32_t windowStartDay);

/// The value under the pointer: whole percent, cut toward zero ("-4 %"), or with the price that the
/// percentages start from an amount ("112,50 kr").
std::string ValueReading(double y, std::optional<double> basePrice);
