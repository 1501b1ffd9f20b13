#include "tools/rules/percent.h"

#include "base/error.h"
#include "base/number.h"

namespace {

constexpr float kHundred = 100;
constexpr int kDecimals = 2;
constexpr std::string_view kUnit = "  %";

}  // namespace

std::string PercentAnswer(std::string_view startText, std::string_view newText) {
    const float start = ParseSingle(startText);
    const float next = ParseSingle(newText);
    if (start == 0) throw Error{kDivisionByZero, "percentage of a start value of 0"};
    return PlainText(RoundHalfEven((next - start) * kHundred / start)) + std::string(kUnit);
}

std::string WithTwoDecimals(std::string_view text) {
    std::string shown(text);
    Skipping skip;
    skip([&] { shown = Fixed(ParseDouble(text), kDecimals); });
    return shown;
}
