#pragma once
// The one place where numbers are read from text and written as text. Swedish: the decimal sign
// shown is the comma; a point is understood as well. Knows no locale.

#include <cstdint>
#include <string>
#include <string_view>

/// A whole text as a number: blanks around it, one decimal comma or point, a sign (also U+2212),
/// blanks between groups of three digits. Anything else, "1,2,3" and "inf" included, throws
/// TypeMismatch (13); a number too large for the type throws Overflow (6).
float ParseSingle(std::string_view text);
double ParseDouble(std::string_view text);
/// As above, then rounded to a whole number, an exact half to the even neighbour.
std::int32_t ParseInteger(std::string_view text);

/// The number that a text begins with, decimal point only: "12.5 %" is 12.5, "12,5" is 12, "-" is
/// 0. Never fails on what is not a number; a number too large for the type throws Overflow (6).
double LeadingNumber(std::string_view text);

/// The shortest text that reads back as the same value, with a decimal comma and never an exponent.
/// Infinity and not-a-number throw Overflow (6), as everywhere below.
std::string PlainText(float value);
std::string PlainText(double value);
std::string PlainText(std::int32_t value);
std::string PlainText(std::int64_t value);

/// The same with a decimal point, for what programs read.
std::string PointText(float value);

/// The double that shows the same digits: 12,34 stays 12,34 and does
/// not become 12,340000152587890625.
double WidenSingle(float value);

/// "0.00", "0.0000": so many decimals, decimal comma. Rounds what PlainText shows, halves away from
/// zero, so that a value shown as 2,675 becomes 2,68.
std::string Fixed(float value, int decimals);
std::string Fixed(double value, int decimals);

/// The nearest whole number, an exact half to the even neighbour; Overflow (6) beyond 32 bits.
std::int32_t RoundHalfEven(float value);
std::int32_t RoundHalfEven(double value);
