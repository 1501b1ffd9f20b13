#include "entry/rules/pricecheck.h"

#include "base/error.h"
#include "base/number.h"

namespace {

constexpr float kHundred = 100;
constexpr std::int32_t kAskAbove = 200;
constexpr std::int32_t kRefuseAbove = 1000;

}  // namespace

std::optional<float> ReadPrice(std::string_view text) {
    float price = 0;
    Skipping skip;
    skip([&] { price = ParseSingle(text); });
    if (price <= 0) return std::nullopt;
    return price;
}

std::int32_t PercentChange(float price, float startPrice) {
    if (startPrice == 0) {
        throw Error{ErrorNumber::DivisionByZero, "percentage of a start price of 0"};
    }
    return RoundHalfEven((price - startPrice) * kHundred / startPrice);
}

Verdict Judge(std::int32_t percent) {
    if (percent > kRefuseAbove) return Verdict::AskThenRefuse;
    return percent > kAskAbove ? Verdict::AskFirst : Verdict::Accept;
}
