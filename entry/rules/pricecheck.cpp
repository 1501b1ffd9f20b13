#include "entry/rules/pricecheck.h"

#include "base/error.h"
#include "base/number.h"

#include <limits>

namespace {

constexpr std::int32_t kAskAbove = 200;
constexpr std::int32_t kRefuseAbove = 1000;

}  // namespace

std::optional<double> ReadPrice(std::string_view text) {
    double price = 0;
    Skipping skip;
    skip([&] { price = ParseDouble(text); });
    // The percentage is reckoned in single precision: a price that is 0 or too large there is none.
    if (price > double{std::numeric_limits<float>::max()}) return std::nullopt;
    if (static_cast<float>(price) <= 0) return std::nullopt;
    return price;
}

std::optional<DayPrice> ReadDayPrice(std::string_view text, const OpenHolding& holding,
                                     std::int32_t day) {
    std::optional<DayPrice> made;
    Skipping skip;
    if (const auto price = ReadPrice(text)) {
        skip([&] { made = DayPriceOf(holding, *price, day); });
    }
    return made;
}

Verdict Judge(std::int32_t percent) {
    if (percent > kRefuseAbove) return Verdict::AskThenRefuse;
    return percent > kAskAbove ? Verdict::AskFirst : Verdict::Accept;
}
