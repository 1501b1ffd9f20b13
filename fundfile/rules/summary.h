#pragma once
// A holding's summary after a new price.

#include "fundfile/rules/openholding.h"

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

/// The value of the shares in whole kronor, or "-" for a summary row. Overflow (6) beyond 32 bits.
std::string CurrentValueText(std::string_view fondNr, double shares, double price);

/// The summary of the holding when this is its latest price. Throws what its parts throw.
HoldingSummary SummaryAfter(const OpenHolding& holding, double price, std::int32_t day);
