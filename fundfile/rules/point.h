#pragma once
// One stored point of a holding's series, and how a price becomes its value.

#include <cstdint>

/// A day number and a whole percentage.
struct CurvePoint {
    std::int32_t day = 0, value = 0;
    bool operator==(const CurvePoint&) const = default;
};

/// The change in whole percent, in single precision, halves to even. DivisionByZero (11) for a
/// start price of 0, Overflow (6) where the percentage does not fit.
std::int32_t PercentChange(double price, double startPrice);

/// The price that a whole percentage stands for.
double PriceAt(std::int32_t percent, double startPrice);
