#pragma once
// The percent calculator.

#include <string>
#include <string_view>

/// The change from the start value to the new one, "50  %", reckoned in single precision, halves to
/// even. TypeMismatch (13) for a text that is no number,
/// DivisionByZero (11) for a start of 0, Overflow (6).
std::string PercentAnswer(std::string_view startText, std::string_view newText);

/// A box's text when it loses the focus: its number as "0.00",
/// or the text itself if it is no number.
std::string WithTwoDecimals(std::string_view text);
