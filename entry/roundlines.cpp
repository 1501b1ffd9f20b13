#include "entry/roundlines.h"

#include "fundfile/records.h"
#include "fundfile/schema.h"
#include "jet/database.h"

#include <cstdint>
#include <map>
#include <optional>

std::vector<RoundLine> ReadRoundLines(jet::Database& database, std::span<const RoundLine> former) {
    const std::map<std::int32_t, std::vector<CurvePoint>> points = ReadPointsByHolding(database);
    std::map<std::int32_t, std::optional<double>> before;
    for (const RoundLine& line : former) before[line.holding.kontoId] = line.before;
    const auto rows = database.OpenRecordSet(schema::kHoldingsSource);
    std::vector<RoundLine> lines;
    for (const HoldingRow& row : ReadHoldings(*rows)) {
        const auto found = points.find(row.kontoId);
        lines.push_back({OpenHoldingOf(row),
                         found == points.end() ? std::vector<CurvePoint>{} : found->second,
                         before[row.kontoId]});
    }
    return lines;
}
