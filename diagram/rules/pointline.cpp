#include "diagram/rules/pointline.h"

#include "base/daynumber.h"
#include "base/number.h"
#include "fundfile/rules/point.h"
#include "fundfile/rules/summary.h"

#include <string_view>

std::string PointLine(std::int32_t day, std::int32_t percent) {
    if (day < kFirstDay || day > kLastDay) return "";
    return FormatDay(day) + " = " + PlainText(percent) + " % =";
}

std::string PointPrice(std::int32_t day, std::int32_t percent, const OpenHolding& holding) {
    const HoldingSummary& latest = holding.summary;
    const std::string prefix = LatestPriceText("");
    const bool isLatest = latest.day == day && latest.latestPrice.starts_with(prefix) &&
                          latest.change == ChangeText(percent);
    if (isLatest) return latest.latestPrice.substr(prefix.size());
    return PriceText(PriceAt(percent, holding.startPrice));
}
