#include "entry/rules/dayround.h"

#include "base/daynumber.h"
#include "base/number.h"
#include "entry/rules/pricepreview.h"
#include "entry/rules/texts.h"
#include "fundfile/rules/holding.h"
#include "fundfile/rules/missingdays.h"
#include "fundfile/rules/summary.h"

#include <algorithm>
#include <map>
#include <utility>

std::optional<std::int32_t> PercentOn(std::span<const CurvePoint> points, std::int32_t day) {
    const auto found = std::find_if(points.begin(), points.end(),
                                    [day](const CurvePoint& point) { return point.day == day; });
    if (found == points.end()) return std::nullopt;
    return found->value;
}

std::optional<double> PriceOn(const RoundLine& line, std::int32_t day) {
    if (line.holding.summary.day != day || !PercentOn(line.points, day)) return std::nullopt;
    return LatestPriceOf(line.holding.summary);
}

std::vector<std::string> RoundCells(const RoundLine& line, std::int32_t day) {
    const OpenHolding& holding = line.holding;
    const std::optional<double> latest = LatestPriceOf(holding.summary);
    std::vector<std::string> cells = {PlainText(holding.kontoId),
                                      holding.fond,
                                      holding.account,
                                      latest ? PriceText(*latest) : "",
                                      latest ? ShownDay(holding.summary.day) : "",
                                      "",
                                      ""};
    const std::optional<std::int32_t> percent = PercentOn(line.points, day);
    if (!percent) return cells;
    const std::optional<double> price = PriceOn(line, day);
    if (price) cells[roundcolumn::kPrice] = PriceText(*price);
    cells[roundcolumn::kChange] = price && line.before
                                      ? ChangeSince(*line.before, *price)
                                      : ChangeText(*percent) + std::string(texts::SinceStart);
    return cells;
}

std::string DoneText(std::span<const RoundLine> lines, std::int32_t day) {
    const auto done = std::count_if(lines.begin(), lines.end(), [day](const RoundLine& line) {
        return PercentOn(line.points, day).has_value();
    });
    return PlainText(static_cast<std::int32_t>(done)) + std::string(texts::DoneOf) +
           PlainText(static_cast<std::int32_t>(lines.size())) + std::string(texts::DoneEnd);
}

std::vector<DayChoice> DayChoices(std::span<const RoundLine> lines, std::int32_t today) {
    std::map<std::int32_t, std::int32_t> missing;
    for (const RoundLine& line : lines) {
        for (const std::int32_t day : MissingWeekdays(line.points, today)) ++missing[day];
    }
    const auto named = [](std::int32_t day) {
        return FormatDay(day) + "  " + std::string(WeekdayName(day));
    };
    std::vector<DayChoice> choices = {{today, named(today) + std::string(texts::AlsoToday)}};
    for (std::int32_t day = today - 1; day >= today - kMaxDaysBack; --day) {
        if (!IsWeekday(day)) continue;
        const auto found = missing.find(day);
        choices.push_back({day, named(day)});
        if (found == missing.end()) continue;
        choices.back().text += std::string(texts::NextChange) + PlainText(found->second) +
                               std::string(texts::AreMissing);
    }
    return choices;
}

RoundLine WithPrice(RoundLine line, OpenHolding stored, CurvePoint point) {
    const HoldingSummary& summary = line.holding.summary;
    if (summary.day && *summary.day < point.day) line.before = LatestPriceOf(summary);
    std::erase_if(line.points,
                  [&point](const CurvePoint& other) { return other.day == point.day; });
    line.points.push_back(point);
    line.holding = std::move(stored);
    return line;
}
