#pragma once
// A holding's price on a day, and the summary that it makes.

#include "fundfile/rules/openholding.h"
#include "fundfile/rules/point.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The change in whole percent, reckoned in double precision, halves to even. DivisionByZero (11)
/// for a start price of 0, Overflow (6) where the percentage does not fit.
std::int32_t ChangeSinceStart(double startPrice, double newPrice);

/// "5 %".
std::string ChangeText(std::int32_t percent);

/// "Senaste : 12,50".
std::string LatestPriceText(std::string_view price);

/// The price in the summary's text, which is what stands after its colon; nothing where there never
/// was one.
std::optional<double> LatestPriceOf(const HoldingSummary& summary);

/// A price as it is shown: "12,50", every digit before the comma as it was typed.
std::string PriceText(double price);

/// The summary of the holding when this is its latest price: the value of its shares in whole
/// kronor, "-" for a summary row. Throws what ChangeSinceStart throws, and Overflow (6) for a value
/// beyond 32 bits.
HoldingSummary SummaryAfter(const OpenHolding& holding, double price, std::int32_t day);

/// A price and all that follows from it for its holding,
/// reckoned before anything is asked or stored.
struct DayPrice {
    double price = 0;
    std::string text;                       ///< as it is shown
    CurvePoint point;                       ///< the day, and the change in whole percent
    std::optional<HoldingSummary> summary;  ///< nothing where a number of it is beyond 32 bits
};

/// Throws what PercentChange throws: without a percentage there is no point.
DayPrice DayPriceOf(const OpenHolding& holding, double price, std::int32_t day);
