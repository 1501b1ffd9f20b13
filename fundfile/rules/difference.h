#pragma once
// What differs between a copy of a fund file and the file as it is now. Knows no files.

#include "fundfile/rules/holding.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct FundContent {
    std::vector<HoldingRow> holdings;
    /// By holding and day; a day may have several.
    std::map<std::pair<std::int32_t, std::int32_t>, std::vector<std::int32_t>> points;
};

struct Difference {
    std::vector<std::string> missing;  ///< holdings that the copy lacks, by name
    std::vector<std::string> extra;    ///< holdings that only the copy has
    std::vector<std::string> changed;  ///< holdings with another row
    std::int32_t missingPoints = 0, extraPoints = 0, changedPoints = 0;
    bool operator==(const Difference&) const = default;
};

Difference DifferenceOf(const FundContent& copy, const FundContent& now);

/// Some lines for the user; one that says so where nothing differs.
std::string DifferenceText(const Difference& difference);
