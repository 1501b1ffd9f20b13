#include "fundfile/records.h"

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/queries.h"
#include "fundfile/schema.h"

#include <array>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <variant>

namespace {

/// Row by row: slower, for the rare series in which a day or a value is missing.
std::vector<CurvePoint> WholePointsOf(jet::RecordSet& records) {
    std::vector<CurvePoint> points;
    const std::int32_t count = records.RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        const jet::Value day = records.At(row, 0);
        const jet::Value value = records.At(row, 1);
        if (!day.IsNull() && !value.IsNull()) {
            points.push_back({day.Integer(), value.Integer()});
        }
    }
    return points;
}

std::map<std::int32_t, std::vector<CurvePoint>> WholePointsByHolding(jet::RecordSet& records) {
    std::map<std::int32_t, std::vector<CurvePoint>> points;
    const std::int32_t count = records.RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        const jet::Value day = records.At(row, 0);
        const jet::Value value = records.At(row, 1);
        const jet::Value kontoId = records.At(row, 2);
        if (day.IsNull() || value.IsNull() || kontoId.IsNull()) continue;
        points[kontoId.Integer()].push_back({day.Integer(), value.Integer()});
    }
    return points;
}

std::vector<std::int32_t> WholeValuesOf(jet::RecordSet& records) {
    std::vector<std::int32_t> values;
    const std::int32_t count = records.RecordCount();
    for (std::int32_t row = 0; row < count; ++row) {
        const jet::Value value = records.At(row, 0);
        if (!value.IsNull()) {
            values.push_back(value.Integer());
        }
    }
    return values;
}

template <typename Fast, typename Careful>
auto UnlessNull(const Fast& fast, const Careful& careful) {
    try {
        return fast();
    } catch (const Error& error) {
        if (error.Number() != ErrorNumber::InvalidUseOfNull) {
            throw;
        }
        return careful();
    }
}

/// What `read` gives; nothing where the value is null or of another kind.
template <typename Read>
auto IfReadable(const Read& read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::optional<double> NumberIn(const jet::Value& value) {
    if (const float* single = std::get_if<float>(&value.Held())) {
        return WidenSingle(*single);
    }
    return IfReadable([&] { return value.Number(); });
}

std::optional<std::int32_t> WholeNumberIn(const jet::Value& value) {
    return IfReadable([&] { return value.Integer(); });
}

std::optional<std::int32_t> DayIn(const jet::Value& value) {
    if (const std::string* text = std::get_if<std::string>(&value.Held())) {
        return ParseDate(*text);
    }
    return IfReadable([&] { return DayOfSerial(value.Number()); });
}

template <typename Read>
HoldingRow HoldingFrom(const jet::RecordSet& records, const Read& read) {
    using namespace schema::holding;
    HoldingRow row;
    row.kontoId = WholeNumberIn(read(kKontoId)).value_or(kFallbackKontoId);
    row.fond = read(kFond).Text();
    row.fondNr = read(kFondNr).Text();
    row.bokfortDatum = DayIn(read(kBokfortDatum));
    row.fondandelar = NumberIn(read(kFondandelar));
    row.kursKr = NumberIn(read(kKursKr));
    row.vardeKr = NumberIn(read(kVardeKr));
    row.andel = NumberIn(read(kAndel));
    row.kontoinnehavare = read(records.FieldPosition(kKontoinnehavare)).Text();
    row.kontonummer = read(records.FieldPosition(kKontonummer)).Text();
    row.namn = read(kNamn).Text();
    row.plottFarg = WholeNumberIn(read(kPlottFarg));
    row.senasteDag = WholeNumberIn(read(kSenasteDag));
    row.senasteKurs = read(kSenasteKurs).Text();
    row.procent = read(kProcent).Text();
    row.kursVarde = read(kKursVarde).Text();
    row.skala = read(kSkala).Text();
    row.sparadeVarden = read(kSparadeVarden).Text();
    return row;
}

/// `points` is a data source or a record set.
template <typename Points>
void Add(Points& points, const NewPoint& point) try {
    points.AddNew();
    points.Set(schema::point::kFondNr, point.fondNr);
    points.Set(schema::point::kXCord, point.point.day);
    points.Set(schema::point::kYCord, point.point.value);
    points.Set(schema::point::kKontoId, point.kontoId);
    points.Update();
} catch (const Error&) {
    Skipping skip;  // no half-typed row stays behind in a shared record set
    skip([&] { points.CancelUpdate(); });
    throw;
}

}  // namespace

std::int32_t KontoIdOf(const jet::Value& firstColumn) try {
    return firstColumn.Integer();
} catch (const Error&) {
    return kFallbackKontoId;
}

std::int32_t KontoIdOf(DataSource& holdings) {
    return KontoIdOf(holdings.Field(schema::holding::kKontoId));
}

HoldingRow ReadHolding(DataSource& holdings) {
    return ReadHolding(holdings.Records());
}

HoldingRow ReadHolding(jet::RecordSet& holdings) {
    return HoldingFrom(holdings, [&](std::size_t position) { return holdings.Field(position); });
}

std::vector<HoldingRow> ReadHoldings(DataSource& holdings) {
    return ReadHoldings(holdings.Records());
}

std::vector<HoldingRow> ReadHoldings(jet::RecordSet& records) {
    std::vector<HoldingRow> rows;
    const std::int32_t count = records.RecordCount();
    rows.reserve(static_cast<std::size_t>(count));
    for (std::int32_t row = 0; row < count; ++row) {
        rows.push_back(
            HoldingFrom(records, [&](std::size_t position) { return records.At(row, position); }));
    }
    return rows;
}

std::vector<CurvePoint> ReadPoints(jet::RecordSet& dayAndValue) {
    const auto fast = [&] {
        std::vector<CurvePoint> points;
        points.reserve(static_cast<std::size_t>(dayAndValue.RecordCount()));
        dayAndValue.VisitIntegers(std::array<std::size_t, 2>{0, 1},
                                  [&](std::span<const std::int32_t> row) {
                                      points.push_back({row[0], row[1]});
                                  });
        return points;
    };
    return UnlessNull(fast, [&] { return WholePointsOf(dayAndValue); });
}

std::vector<std::int32_t> ReadValues(jet::Database& database, std::int32_t kontoId) {
    const std::shared_ptr<jet::RecordSet> records =
        database.OpenRecordSet(queries::ValuesOf(kontoId));
    const auto fast = [&] {
        std::vector<std::int32_t> values;
        records->VisitIntegers(
            std::array<std::size_t, 1>{0},
            [&](std::span<const std::int32_t> row) { values.push_back(row[0]); });
        return values;
    };
    return UnlessNull(fast, [&] { return WholeValuesOf(*records); });
}

std::map<std::int32_t, std::vector<CurvePoint>> ReadPointsByHolding(jet::Database& database) {
    const auto records = database.OpenRecordSet(queries::PointsWithHolding());
    const auto fast = [&] {
        std::map<std::int32_t, std::vector<CurvePoint>> points;
        records->VisitIntegers(std::array<std::size_t, 3>{0, 1, 2},
                               [&](std::span<const std::int32_t> row) {
                                   points[row[2]].push_back({row[0], row[1]});
                               });
        return points;
    };
    return UnlessNull(fast, [&] { return WholePointsByHolding(*records); });
}

bool HasPoints(jet::Database& database, std::int32_t kontoId) {
    return !database.OpenRecordSet(queries::FondNrOfPointsOf(kontoId))->Empty();
}

void AddPoint(DataSource& points, const NewPoint& point) {
    Add(points, point);
}

bool StoreDayPoint(jet::RecordSet& series, const NewPoint& point) {
    return StoreDayPoints(series, {&point, 1});
}

bool StoreDayPoints(jet::RecordSet& series, std::span<const NewPoint> points) {
    std::set<double> days;
    for (const NewPoint& each : points) days.insert(each.point.day);
    bool replaced = false;
    // From the last row on: a deleted one moves those behind it.
    for (std::int32_t row = series.RecordCount() - 1; row >= 0; --row) {
        const std::optional<double> day = NumberIn(series.At(row, schema::point::kXCord));
        if (!day || !days.contains(*day)) continue;
        series.MoveTo(row);
        series.Delete();
        replaced = true;
    }
    for (const NewPoint& each : points) Add(series, each);
    return replaced;
}

std::int32_t DeletePointsOf(jet::Database& database, std::int32_t kontoId) {
    return database.Execute(queries::DeletePointsOf(kontoId));
}
