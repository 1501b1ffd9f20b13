#include "samples/market.h"

#include "base/daynumber.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace {

constexpr double kDaysAYear = 250;

/// SplitMix64: tiny, and the same everywhere, which the standard's distributions are not.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    double Uniform() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t bits = state_;
        bits = (bits ^ (bits >> 30U)) * 0xBF58476D1CE4E5B9U;
        bits = (bits ^ (bits >> 27U)) * 0x94D049BB133111EBU;
        bits ^= bits >> 31U;
        return static_cast<double>(bits >> 11U) * 0x1p-53;
    }

    /// Nearly normal, mean 0 and deviation 1: the sum of twelve uniforms.
    double Normal() {
        double sum = -6;
        for (int i = 0; i < 12; ++i) sum += Uniform();
        return sum;
    }

  private:
    std::uint64_t state_;
};

struct Nature {
    double yearlyGain, yearlyDeviation;
};

constexpr std::array<Nature, kFactorCount> kNatures = {Nature{0.075, 0.14}, Nature{0.08, 0.17},
                                                       Nature{0.05, 0.19}, Nature{0.022, 0.03}};

/// How much of the world's unrest every other market shares.
constexpr Weights kTied = {0, 0.6, 0.5, -0.05};

bool IsFixedHoliday(std::chrono::year_month_day date) {
    using namespace std::chrono;
    constexpr std::array kHolidays = {January / 1,   January / 6,   May / 1,       June / 6,
                                      December / 24, December / 25, December / 26, December / 31};
    return std::find(kHolidays.begin(), kHolidays.end(), date.month() / date.day()) !=
           kHolidays.end();
}

bool IsWeekday(std::int32_t day) {
    const std::int32_t sinceSaturday = (day % 7 + 7) % 7;  // day 0 was a Saturday
    return sinceSaturday >= 2;
}

}  // namespace

std::vector<std::int32_t> TradingDays(std::int32_t firstDay, std::int32_t lastDay) {
    std::vector<std::int32_t> days;
    for (std::int32_t day = firstDay; day <= lastDay; ++day) {
        if (IsWeekday(day) && !IsFixedHoliday(DateOf(day))) {
            days.push_back(day);
        }
    }
    return days;
}

Market::Market(std::uint64_t seed, std::size_t days) : movements_(days) {
    Random random(seed);
    Weights unrest;  // 1 is ordinary; a large movement makes the next days uneasy, too
    unrest.fill(1);
    for (Weights& movement : movements_) {
        const double world = random.Normal();
        for (std::size_t factor = 0; factor < kFactorCount; ++factor) {
            const double own = random.Normal();
            const double tie = kTied[factor];
            const double shock =
                factor == kWorld ? world : tie * world + std::sqrt(1 - tie * tie) * own;
            const Nature& nature = kNatures[factor];
            movement[factor] =
                nature.yearlyGain / kDaysAYear +
                nature.yearlyDeviation / std::sqrt(kDaysAYear) * std::sqrt(unrest[factor]) * shock;
            unrest[factor] = 0.06 + (0.86 + 0.08 * shock * shock) * unrest[factor];
        }
    }
}

double Market::Movement(const Weights& weights, std::size_t day) const {
    double movement = 0;
    for (std::size_t factor = 0; factor < kFactorCount; ++factor) {
        movement += weights[factor] * movements_[day][factor];
    }
    return movement;
}

std::vector<double> Prices(const Market& market, const FundCharacter& character,
                           std::size_t firstDay, double startPrice, std::uint64_t seed) {
    Random random(seed);
    std::vector<double> prices;
    double price = startPrice;
    for (std::size_t day = firstDay; day < market.Days(); ++day) {
        if (day > firstDay) {
            price *= 1 + market.Movement(character.weights, day) +
                     character.yearlyGain / kDaysAYear +
                     character.yearlyNoise / std::sqrt(kDaysAYear) * random.Normal();
        }
        prices.push_back(std::round(price * 100) / 100);
    }
    return prices;
}
