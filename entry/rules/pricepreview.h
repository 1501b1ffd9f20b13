#pragma once
// What is said of a price while it is typed: what Enter would make of it.

#include "app/rules/windowstate.h"
#include "fundfile/rules/openholding.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// "175,10 kr = 82 %, +0,1 % sedan 174,98 (20 nov)": the change since the start price and since the
/// latest one. In doubt, "Stämmer det? " comes first: more than 20 % from the latest price, or
/// something that Enter would ask about or refuse. Nothing typed: nothing said.
PriceNote PricePreview(const OpenHolding& holding, std::string_view typed, std::int32_t today);

/// The same about a price that was read.
PriceNote PricePreview(const OpenHolding& holding, double price, std::int32_t today);

/// "+0,1 %", "-3,0 %", "0,0 %". `before` is above 0.
std::string ChangeSince(double before, double price);

/// More than 20 % from each other: it may be a slip.
bool IsFar(double before, double price);

/// "20 nov", "20 nov 2025" of another year than today's, "idag".
std::string ShortDay(std::int32_t day, std::int32_t today);
