#pragma once
// Prices in a table from elsewhere: which column is what, and what each line says. Knows no file
// and judges no price.

#include "entry/rules/fundnames.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// One line as it stands there; "" where the table has no such column.
struct PriceLine {
    std::int32_t number = 0;  ///< of the line in the file, counted from 1
    std::string day, kontoId, fondNr, fond, price;
    bool tooLong = false;  ///< it has more cells than the headings: a comma may have cut a price
    bool operator==(const PriceLine&) const = default;
};

/// Columns are found by their headings, and those without a heading that is known by what stands in
/// them: days, prices, and the names or numbers of `funds`. Nothing where no column holds days, or
/// none or several may hold the prices.
std::optional<std::vector<PriceLine>> ReadPriceFile(std::string_view utf8, const FundNames& funds);

/// 2026-11-13 (with "-", "/", "." or nothing between), 13/11 2026 or 13.11.2026 (day before month),
/// each with a time of day after it or without. The year has four digits: 11-12-13 is no day.
std::optional<std::int32_t> ReadForeignDay(std::string_view text);
