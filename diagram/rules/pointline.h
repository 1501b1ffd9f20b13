#pragma once
// The point that is looked at, as a line: "2026-11-13 = 20 % = 190,32 kr".

#include "fundfile/rules/openholding.h"

#include <cstdint>
#include <string>

/// "2026-11-13 = 20 % ="; nothing for a number that is no day.
std::string PointLine(std::int32_t day, std::int32_t percent);

/// The price that the percentage stands for; of the holding's latest price, that one to the öre.
std::string PointPrice(std::int32_t day, std::int32_t percent, const OpenHolding& holding);
