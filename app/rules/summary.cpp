#include "app/rules/summary.h"

#include "app/rules/texts.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "fundfile/rules/holding.h"

namespace {

constexpr double kHundred = 100;

double Wide(float value) {
    return static_cast<double>(value);
}

}  // namespace

std::int32_t ChangeSinceStart(float startPrice, float newPrice) {
    if (startPrice == 0) {
        throw Error{ErrorNumber::DivisionByZero, "change since a start price of 0"};
    }
    return RoundHalfEven((Wide(newPrice) - Wide(startPrice)) * kHundred / Wide(startPrice));
}

std::string ChangeText(std::int32_t percent) {
    return PlainText(percent) + std::string(texts::Percent);
}

std::string CurrentValueText(std::string_view fondNr, std::string_view sharesCaption,
                             float newPrice) {
    if (fondNr == kSummaryFondNr) return std::string(texts::NoValue);
    if (Trim(sharesCaption).empty()) return PlainText(0);
    return PlainText(RoundHalfEven(Wide(ParseSingle(sharesCaption)) * Wide(newPrice)));
}

std::string_view SharesCaption(std::string_view label7, std::string_view label2) {
    return label7.empty() ? label2 : label7;
}

std::string UpdatedCaption(std::string_view fund, std::int32_t latestDay) {
    return std::string(texts::WindowCaption) + std::string(fund) + std::string(texts::LastUpdate) +
           DateText(latestDay);
}
