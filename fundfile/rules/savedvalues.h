#pragma once
// The saved-values column: "x" while nothing has been replaced, then the four values that a new
// shares notice replaced.

#include "fundfile/rules/holding.h"

#include <optional>
#include <string>
#include <string_view>

/// The next notice keeps the values that it replaces.
inline constexpr std::string_view kKeepValues = "x";
/// Closes each saved value, the last one too.
inline constexpr std::string_view kSavedValueEnd = "\xC2\xB6";  // the pilcrow, character 182

/// The values as they are shown, in the order of their columns.
struct SavedValues {
    std::string date, shares, price, value;
    bool operator==(const SavedValues&) const = default;
};

/// The saved values; nothing for "x" and for any text without four of them.
std::optional<SavedValues> ParseSavedValues(std::string_view column);

/// The text that keeps the row's present values.
std::string SavedValuesText(const HoldingRow& row);

/// The price that the percentages start from: the saved one if there is one, else KursKr. 0 when it
/// is missing or no number.
double StartPriceOf(const HoldingRow& row);
