#pragma once
// Whether a typed price is believable, measured from the holding's start price.

#include "fundfile/rules/summary.h"

#include <cstdint>
#include <optional>
#include <string_view>

/// The price in a text; nothing if it is no number, is 0 or negative,
/// or too large for single precision.
std::optional<double> ReadPrice(std::string_view text);

/// The same with what follows from it; nothing also where there is no percentage: for a start price
/// of 0, or a price too far from it.
std::optional<DayPrice> ReadDayPrice(std::string_view text, const OpenHolding& holding,
                                     std::int32_t day);

enum class Verdict {
    Accept,
    AskFirst,       ///< more than 200 % up
    AskThenRefuse,  ///< more than 1000 % up: asked all the same, then refused whatever the answer
};

/// Falls are never questioned, however large.
Verdict Judge(std::int32_t percent);
