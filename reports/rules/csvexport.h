#pragma once
// Holdings and points as tables that other programs read, and that prices are imported from again.

#include "fundfile/rules/holding.h"
#include "fundfile/rules/openholding.h"
#include "fundfile/rules/point.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// One line a holding, with its headings before them. Texts that a spreadsheet would run are
/// harmless.
std::string HoldingsCsv(std::span<const HoldingRow> rows);

/// One line a point, holding by holding, each in the order of its days: what a price on that day
/// gives the same percentage. Points without a holding have neither name nor price.
std::string PointsCsv(std::span<const HoldingRow> rows,
                      const std::map<std::int32_t, std::vector<CurvePoint>>& points);

/// The price as the summary knows it, else as the percentage stands for, with as many decimals as
/// give that percentage again; "" where no price does.
std::string PriceOfPoint(const OpenHolding& holding, const CurvePoint& point);

/// The two files that one chosen name stands for: "fonder innehav.csv" and "fonder kurser.csv" for
/// "fonder.csv" and for each of the two.
struct ExportNames {
    std::string holdings, prices;
    bool operator==(const ExportNames&) const = default;
};
ExportNames ExportNamesFor(std::string_view path);
