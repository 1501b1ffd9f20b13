#include "fundfile/rules/summary.h"

#include "base/error.h"
#include "base/number.h"
#include "fundfile/rules/holding.h"
#include "fundfile/rules/texts.h"

namespace {

constexpr double kHundred = 100;
constexpr int kPriceDecimals = 2;

}  // namespace

std::int32_t ChangeSinceStart(double startPrice, double newPrice) {
    if (startPrice == 0) {
        throw Error{kDivisionByZero, "change since a start price of 0"};
    }
    return RoundHalfEven((newPrice - startPrice) * kHundred / startPrice);
}

std::string ChangeText(std::int32_t percent) {
    return PlainText(percent) + std::string(texts::Percent);
}

std::string LatestPriceText(std::string_view price) {
    return std::string(texts::LatestPrice) + std::string(price);
}

std::optional<double> LatestPriceOf(const HoldingSummary& summary) {
    const auto colon = summary.latestPrice.find(':');
    if (colon == std::string::npos) return std::nullopt;
    double price = 0;
    Skipping skip;  // a text that somebody else wrote there
    skip([&] { price = ParseDouble(summary.latestPrice.substr(colon + 1)); });
    if (price <= 0) return std::nullopt;
    return price;
}

std::string PriceText(double price) {
    return Fixed(price, kPriceDecimals);
}

std::string CurrentValueText(std::string_view fondNr, double shares, double price) {
    if (fondNr == kSummaryFondNr) return std::string(texts::NoValue);
    return PlainText(RoundHalfEven(shares * price));
}

HoldingSummary SummaryAfter(const OpenHolding& holding, double price, std::int32_t day) {
    return {.day = day,
            .latestPrice = LatestPriceText(PriceText(price)),
            .change = ChangeText(ChangeSinceStart(holding.startPrice, price)),
            .value = CurrentValueText(holding.fondNr, holding.shares, price)};
}
