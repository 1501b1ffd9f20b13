#include "entry/rules/pasteplan.h"

#include "base/number.h"
#include "base/text.h"
#include "entry/rules/fundnames.h"
#include "entry/rules/judgedprice.h"
#include "entry/rules/texts.h"
#include "fundfile/rules/summary.h"

#include <algorithm>
#include <set>
#include <utility>

namespace {

constexpr std::string_view kTab = "\t";

/// The lines without the blank ones at the end.
std::vector<std::string> LinesOf(std::string_view text) {
    std::vector<std::string> lines = Split(text, "\n");
    for (std::string& line : lines) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
    }
    while (!lines.empty() && Trim(lines.back()).empty()) lines.pop_back();
    return lines;
}

PastedPrice Refused(PastedPrice pasted, std::string_view why) {
    pasted.verdict = NotStoredText(why);
    pasted.doubtful = true;
    return pasted;
}

/// What Enter makes of a price whose holding is known.
PastedPrice Judged(PastedPrice pasted, const OpenHolding& holding, std::int32_t today) {
    JudgedPrice judged =
        JudgeForeignPrice(pasted.price, holding, today, LatestPriceOf(holding.summary));
    pasted.price = std::move(judged.text);
    pasted.verdict = std::move(judged.verdict);
    pasted.stores = judged.stores;
    pasted.doubtful = judged.doubtful;
    return pasted;
}

class Planner {
  public:
    Planner(std::span<const OpenHolding> holdings, const PasteInto& into)
        : holdings_(holdings), funds_(holdings), into_(into) {}

    void Add(const std::string& line) {
        const std::vector<std::string> cells = Split(line, kTab);
        const std::string first = Trim(cells.front());
        if (cells.size() > 1 && !first.empty()) return AddNamed(first, Trim(cells[1]));
        AddNext(Trim(cells.back()));
    }

    std::vector<PastedPrice> plan;

  private:
    void AddNamed(const std::string& name, const std::string& price) {
        const std::vector<std::size_t> named = funds_.With(name);
        bool added = false;
        for (const std::size_t i : named) {
            if (!taken_.insert(i).second) continue;
            added = true;
            plan.push_back(Judged({name, i, price, {}}, holdings_[i], into_.today));
        }
        if (added) return;
        plan.push_back(
            Refused({name, {}, price, {}}, named.empty() ? texts::WhyNoFund : texts::WhyTwice));
    }

    void AddNext(const std::string& price) {
        const std::size_t line = next_++;
        if (price.empty()) return;
        if (line >= into_.order.size()) {
            plan.push_back(Refused({"", {}, price, {}}, texts::WhyNoFundLeft));
            return;
        }
        const std::size_t at = into_.order[line];
        plan.push_back(Judged({"", at, price, {}}, holdings_[at], into_.today));
    }

    std::span<const OpenHolding> holdings_;
    FundNames funds_;
    const PasteInto& into_;
    std::size_t next_ = 0;
    std::set<std::size_t> taken_;
};

std::string Counted(std::ptrdiff_t count, std::string_view one, std::string_view more) {
    return PlainText(static_cast<std::int32_t>(count)) + std::string(count == 1 ? one : more);
}

}  // namespace

bool IsPriceColumn(std::string_view text) {
    const std::vector<std::string> lines = LinesOf(text);
    const auto filled = std::count_if(lines.begin(), lines.end(),
                                      [](const std::string& line) { return !Trim(line).empty(); });
    return filled > 1 || (filled == 1 && text.find(kTab) != std::string_view::npos);
}

std::vector<PastedPrice> PastePlan(std::string_view text, std::span<const OpenHolding> holdings,
                                   const PasteInto& into) {
    Planner planner(holdings, into);
    for (const std::string& line : LinesOf(text)) planner.Add(line);
    return std::move(planner.plan);
}

std::string PlanText(std::span<const PastedPrice> plan) {
    const auto stored = std::count_if(plan.begin(), plan.end(),
                                      [](const PastedPrice& pasted) { return pasted.stores; });
    const auto refused = static_cast<std::ptrdiff_t>(plan.size()) - stored;
    std::string text;
    if (stored > 0) {
        text =
            std::string(texts::EnterStores) + Counted(stored, texts::OnePrice, texts::MorePrices);
    }
    if (refused > 0) text += Counted(refused, texts::OneRefused, texts::MoreRefused);
    return text + std::string(texts::EscGivesUp);
}
