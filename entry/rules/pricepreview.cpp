#include "entry/rules/pricepreview.h"

#include "app/rules/texts.h"
#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "entry/rules/pricecheck.h"
#include "entry/rules/texts.h"
#include "fundfile/rules/point.h"
#include "fundfile/rules/summary.h"

#include <cmath>

namespace {

constexpr double kHundred = 100;
constexpr double kFarPercent = 20;
constexpr int kChangeDecimals = 1;

double PercentSince(double before, double price) {
    return (price - before) * kHundred / before;
}

std::string SinceLatest(const OpenHolding& holding, double latest, double price,
                        std::int32_t today) {
    std::string text = std::string(texts::NextChange) + ChangeSince(latest, price) +
                       std::string(texts::Since) + PriceText(latest);
    if (holding.summary.day) {
        text += std::string(texts::BeforeDay) + ShortDay(*holding.summary.day, today) +
                std::string(texts::AfterDay);
    }
    return text;
}

PriceNote Noted(const std::string& text, bool doubtful) {
    return {.text = (doubtful ? std::string(texts::IsThatRight) : std::string()) + text,
            .doubtful = doubtful};
}

}  // namespace

std::string ChangeSince(double before, double price) {
    const std::string text = Fixed(PercentSince(before, price), kChangeDecimals);
    const bool nothing = text.find_first_not_of("-0,") == std::string::npos;
    if (nothing) return std::string(texts::NoChange);
    return (text.front() == '-' ? "" : "+") + text + std::string(texts::PercentUnit);
}

bool IsFar(double before, double price) {
    return std::abs(PercentSince(before, price)) > kFarPercent;
}

std::string ShortDay(std::int32_t day, std::int32_t today) {
    if (day == today) return std::string(texts::Today);
    const auto date = DateOf(day);
    const auto month = static_cast<unsigned>(date.month());
    std::string text = PlainText(static_cast<std::int32_t>(static_cast<unsigned>(date.day()))) +
                       " " + std::string(texts::ShortMonths.at(month - 1));
    if (date.year() != DateOf(today).year()) text += " " + PlainText(int{date.year()});
    return text;
}

PriceNote PricePreview(const OpenHolding& holding, double price, std::int32_t today) {
    std::int32_t percent = 0;
    try {
        percent = PercentChange(price, holding.startPrice);
    } catch (const Error&) {
        return Noted(PriceText(price) + std::string(texts::NoPercentage), true);
    }
    std::string text = PriceText(price) + std::string(texts::PriceIs) + ChangeText(percent);
    bool far = false;
    if (const std::optional<double> latest = LatestPriceOf(holding.summary)) {
        far = IsFar(*latest, price);
        text += SinceLatest(holding, *latest, price, today);
    }
    return Noted(text, far || Judge(percent) != Verdict::Accept);
}

PriceNote PricePreview(const OpenHolding& holding, std::string_view typed, std::int32_t today) {
    if (typed.empty()) return {};
    const std::optional<double> price = ReadPrice(typed);
    if (!price) return Noted(std::string(texts::NoPrice), true);
    return PricePreview(holding, *price, today);
}
