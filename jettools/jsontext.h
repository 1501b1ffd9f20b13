#pragma once
// Values of a file as JSON text.

#include "jet/storage/bytes.h"
#include "jet/value.h"

#include <string>
#include <string_view>

/// Quoted; only ", \ and control characters are escaped.
void AppendText(std::string& out, std::string_view text);

/// Whole numbers plain; Single and Double with the fewest digits that read back to the same number,
/// positional for 1e-7 <= |x| < 1e21; amounts and decimals quoted; dates to the nearest second,
/// null when the calendar has no such day; binary in hexadecimal,
/// long ones as their length and digest.
void AppendValue(std::string& out, const jet::Value& value);
