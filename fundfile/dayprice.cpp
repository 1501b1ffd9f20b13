#include "fundfile/dayprice.h"

#include "base/error.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/point.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "jet/transaction.h"
#include "platform/datasource.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace schema;

enum class PointChange { Added, Corrected };

/// The scale column of the current row for a series that changed. A series without a scale (beyond
/// 32 bits) leaves it as it is: the point is stored all the same.
std::string ScaleColumnFor(jet::RecordSet& row, std::span<const std::int32_t> values,
                           PointChange change) {
    const std::string present = row.Field(holding::kSkala).Text();
    const ScaleRange stored = ParseScaleText(present).scale;
    ScaleRange scale = stored;
    Skipping skip;
    skip([&] {
        scale = change == PointChange::Added ? WidenedFor(stored, values) : AutomaticScale(values);
    });
    if (scale == stored) return present;
    // The first row keeps the list of curves that stands before its scale.
    return row.Position() == 0 ? WithScale(present, scale) : ScaleColumn(scale);
}

void UpdateScale(jet::Database& database, std::int32_t kontoId, PointChange change) {
    const auto row = database.OpenRecordSet(kHoldingsSource);
    if (row->Empty() || !row->FindFirst(queries::KontoIdIs(kontoId))) return;
    const std::string scale = ScaleColumnFor(*row, ReadValues(database, kontoId), change);
    if (scale == row->Field(holding::kSkala).Text()) return;
    EditRow(*row, [&](jet::RecordSet& edited) { edited.Set(holding::kSkala, scale); });
}

/// The holdings of the stored current row and of what is pending in its place.
std::set<std::int32_t> HoldingsConcerned(DataSource& points) {
    std::set<std::int32_t> kontoIds;
    Skipping skip;  // a point may stand there without a holding, or there may be no row at all
    skip([&] {
        kontoIds.insert(points.Records().At(points.Position(), point::kKontoId).Integer());
    });
    skip([&] { kontoIds.insert(points.Field(point::kKontoId).Integer()); });
    return kontoIds;
}

/// By day; nothing for a holding without points.
std::optional<CurvePoint> LastPointOf(jet::Database& database, std::int32_t kontoId) {
    const auto points = ReadPoints(*database.OpenRecordSet(queries::PointsOf(kontoId)));
    return points.empty() ? std::nullopt : std::optional(points.back());
}

using LastPoints = std::map<std::int32_t, std::optional<CurvePoint>>;

LastPoints LastPointsOf(jet::Database& database, const std::set<std::int32_t>& kontoIds) {
    LastPoints last;
    for (const std::int32_t kontoId : kontoIds) last[kontoId] = LastPointOf(database, kontoId);
    return last;
}

/// A price that is known to the öre, and the day that it is of.
struct KnownPrice {
    std::optional<double> price;
    std::int32_t day = 0;
};

KnownPrice KnownPriceOf(DataSource& points, std::optional<double> price) {
    KnownPrice known;
    Skipping skip;  // a row without a day has no known price
    skip([&] { known = {price, points.Field(point::kXCord).Integer()}; });
    return known;
}

void WriteSummary(jet::RecordSet& row, const HoldingSummary& summary) {
    row.Set(holding::kSenasteDag, summary.day.value_or(0));
    row.Set(holding::kSenasteKurs, summary.latestPrice);
    row.Set(holding::kProcent, summary.change);
    row.Set(holding::kKursVarde, summary.value);
}

/// Nothing where there is no start price, or a value beyond 32 bits:
/// the point is stored all the same.
std::optional<FollowedSummary> FollowSummary(jet::Database& database, std::int32_t kontoId,
                                             const CurvePoint& last, const KnownPrice& known) {
    const auto row = database.OpenRecordSet(kHoldingsSource);
    if (row->Empty() || !row->FindFirst(queries::KontoIdIs(kontoId))) return std::nullopt;
    const OpenHolding before = OpenHoldingOf(ReadHolding(*row));
    const bool isKnown = known.price && known.day == last.day;
    const double price = isKnown ? *known.price : PriceAt(last.value, before.startPrice);
    HoldingSummary summary;
    Skipping skip;
    skip([&] { summary = SummaryAfter(before, price, last.day); });
    if (!summary.day || summary == before.summary) return std::nullopt;
    EditRow(*row, [&](jet::RecordSet& edited) { WriteSummary(edited, summary); });
    return FollowedSummary{OpenHoldingOf(ReadHolding(*row)), price};
}

/// A holding that had no point until now has its summary from elsewhere.
std::vector<FollowedSummary> FollowSummaries(jet::Database& database, const LastPoints& before,
                                             const KnownPrice& known) {
    std::vector<FollowedSummary> followed;
    for (const auto& [kontoId, former] : before) {
        const auto last = LastPointOf(database, kontoId);
        if (!former || !last) continue;
        const bool mended = known.price && known.day == last->day;
        if (last == former && !mended) continue;
        if (auto summary = FollowSummary(database, kontoId, *last, known)) {
            followed.push_back(*std::move(summary));
        }
    }
    return followed;
}

/// And stands on row `row` as before.
void FindRowsAnew(jet::RecordSet& records, std::int32_t row) {
    records.Requery();
    if (!records.Empty()) records.MoveTo(row);
}

/// A price of today or later always is; one of an earlier day unless a later day has a point.
bool IsLatest(jet::Database& database, std::int32_t kontoId, std::int32_t day, std::int32_t today) {
    if (day >= today) return true;
    const std::optional<CurvePoint> last = LastPointOf(database, kontoId);
    return !last || last->day <= day;
}

const DayPrice& LastOf(std::span<const DayPrice> prices) {
    return *std::max_element(
        prices.begin(), prices.end(),
        [](const DayPrice& one, const DayPrice& other) { return one.point.day < other.point.day; });
}

}  // namespace

OpenHolding StoreDayPrice(const std::shared_ptr<jet::Database>& database, const OpenHolding& opened,
                          const DayPrice& price, std::int32_t today) {
    return StoreDayPrices(database, opened, {&price, 1}, today);
}

/// Only the last of them may be the latest price.
OpenHolding StoreDayPrices(const std::shared_ptr<jet::Database>& database,
                           const OpenHolding& opened, std::span<const DayPrice> prices,
                           std::int32_t today) {
    const DayPrice& last = LastOf(prices);
    if (!last.summary) throw Error{ErrorNumber::Overflow, "a summary beyond 32 bits"};
    std::vector<NewPoint> points;
    for (const DayPrice& price : prices) {
        points.push_back({opened.fondNr, price.point, opened.kontoId});
    }
    jet::Transaction together(database);
    const auto row = database->OpenRecordSet(kHoldingsSource);
    if (row->Empty() || !row->FindFirst(queries::KontoIdIs(opened.kontoId))) {
        throw Error{ErrorNumber::RecordDeleted, "the open holding is no longer in the file"};
    }
    const bool latest = IsLatest(*database, opened.kontoId, last.point.day, today);
    const auto series = database->OpenRecordSet(queries::AllPointsOf(opened.kontoId));
    const bool replaced = StoreDayPoints(*series, points);
    const std::string scale =
        ScaleColumnFor(*row, ReadValues(*database, opened.kontoId),
                       replaced ? PointChange::Corrected : PointChange::Added);
    EditRow(*row, [&](jet::RecordSet& edited) {
        if (latest) WriteSummary(edited, *last.summary);
        edited.Set(holding::kSkala, scale);
    });
    const OpenHolding stored = OpenHoldingOf(ReadHolding(*row));
    together.Commit();
    return stored;
}

std::vector<FollowedSummary> StorePoint(const std::shared_ptr<jet::Database>& database,
                                        DataSource& points, const std::function<void()>& store,
                                        std::optional<double> price) {
    const std::int32_t row = points.Position();
    bool stored = false;
    try {
        jet::Transaction together(database);
        const std::set<std::int32_t> concerned = HoldingsConcerned(points);
        const LastPoints last = LastPointsOf(*database, concerned);
        const KnownPrice known = KnownPriceOf(points, price);
        const std::int32_t before = points.RecordCount();
        store();
        stored = true;
        const PointChange change =
            points.RecordCount() > before ? PointChange::Added : PointChange::Corrected;
        for (const std::int32_t kontoId : concerned) UpdateScale(*database, kontoId, change);
        std::vector<FollowedSummary> followed = FollowSummaries(*database, last, known);
        together.Commit();
        return followed;
    } catch (const Error&) {
        // The file took the row back: the record set must not go on counting it, or missing it.
        if (stored) FindRowsAnew(points.Records(), row);
        throw;
    }
}
