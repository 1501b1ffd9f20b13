#include "fundfile/rules/point.h"

#include "base/error.h"
#include "base/number.h"

#include <cmath>
#include <limits>

namespace {

constexpr float kHundred = 100;

float Single(double price) {
    if (!(std::abs(price) <= double{std::numeric_limits<float>::max()})) {
        throw Error{ErrorNumber::Overflow, "a price beyond single precision"};
    }
    return static_cast<float>(price);
}

}  // namespace

std::int32_t PercentChange(double price, double startPrice) {
    const float now = Single(price), start = Single(startPrice);
    if (start == 0) {
        throw Error{kDivisionByZero, "percentage of a start price of 0"};
    }
    return RoundHalfEven((now - start) * kHundred / start);
}

double PriceAt(std::int32_t percent, double startPrice) {
    constexpr double kHundred = 100;
    return startPrice * (kHundred + percent) / kHundred;
}
