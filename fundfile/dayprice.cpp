#include "fundfile/dayprice.h"

#include "base/error.h"
#include "fundfile/editrow.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/point.h"
#include "fundfile/rules/scaletext.h"
#include "fundfile/rules/summary.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "jet/transaction.h"
#include "platform/datasource.h"

#include <set>
#include <span>
#include <string>

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

/// And stands on row `row` as before.
void FindRowsAnew(jet::RecordSet& records, std::int32_t row) {
    records.Requery();
    if (!records.Empty()) records.MoveTo(row);
}

}  // namespace

OpenHolding StoreDayPrice(const std::shared_ptr<jet::Database>& database, const OpenHolding& opened,
                          const DayPrice& price) {
    const std::int32_t percent = PercentChange(price.price, opened.startPrice);
    const HoldingSummary summary = SummaryAfter(opened, price.price, price.day);
    jet::Transaction together(database);
    const auto row = database->OpenRecordSet(kHoldingsSource);
    if (row->Empty() || !row->FindFirst(queries::KontoIdIs(opened.kontoId))) {
        throw Error{ErrorNumber::RecordDeleted, "the open holding is no longer in the file"};
    }
    const bool replaced = StoreDayPoint(
        *database,
        {.fondNr = opened.fondNr, .day = price.day, .percent = percent, .kontoId = opened.kontoId});
    const std::string scale =
        ScaleColumnFor(*row, ReadValues(*database, opened.kontoId),
                       replaced ? PointChange::Corrected : PointChange::Added);
    EditRow(*row, [&](jet::RecordSet& edited) {
        edited.Set(holding::kSenasteDag, price.day);
        edited.Set(holding::kSenasteKurs, summary.latestPrice);
        edited.Set(holding::kProcent, summary.change);
        edited.Set(holding::kKursVarde, summary.value);
        edited.Set(holding::kSkala, scale);
    });
    const OpenHolding stored = OpenHoldingOf(ReadHolding(*row));
    together.Commit();
    return stored;
}

void StoreWithScales(const std::shared_ptr<jet::Database>& database, DataSource& points,
                     const std::function<void()>& store) {
    const std::int32_t row = points.Position();
    bool stored = false;
    try {
        jet::Transaction together(database);
        const std::set<std::int32_t> concerned = HoldingsConcerned(points);
        const std::int32_t before = points.RecordCount();
        store();
        stored = true;
        const PointChange change =
            points.RecordCount() > before ? PointChange::Added : PointChange::Corrected;
        for (const std::int32_t kontoId : concerned) UpdateScale(*database, kontoId, change);
        together.Commit();
    } catch (const Error&) {
        // The file took the row back: the record set must not go on counting it, or missing it.
        if (stored) FindRowsAnew(points.Records(), row);
        throw;
    }
}
