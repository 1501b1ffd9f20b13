#include "entry/rules/importplan.h"

#include "base/number.h"
#include "base/text.h"
#include "entry/rules/fundnames.h"
#include "entry/rules/judgedprice.h"
#include "entry/rules/texts.h"
#include "fundfile/rules/holding.h"
#include "fundfile/rules/summary.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {

/// The points of one holding, in the order of their days.
class Series {
  public:
    explicit Series(const RoundLine& line) : line_(&line), points_(line.points) {
        std::stable_sort(
            points_.begin(), points_.end(),
            [](const CurvePoint& one, const CurvePoint& other) { return one.day < other.day; });
    }

    const OpenHolding& Holding() const { return line_->holding; }

    /// What the latest point before that day stands for.
    std::optional<double> PriceBefore(std::int32_t day) const {
        const auto at = FirstOn(day);
        if (at == points_.begin()) return std::nullopt;
        const double price = PriceAt(std::prev(at)->value, Holding().startPrice);
        return price > 0 ? std::optional(price) : std::nullopt;
    }

    /// Storing it would change nothing: the point, and the price that the summary knows to the öre.
    bool Has(const DayPrice& price) const {
        const std::int32_t day = price.point.day;
        for (auto at = FirstOn(day); at != points_.end() && at->day == day; ++at) {
            if (at->value == price.point.value) return !MendsSummary(price);
        }
        return false;
    }

  private:
    std::vector<CurvePoint>::const_iterator FirstOn(std::int32_t day) const {
        return std::lower_bound(
            points_.begin(), points_.end(), day,
            [](const CurvePoint& point, std::int32_t other) { return point.day < other; });
    }
    bool MendsSummary(const DayPrice& price) const {
        const std::optional<double> latest = LatestPriceOf(Holding().summary);
        if (!latest || Holding().summary.day != price.point.day) return false;
        return PriceText(*latest) != price.text &&
               PercentChange(*latest, Holding().startPrice) == price.point.value;
    }

    const RoundLine* line_;
    std::vector<CurvePoint> points_;
};

class Planner {
  public:
    Planner(std::span<const RoundLine> holdings, std::int32_t today) : today_(today) {
        std::vector<OpenHolding> opened;
        for (const RoundLine& line : holdings) {
            byKontoId_.emplace(PlainText(line.holding.kontoId), opened.size());
            opened.push_back(line.holding);
            series_.emplace_back(line);
        }
        funds_ = FundNames(opened);
    }

    void Add(const PriceLine& line) {
        ImportedPrice price{.line = line.number,
                            .day = ReadForeignDay(line.day),
                            .dayText = line.day,
                            .fund = line.fond.empty() ? line.fondNr : line.fond,
                            .price = line.price};
        const std::vector<std::size_t> concerned = HoldingsOf(line);
        if (line.tooLong) return Refuse(std::move(price), texts::WhyTooLong);
        if (!price.day) return Refuse(std::move(price), texts::WhyNoDay);
        if (line.price.empty()) {
            price.verdict = texts::NothingOnTheLine;
            price.fate = ImportFate::NoPrice;
            return plan.push_back(std::move(price));
        }
        if (concerned.empty()) return Refuse(std::move(price), texts::WhyNoFund);
        for (const std::size_t at : concerned) AddFor(price, at);
    }

    std::vector<ImportedPrice> plan;

  private:
    std::vector<std::size_t> HoldingsOf(const PriceLine& line) const {
        std::vector<std::size_t> named = funds_.With(line.fondNr, line.fond);
        // One column may hold names and numbers.
        if (named.empty() && line.fondNr.empty()) named = funds_.With(line.fond);
        if (named.empty() && line.fond.empty()) named = funds_.With(line.fondNr);
        const auto one = byKontoId_.find(line.kontoId);
        const bool isNamed = one != byKontoId_.end() &&
                             std::find(named.begin(), named.end(), one->second) != named.end();
        return isNamed ? std::vector{one->second} : named;
    }

    void Refuse(ImportedPrice price, std::string_view why) {
        price.verdict = NotStoredText(why);
        price.doubtful = true;
        plan.push_back(std::move(price));
    }

    void AddFor(ImportedPrice price, std::size_t at) {
        const Series& series = series_[at];
        JudgedPrice judged = JudgeForeignPrice(price.price, series.Holding(), *price.day,
                                               series.PriceBefore(*price.day));
        price.holding = at;
        price.price = judged.text;
        price.verdict = judged.verdict;
        price.doubtful = judged.doubtful;
        if (judged.price && series.Has(*judged.price)) return AddThere(std::move(price));
        if (*price.day > today_) return Refuse(std::move(price), texts::WhyNotYet);
        if (!judged.stores) return plan.push_back(std::move(price));
        const auto [taken, isNew] = taken_.emplace(std::pair(at, *price.day), judged.text);
        if (!isNew && taken->second == judged.text) return AddThere(std::move(price));
        if (!isNew) return Refuse(std::move(price), texts::WhyTwiceThatDay);
        price.made = std::move(judged.price);
        price.fate = judged.asks ? ImportFate::Asks : ImportFate::Stores;
        plan.push_back(std::move(price));
    }

    void AddThere(ImportedPrice price) {
        price.verdict = texts::IsThereAlready;
        price.fate = ImportFate::IsThere;
        price.doubtful = false;
        plan.push_back(std::move(price));
    }

    std::int32_t today_;
    FundNames funds_;
    std::map<std::string, std::size_t, std::less<>> byKontoId_;
    std::vector<Series> series_;
    std::map<std::pair<std::size_t, std::int32_t>, std::string> taken_;
};

std::string Counted(std::int32_t count, std::string_view one, std::string_view more) {
    if (count == 0) return "";
    return PlainText(count) + std::string(count == 1 ? one : more);
}

}  // namespace

std::vector<ImportedPrice> ImportPlan(std::span<const PriceLine> lines,
                                      std::span<const RoundLine> holdings, std::int32_t today) {
    Planner planner(holdings, today);
    for (const PriceLine& line : lines) planner.Add(line);
    std::stable_sort(
        planner.plan.begin(), planner.plan.end(),
        [](const ImportedPrice& one, const ImportedPrice& other) { return one.fate < other.fate; });
    return std::move(planner.plan);
}

ImportCounts CountOf(std::span<const ImportedPrice> plan) {
    ImportCounts counts;
    for (const ImportedPrice& price : plan) {
        counts.refused += price.fate == ImportFate::Refused;
        counts.asks += price.fate == ImportFate::Asks;
        counts.stores += price.fate == ImportFate::Stores || price.fate == ImportFate::Asks;
        counts.without += price.fate == ImportFate::NoPrice;
        counts.there += price.fate == ImportFate::IsThere;
    }
    return counts;
}

std::string ImportText(const ImportCounts& counts) {
    const std::string stored = counts.stores == 0
                                   ? std::string(texts::NothingToStore)
                                   : std::string(texts::EnterStores) +
                                         Counted(counts.stores, texts::OnePrice, texts::MorePrices);
    return stored + Counted(counts.refused, texts::OneRefused, texts::MoreRefused) +
           Counted(counts.there, texts::OneThere, texts::MoreThere) +
           Counted(counts.without, texts::OneWithout, texts::MoreWithout) +
           std::string(counts.stores == 0 ? texts::EscLeaves : texts::EscGivesUp);
}

std::vector<std::string> ImportCells(const ImportedPrice& price,
                                     std::span<const RoundLine> holdings) {
    const OpenHolding* holding = price.holding ? &holdings[*price.holding].holding : nullptr;
    return {PlainText(price.line),
            price.day ? ShownDay(price.day) : price.dayText,
            holding != nullptr ? holding->fond : price.fund,
            holding != nullptr ? holding->account : "",
            price.price,
            price.verdict};
}
