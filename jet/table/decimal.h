#pragma once
// Decimal numbers as text: read whatever a user or a query writes,
// and write numbers without noise digits.

#include "jet/value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jet::detail {

/// `text` in the form that std::from_chars reads, when the whole of it is a number: blanks around
/// it and a leading plus are dropped, a comma becomes the point. Nothing for "", "12 kr", "1.5.2",
/// "inf" or "0x1F".
std::optional<std::string> PlainNumber(std::string_view text);

/// Throws Overflow for a number that no double holds. `plain` comes from PlainNumber.
double DoubleOf(std::string_view plain);
float SingleOf(std::string_view plain);

/// The fewest digits that read back to the same number; positional between 1e-7 and 1e16, else
/// "1.5e+20"; "" for infinities and what is not a number.
std::string ShortestText(float value);
std::string ShortestText(double value);

/// With all its decimals: "12.50" for 1250 with two of them.
std::string FullText(const Numeric& value);
std::string FullText(Currency value);
/// `text` without zeros at the end of its decimals: "12.5".
std::string WithoutTrailingZeros(std::string text);

/// The number in `plain` with `scale` decimals, halves to even. Throws Overflow above 28 digits.
Numeric ToNumeric(std::string_view plain, std::uint8_t scale);
Currency ToCurrency(std::string_view plain);

/// How many decimal digits the magnitude has.
int DigitCount(const Numeric& value);

}  // namespace jet::detail
