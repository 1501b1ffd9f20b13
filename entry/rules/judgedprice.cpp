#include "entry/rules/judgedprice.h"

#include "base/pastedtext.h"
#include "entry/rules/pricecheck.h"
#include "entry/rules/pricepreview.h"
#include "entry/rules/texts.h"

#include <utility>

namespace {

JudgedPrice Refused(JudgedPrice judged, std::string_view why) {
    judged.verdict = NotStoredText(why);
    judged.doubtful = true;
    return judged;
}

}  // namespace

std::string NotStoredText(std::string_view why) {
    return std::string(texts::NotStoredBecause) + std::string(why);
}

JudgedPrice JudgeForeignPrice(const std::string& text, const OpenHolding& holding, std::int32_t day,
                              std::optional<double> before) {
    JudgedPrice judged{.text = text};
    const std::optional<std::string> number = PastedNumber(text);
    if (!number || !ReadPrice(*number)) return Refused(std::move(judged), texts::WhyNoPrice);
    judged.price = ReadDayPrice(*number, holding, day);
    if (!judged.price || !judged.price->summary) {
        judged.price.reset();
        return Refused(std::move(judged), texts::WhyNoPercentage);
    }
    judged.text = judged.price->text;
    const std::int32_t percent = judged.price->point.value;
    const Verdict verdict = Judge(percent);
    if (verdict == Verdict::AskThenRefuse) return Refused(std::move(judged), texts::WhyTooMuch);
    judged.stores = true;
    judged.asks = verdict == Verdict::AskFirst;
    judged.doubtful = judged.asks || (before && IsFar(*before, judged.price->price));
    judged.verdict = ChangeText(percent);
    if (before) {
        judged.verdict +=
            std::string(texts::NextChange) + ChangeSince(*before, judged.price->price);
    }
    if (judged.asks) judged.verdict = texts::AsksFirst;
    if (judged.doubtful) judged.verdict = std::string(texts::IsThatRight) + judged.verdict;
    return judged;
}
