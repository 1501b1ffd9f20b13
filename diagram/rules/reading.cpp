#include "diagram/rules/reading.h"

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"

#include <cmath>
#include <limits>

namespace {

constexpr double kDaysShown = 365;

std::int32_t WholePart(double value) {
    const double whole = std::trunc(value);
    if (!(std::abs(whole) <= std::numeric_limits<std::int32_t>::max())) {
        throw Error{ErrorNumber::Overflow, "a place beyond 32 bits"};
    }
    return static_cast<std::int32_t>(whole);
}

}  // namespace

bool InsideDiagram(Point at, ScaleRange scale) {
    return at.x >= 0 && at.x < kDaysShown && at.y <= scale.top && at.y >= scale.bottom;
}

std::string DateReading(double x, std::int32_t windowStartDay) {
    const std::int64_t day = std::int64_t{WholePart(x)} + windowStartDay;
    if (day < kFirstDay || day > kLastDay) {
        throw Error{ErrorNumber::Overflow, "a day without a date"};
    }
    return FormatDayLong(static_cast<std::int32_t>(day));
}

std::string ValueReading(double y, std::optional<double> basePrice) {
    if (!basePrice) return PlainText(WholePart(y)) + " %";
    return Fixed(*basePrice + *basePrice * (y / 100), 2) + " kr";
}
