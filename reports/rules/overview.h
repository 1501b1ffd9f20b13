#pragma once
// All holdings with what they are worth: the lines of the overview, their order, and the sums under
// them, by the rules of the account totals.

#include "fundfile/rules/holding.h"
#include "fundfile/rules/point.h"
#include "reports/rules/totals.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// What the file has of one holding.
struct OverviewSource {
    HoldingRow row;
    TotalsRow totals;
    std::vector<CurvePoint> points;  ///< in any order
};

/// A number that is missing has no value. Texts of the file stay as they are.
struct OverviewLine {
    std::int32_t kontoId = 0;
    std::string fond, account;
    std::optional<double> latest;            ///< price
    std::optional<std::int32_t> day;         ///< of that price
    std::optional<std::int32_t> change;      ///< of the last point, from the one before
    std::optional<std::int32_t> sinceStart;  ///< whole percent
    std::optional<double> value;             ///< kronor
    std::optional<double> share;             ///< of its account, in percent
    bool operator==(const OverviewLine&) const = default;
};

namespace overviewcolumn {
inline constexpr int kNumber = 0, kFund = 1, kAccount = 2, kLatest = 3, kDay = 4, kChange = 5,
                     kSinceStart = 6, kValue = 7, kShare = 8, kCount = 9;
}

/// In the order of the rows. A summary row has no value and no share of one.
std::vector<OverviewLine> OverviewOf(std::span<const OverviewSource> sources);

/// By a column, equal ones in the order of their numbers; what is missing comes last either way.
std::vector<OverviewLine> Sorted(std::vector<OverviewLine> lines, int column, bool descending);

/// One text a column.
std::vector<std::string> OverviewCells(const OverviewLine& line);

/// A row for each account, as its totals panel has it, then one for all of them; that alone where
/// there is one account.
std::vector<std::vector<std::string>> OverviewSums(std::span<const OverviewSource> sources);
