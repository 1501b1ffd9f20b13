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

HoldingSummary SummaryAfter(const OpenHolding& holding, double price, std::int32_t day) {
    const std::int32_t change = ChangeSinceStart(holding.startPrice, price);
    const bool hasValue = holding.fondNr != kSummaryFondNr;
    return {.day = day,
            .latestPrice = std::string(texts::LatestPrice) + Fixed(price, kPriceDecimals),
            .change = PlainText(change) + std::string(texts::Percent),
            .value = hasValue ? PlainText(RoundHalfEven(holding.shares * price))
                              : std::string(texts::NoValue)};
}

DayPrice DayPriceOf(const OpenHolding& holding, double price, std::int32_t day) {
    DayPrice made;
    made.price = price;
    made.point = {.day = day, .value = PercentChange(price, holding.startPrice)};
    Skipping skip;
    skip([&] { made.summary = SummaryAfter(holding, price, day); });
    made.text = Fixed(price, kPriceDecimals);
    return made;
}
