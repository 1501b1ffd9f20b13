#pragma once
// The day's round: which holdings have a price of the day, and what is shown of each.

#include "fundfile/rules/openholding.h"
#include "fundfile/rules/point.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/// Two day numbers: the one that prices are typed for, and today.
struct RoundDay {
    std::int32_t day = 0, today = 0;
    bool operator==(const RoundDay&) const = default;
};

struct RoundLine {
    OpenHolding holding;
    std::vector<CurvePoint> points;  ///< all it has
    std::optional<double> before;    ///< the price that was its latest before this round's
};

/// The columns, left to right.
namespace roundcolumn {
inline constexpr int kNumber = 0, kFund = 1, kAccount = 2, kLatest = 3, kDay = 4, kPrice = 5,
                     kChange = 6, kCount = 7;
}

/// The value of the day's point; nothing without one.
std::optional<std::int32_t> PercentOn(std::span<const CurvePoint> points, std::int32_t day);

/// The day's price where the summary still knows it to the öre.
std::optional<double> PriceOn(const RoundLine& line, std::int32_t day);

/// One text a column. A holding that has the day's price shows its change: from the price before it
/// where both are known, else since the start.
std::vector<std::string> RoundCells(const RoundLine& line, std::int32_t day);

/// "7 av 10 klara".
std::string DoneText(std::span<const RoundLine> lines, std::int32_t day);

/// A day that prices can be typed for.
struct DayChoice {
    std::int32_t day = 0;
    std::string text;  ///< "2026-11-13  fredag, 3 saknas"
    bool operator==(const DayChoice&) const = default;
};

/// Today, then the weekdays of the last 60 days, the latest first, each with the number of holdings
/// that had begun by then and have no price of it.
std::vector<DayChoice> DayChoices(std::span<const RoundLine> lines, std::int32_t today);

/// The line as it is after its holding was stored with a price of `day`.
RoundLine WithPrice(RoundLine line, OpenHolding stored, CurvePoint point);
