#include "app/rules/showncurve.h"

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "fundfile/rules/savedvalues.h"

#include <string_view>

namespace {

constexpr std::string_view kNoLatestPrice = "0";
constexpr std::string_view kApart = "   ";
constexpr int kAmountDecimals = 2;

}  // namespace

std::string ChangeOf(const HoldingRow& row) {
    const bool known = !row.senasteKurs.empty() && row.senasteKurs != kNoLatestPrice;
    return known ? row.procent : "";
}

ShownCurve ShownCurveOf(const HoldingRow& row) {
    return {.kontoId = row.kontoId,
            .colour = CurveColour(row.plottFarg, row.kontoId),
            .name = row.fond,
            .change = ChangeOf(row),
            .startPrice = StartPriceOf(row)};
}

std::string PointText(const ShownCurve& curve, const CurvePoint& point) {
    if (point.day < kFirstDay || point.day > kLastDay) {
        throw Error{ErrorNumber::Overflow, "a day without a date"};
    }
    const std::string apart(kApart);
    std::string text = Join(Split(FormatDayLong(point.day), "  "), " ");
    text += apart + PlainText(point.value) + " %";
    if (curve.startPrice == 0) return text;
    const double kronor = curve.startPrice + curve.startPrice * (point.value / 100.0);
    return text + apart + Fixed(kronor, kAmountDecimals) + " kr";
}
