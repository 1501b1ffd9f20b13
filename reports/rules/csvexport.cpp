#include "reports/rules/csvexport.h"

#include "base/csv.h"
#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "fundfile/rules/summary.h"
#include "reports/rules/texts.h"

#include <algorithm>
#include <optional>
#include <set>

namespace {

constexpr int kMinDecimals = 2, kMaxDecimals = 8;

std::string Number(std::optional<double> number) {
    return number ? PlainText(*number) : "";
}

bool Gives(double price, const OpenHolding& holding, std::int32_t percent) {
    return price > 0 && PercentChange(price, holding.startPrice) == percent;
}

std::string Whole(std::string_view text) {
    return text.find_first_of("0123456789") == std::string_view::npos
               ? ""
               : PlainText(LeadingNumber(text));
}

std::vector<std::string> CellsOf(const HoldingRow& row) {
    const HoldingSummary summary = OpenHoldingOf(row).summary;
    const std::optional<double> latest = LatestPriceOf(summary);
    return {PlainText(row.kontoId),
            HarmlessText(row.fond),
            HarmlessText(row.fondNr),
            ShownDay(row.bokfortDatum),
            Number(row.fondandelar),
            Number(row.kursKr),
            Number(row.vardeKr),
            Number(row.andel),
            HarmlessText(row.namn),
            HarmlessText(row.kontoinnehavare),
            HarmlessText(row.kontonummer),
            latest ? ShownDay(summary.day) : "",
            latest ? PriceText(*latest) : "",
            latest ? Whole(summary.change) : "",
            latest ? Whole(summary.value) : ""};
}

std::string RowsOf(const OpenHolding& holding, std::vector<CurvePoint> points) {
    std::stable_sort(
        points.begin(), points.end(),
        [](const CurvePoint& one, const CurvePoint& other) { return one.day < other.day; });
    std::string rows;
    for (const CurvePoint& point : points) {
        rows +=
            CsvRow({ShownDay(point.day), PlainText(holding.kontoId), HarmlessText(holding.fondNr),
                    HarmlessText(holding.fond), HarmlessText(holding.account),
                    PlainText(point.value), PriceOfPoint(holding, point)});
    }
    return rows;
}

std::string StemOf(std::string_view path) {
    const std::size_t name = path.find_last_of('/') + 1;
    const std::size_t point = path.rfind('.');
    const bool hasEnding = point != std::string_view::npos && point > name;
    std::string_view stem = hasEnding ? path.substr(0, point) : path;
    for (const std::string_view part : {texts::HoldingsFile, texts::PricesFile}) {
        if (stem.size() > name + part.size() && stem.ends_with(part)) {
            return std::string(stem.substr(0, stem.size() - part.size()));
        }
    }
    return std::string(stem);
}

}  // namespace

std::string HoldingsCsv(std::span<const HoldingRow> rows) {
    std::string text = std::string(kCsvMark) + std::string(texts::HoldingsHeader);
    for (const HoldingRow& row : rows) text += CsvRow(CellsOf(row));
    return text;
}

std::string PointsCsv(std::span<const HoldingRow> rows,
                      const std::map<std::int32_t, std::vector<CurvePoint>>& points) {
    std::string text = std::string(kCsvMark) + std::string(texts::PricesHeader);
    std::set<std::int32_t> written;
    for (const HoldingRow& row : rows) {
        const auto found = points.find(row.kontoId);
        if (found == points.end() || !written.insert(row.kontoId).second) continue;
        text += RowsOf(OpenHoldingOf(row), found->second);
    }
    for (const auto& [kontoId, series] : points) {
        if (written.contains(kontoId)) continue;
        OpenHolding nobody;
        nobody.kontoId = kontoId;
        text += RowsOf(nobody, series);
    }
    return text;
}

std::string PriceOfPoint(const OpenHolding& holding, const CurvePoint& point) {
    std::string text;
    Skipping skip;  // a start price of 0, or a price beyond what can be reckoned, has none
    skip([&] {
        const std::optional<double> latest = LatestPriceOf(holding.summary);
        const bool known = latest && holding.summary.day == point.day;
        if (known && Gives(*latest, holding, point.value)) {
            text = PriceText(*latest);
            return;
        }
        const double price = PriceAt(point.value, holding.startPrice);
        for (int decimals = kMinDecimals; decimals <= kMaxDecimals && text.empty(); ++decimals) {
            const std::string rounded = Fixed(price, decimals);
            if (Gives(ParseDouble(rounded), holding, point.value)) text = rounded;
        }
    });
    return text;
}

ExportNames ExportNamesFor(std::string_view path) {
    const std::string stem = StemOf(path);
    const std::string ending(texts::CsvEnding);
    return {stem + std::string(texts::HoldingsFile) + ending,
            stem + std::string(texts::PricesFile) + ending};
}
