#include "samples/samplefile.h"

#include "base/daynumber.h"
#include "base/number.h"
#include "entry/rules/cells.h"
#include "fundfile/fundfile.h"
#include "fundfile/rules/curvecolour.h"
#include "fundfile/rules/holding.h"
#include "fundfile/rules/point.h"
#include "fundfile/rules/savedvalues.h"
#include "fundfile/rules/scale.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "jet/transaction.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <memory>
#include <optional>

namespace {

constexpr std::int32_t kHistoryDays = 6 * 366;

/// A holding with its history, as it stands on the last day.
struct Holding {
    const SampleHolding* sample = nullptr;
    std::int32_t kontoId = 0;
    std::vector<std::int32_t> days, percents;
    std::vector<double> prices;
    std::int32_t andel = 0;
    std::optional<std::size_t> notice;  // index of the day of the share notice

    bool IsSummary() const { return sample->fondNr == kSummaryFondNr; }
    double SharesNow() const {
        constexpr double kNewShares = 1.0183;
        return notice ? std::round(sample->shares * kNewShares * 10000) / 10000 : sample->shares;
    }
};

/// The first day with a price from 15 February on, in the last such year that is over by a month.
std::optional<std::size_t> NoticeDay(const std::vector<std::int32_t>& days) {
    using namespace std::chrono;
    for (year y = DateOf(days.back()).year(); DayNumber(y / February / 15) > days.front(); --y) {
        const std::int32_t from = DayNumber(y / February / 15);
        const auto found = std::lower_bound(days.begin(), days.end(), from);
        if (days.end() - found > 20) {
            return static_cast<std::size_t>(found - days.begin());
        }
    }
    return std::nullopt;
}

Holding Follow(const SampleHolding& sample, std::int32_t kontoId, const Market& market,
               const std::vector<std::int32_t>& days, std::uint64_t seed) {
    Holding holding;
    holding.sample = &sample;
    holding.kontoId = kontoId;
    const auto first =
        std::lower_bound(days.begin(), days.end(), days.back() - sample.daysBack) - days.begin();
    holding.days.assign(days.begin() + first, days.end());
    holding.prices = Prices(market, sample.character, static_cast<std::size_t>(first),
                            sample.startPrice, seed + static_cast<std::uint64_t>(kontoId));
    for (const double price : holding.prices) {
        holding.percents.push_back(PercentChange(price, sample.startPrice));
    }
    if (sample.shareNotice) {
        holding.notice = NoticeDay(holding.days);
    }
    return holding;
}

/// Each holding's part of what was paid for its account, in whole percent.
void ShareOut(std::vector<Holding>& holdings) {
    std::map<std::string, double> paid;
    const auto cost = [](const Holding& h) { return h.sample->shares * h.sample->startPrice; };
    for (const Holding& holding : holdings) paid[holding.sample->account] += cost(holding);
    for (Holding& holding : holdings) {
        holding.andel = RoundHalfEven(cost(holding) * 100 / paid[holding.sample->account]);
    }
}

/// The first row's scale has the list of the curves that are shown together in front.
std::string ScaleOf(const Holding& holding, const std::vector<Holding>& all) {
    const ScaleRange scale = AutomaticScale(holding.percents);
    if (&holding != &all.front()) {
        return ScaleColumn(scale);
    }
    std::vector<std::int32_t> shown;
    for (const Holding& other : all) {
        if (other.sample->shown) shown.push_back(other.kontoId);
    }
    return FirstScaleColumn(shown, scale);
}

std::string SavedValuesOf(const Holding& holding) {
    if (!holding.notice) {
        return std::string(kKeepValues);
    }
    HoldingRow before;
    before.bokfortDatum = holding.days.front();
    before.fondandelar = holding.sample->shares;
    before.kursKr = holding.sample->startPrice;
    before.vardeKr = RowValue(holding.sample->shares, holding.sample->startPrice);
    return SavedValuesText(before);
}

void SetAccount(jet::RecordSet& records, const SampleAccount& account) {
    records.Set(schema::holding::kNamn, account.name);
    if (!account.holder.empty()) records.Set(schema::holding::kKontoinnehavare, account.holder);
    if (!account.number.empty()) records.Set(schema::holding::kKontonummer, account.number);
}

void SetSummary(jet::RecordSet& records, const Holding& holding) {
    const double value = holding.SharesNow() * holding.prices.back();
    records.Set(schema::holding::kSenasteDag, holding.days.back());
    records.Set(schema::holding::kSenasteKurs,
                "Senaste : " + Fixed(static_cast<float>(holding.prices.back()), 2));
    records.Set(schema::holding::kProcent, PlainText(holding.percents.back()) + " %");
    records.Set(schema::holding::kKursVarde,
                holding.IsSummary() ? std::string("-") : PlainText(RoundHalfEven(value)));
}

void AddHolding(jet::RecordSet& records, const Holding& holding, const SampleAccount& account,
                const std::string& scaleText) {
    const SampleHolding& sample = *holding.sample;
    const std::size_t since = holding.notice.value_or(0);
    const double price = holding.prices[since];
    records.AddNew();
    records.Set(schema::holding::kFond, sample.name);
    records.Set(schema::holding::kFondNr, sample.fondNr);
    records.Set(schema::holding::kBokfortDatum,
                jet::Date{static_cast<double>(holding.days[since])});
    records.Set(schema::holding::kFondandelar, holding.SharesNow());
    records.Set(schema::holding::kKursKr, price);
    records.Set(schema::holding::kVardeKr, RowValue(holding.SharesNow(), price).value());
    records.Set(schema::holding::kAndel, holding.andel);
    SetAccount(records, account);
    records.Set(schema::holding::kPlottFarg, ColourValue(NewCurveColour(holding.kontoId)));
    SetSummary(records, holding);
    records.Set(schema::holding::kSkala, scaleText);
    records.Set(schema::holding::kSparadeVarden, SavedValuesOf(holding));
    records.Update();
}

void AddPoints(jet::RecordSet& records, const Holding& holding) {
    for (std::size_t i = 0; i < holding.days.size(); ++i) {
        records.AddNew();
        records.Set(schema::point::kFondNr, holding.sample->fondNr);
        records.Set(schema::point::kXCord, holding.days[i]);
        records.Set(schema::point::kYCord, holding.percents[i]);
        records.Set(schema::point::kKontoId, holding.kontoId);
        records.Update();
    }
}

std::vector<Holding> FollowAll(const Sample& sample, std::int32_t lastDay) {
    const std::vector<std::int32_t> days = TradingDays(lastDay - kHistoryDays, lastDay);
    const Market market(sample.seed, days.size());
    std::vector<Holding> holdings;
    std::int32_t kontoId = 0;
    for (const SampleHolding& holding : sample.holdings) {
        holdings.push_back(Follow(holding, ++kontoId, market, days, sample.seed));
    }
    ShareOut(holdings);
    return holdings;
}

const SampleAccount& AccountOf(const Sample& sample, const Holding& holding) {
    return *std::find_if(
        sample.accounts.begin(), sample.accounts.end(),
        [&](const SampleAccount& account) { return account.name == holding.sample->account; });
}

}  // namespace

void WriteSample(const Sample& sample, std::int32_t lastDay, const std::filesystem::path& path) {
    const std::vector<Holding> holdings = FollowAll(sample, lastDay);
    jet::Database::Create(path, NewFundFileDesign(), jet::Date{static_cast<double>(lastDay)});
    const std::shared_ptr<jet::Database> file = jet::Database::Open(path);
    jet::Transaction transaction(file);
    const auto holdingRows = file->OpenRecordSet(schema::kHoldingsTable);
    const auto pointRows = file->OpenRecordSet(schema::kPointsTable);
    for (const Holding& holding : holdings) {
        AddHolding(*holdingRows, holding, AccountOf(sample, holding), ScaleOf(holding, holdings));
        AddPoints(*pointRows, holding);
    }
    transaction.Commit();
    file->Close();
}
