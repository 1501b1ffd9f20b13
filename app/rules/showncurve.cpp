#include "app/rules/showncurve.h"

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/texts.h"

#include <string_view>

namespace {

constexpr std::string_view kNoLatestPrice = "0";
constexpr std::string_view kApart = "   ";
constexpr int kAmountDecimals = 2;

bool HasLatestPrice(const HoldingRow& row) {
    return !row.senasteKurs.empty() && row.senasteKurs != kNoLatestPrice;
}

/// The row keeps it with the word before it.
std::string LatestPriceOf(const HoldingRow& row) {
    if (!HasLatestPrice(row)) return "";
    std::string_view text = row.senasteKurs;
    if (text.starts_with(texts::LatestPrice)) text.remove_prefix(texts::LatestPrice.size());
    return std::string(text);
}

}  // namespace

std::string ChangeOf(const HoldingRow& row) {
    return HasLatestPrice(row) ? row.procent : "";
}

ShownCurve ShownCurveOf(const HoldingRow& row) {
    return {.kontoId = row.kontoId,
            .colour = CurveColour(row.plottFarg, row.kontoId),
            .name = row.fond,
            .change = ChangeOf(row),
            .startPrice = StartPriceOf(row),
            .latest = LatestPriceOf(row)};
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
