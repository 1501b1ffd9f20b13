#pragma once
// The translator between dates and day numbers.

#include <string>
#include <string_view>

/// A date, with or without a time of day, becomes its day number, a whole number its date as
/// yyyy-mm-dd. TypeMismatch (13) for any other text, Overflow (6) for a number without a date.
std::string Translated(std::string_view text);
