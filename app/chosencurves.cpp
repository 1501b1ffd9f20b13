#include "app/chosencurves.h"

#include "app/frmPPM.h"
#include "fundfile/queries.h"
#include "fundfile/records.h"
#include "fundfile/rules/curvecolour.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "platform/datasource.h"

#include <cstdint>
#include <string>

namespace {

ShownCurve CurveOf(jet::RecordSet& holdings, std::int32_t kontoId) {
    if (holdings.FindFirst(queries::KontoIdIs(kontoId))) return ShownCurveOf(ReadHolding(holdings));
    ShownCurve without;
    without.kontoId = kontoId;
    without.colour = NewCurveColour(kontoId);
    return without;
}

/// Empties the query data source when the work with it ends, however it ends.
class QuerySource {
  public:
    explicit QuerySource(DataSource& source) : source_(source) {}
    QuerySource(const QuerySource&) = delete;
    QuerySource& operator=(const QuerySource&) = delete;
    ~QuerySource() { source_.Close(); }

    jet::RecordSet& Open(jet::Database& database, const std::string& query) {
        source_.SetRecordSet(database.OpenRecordSet(query));
        return source_.Records();
    }

  private:
    DataSource& source_;
};

}  // namespace

void ForEachChosenCurve(frmPPM& window, const DrawCurve& draw) {
    if (!window.FundDb) return;
    const auto holdings = window.FundDb->OpenRecordSet(schema::kHoldingsTable);
    if (holdings->Eof()) return;
    QuerySource query(*window.dtaSQL);
    for (const std::int32_t kontoId : window.SelectedCurves) {
        const auto points = ReadPoints(query.Open(*window.FundDb, queries::PointsOf(kontoId)));
        if (points.empty()) continue;
        draw(points, CurveOf(*holdings, kontoId));
    }
}
