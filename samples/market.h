#pragma once
// Invented prices that move like fund prices: a few markets with calm and uneasy times, and funds
// that follow them more or less closely. The same seed and days always give the same prices.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// The days of a span that have prices: weekdays without the fixed Swedish holidays.
std::vector<std::int32_t> TradingDays(std::int32_t firstDay, std::int32_t lastDay);

enum Factor : std::size_t { kWorld, kSweden, kAsia, kRates, kFactorCount };
using Weights = std::array<double, kFactorCount>;

/// The daily movement of each market, as a fraction: 0.01 is one percent up.
class Market {
  public:
    Market(std::uint64_t seed, std::size_t days);
    std::size_t Days() const { return movements_.size(); }
    double Movement(const Weights& weights, std::size_t day) const;

  private:
    std::vector<Weights> movements_;
};

struct FundCharacter {
    Weights weights{};
    double yearlyNoise = 0;  ///< what no market explains, as a fraction a year
    double yearlyGain = 0;   ///< beside the markets' own
};

/// Prices in kronor with two decimals for the days from `firstDay` (an index) to the market's last,
/// beginning at `startPrice`.
std::vector<double> Prices(const Market& market, const FundCharacter& character,
                           std::size_t firstDay, double startPrice, std::uint64_t seed);
