#pragma once
// What would become of each line of a file of prices. Stores nothing.

#include "entry/rules/dayround.h"
#include "entry/rules/pricefile.h"
#include "fundfile/rules/summary.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// In the order in which they are shown.
enum class ImportFate { Refused, Asks, Stores, NoPrice, IsThere };

struct ImportedPrice {
    std::int32_t line = 0;                    ///< of the file
    std::optional<std::size_t> holding = {};  ///< its place among the holdings
    std::optional<std::int32_t> day = {};
    std::string dayText = {}, fund = {};  ///< as the file has them
    std::string price = {};               ///< "175,10"; as the file has it where it is none
    std::string verdict = {};             ///< what Enter makes of it, in words
    std::optional<DayPrice> made = {};    ///< as it would be stored
    ImportFate fate = ImportFate::Refused;
    bool doubtful = false;
};

/// One for every line and holding concerned: a line is for all holdings of its fund, unless it
/// names one by its number in the list as an exported file does. Refused ones first, then those to
/// ask about, to store, and those that change nothing; each in the order of the lines.
std::vector<ImportedPrice> ImportPlan(std::span<const PriceLine> lines,
                                      std::span<const RoundLine> holdings, std::int32_t today);

struct ImportCounts {
    std::int32_t stores = 0, asks = 0, refused = 0, there = 0, without = 0;
};
ImportCounts CountOf(std::span<const ImportedPrice> plan);

/// "Enter sparar 8 kurser. 2 rader sparas inte. 12 är redan lagrade. Esc ångrar."
std::string ImportText(const ImportCounts& counts);

/// The columns, left to right: line, day, fund, account, price, what becomes of it.
std::vector<std::string> ImportCells(const ImportedPrice& price,
                                     std::span<const RoundLine> holdings);
