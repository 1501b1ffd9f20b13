#include "reports/rules/overview.h"

#include "base/number.h"
#include "base/text.h"
#include "fundfile/rules/openholding.h"
#include "fundfile/rules/summary.h"
#include "reports/rules/texts.h"

#include <algorithm>
#include <compare>
#include <map>
#include <utility>

namespace {

constexpr double kHundred = 100;
constexpr int kAmountDecimals = 2;
constexpr int kShareDecimals = 1;

/// From the last but one point to the last.
std::optional<std::int32_t> LastChange(std::vector<CurvePoint> points) {
    if (points.size() < 2) return std::nullopt;
    const auto byDay = [](const CurvePoint& one, const CurvePoint& other) {
        return one.day < other.day;
    };
    std::stable_sort(points.begin(), points.end(), byDay);
    return points.back().value - points[points.size() - 2].value;
}

bool BeginsWithNumber(std::string_view text) {
    const auto first = text.find_first_not_of(" -");
    return first != std::string_view::npos && text[first] >= '0' && text[first] <= '9';
}

bool IsSummary(const OverviewSource& source) {
    return source.row.fondNr == kSummaryFondNr;
}

OverviewLine LineOf(const OverviewSource& source) {
    const OpenHolding holding = OpenHoldingOf(source.row);
    OverviewLine line;
    line.kontoId = holding.kontoId;
    line.fond = holding.fond;
    line.account = Trim(holding.account);
    line.latest = LatestPriceOf(holding.summary);
    if (line.latest) line.day = holding.summary.day;
    line.change = LastChange(source.points);
    if (BeginsWithNumber(source.row.procent)) {
        line.sinceStart = RoundHalfEven(LeadingNumber(source.row.procent));
    }
    if (!IsSummary(source) && BeginsWithNumber(source.row.kursVarde)) {
        line.value = LeadingNumber(source.row.kursVarde);
    }
    return line;
}

struct AccountSum {
    double value = 0;
    int rows = 0;
    bool bySummary = false;  ///< its first row speaks for the account
};

/// Negative where `one` comes first; missing values count as the greatest.
template <typename T>
int Compared(const std::optional<T>& one, const std::optional<T>& other, int direction) {
    if (!one || !other)
        return static_cast<int>(other.has_value()) - static_cast<int>(one.has_value());
    if (*one == *other) return 0;
    return *one < *other ? -direction : direction;
}

int Compared(const std::string& one, const std::string& other, int direction) {
    const std::string left = LowerCase(one), right = LowerCase(other);
    if (left == right) return 0;
    return left < right ? -direction : direction;
}

int Compared(const OverviewLine& one, const OverviewLine& other, int column, int direction) {
    using namespace overviewcolumn;
    switch (column) {
        case kFund:
            return Compared(one.fond, other.fond, direction);
        case kAccount:
            return Compared(one.account, other.account, direction);
        case kLatest:
            return Compared(one.latest, other.latest, direction);
        case kDay:
            return Compared(one.day, other.day, direction);
        case kChange:
            return Compared(one.change, other.change, direction);
        case kSinceStart:
            return Compared(one.sinceStart, other.sinceStart, direction);
        case kValue:
            return Compared(one.value, other.value, direction);
        case kShare:
            return Compared(one.share, other.share, direction);
        default:
            return Compared(std::optional(one.kontoId), std::optional(other.kontoId), direction);
    }
}

std::string Signed(std::int32_t number) {
    return (number > 0 ? "+" : "") + PlainText(number);
}

std::vector<std::string> SumCells(const std::string& name, const Totals& totals) {
    std::vector<std::string> cells(overviewcolumn::kCount);
    cells[overviewcolumn::kFund] = name;
    cells[overviewcolumn::kSinceStart] =
        PlainText(MeanPercent(totals)) + std::string(texts::ReportPercent);
    cells[overviewcolumn::kValue] = Fixed(totals.latest, kAmountDecimals);
    return cells;
}

std::vector<TotalsRow> RowsOf(std::span<const OverviewSource> sources, std::string_view account) {
    std::vector<TotalsRow> rows;
    for (const OverviewSource& source : sources) {
        if (Trim(source.row.namn) == account) rows.push_back(source.totals);
    }
    return rows;
}

}  // namespace

std::vector<OverviewLine> OverviewOf(std::span<const OverviewSource> sources) {
    std::vector<OverviewLine> lines;
    std::map<std::string, AccountSum> sums;
    for (const OverviewSource& source : sources) {
        OverviewLine& line = lines.emplace_back(LineOf(source));
        AccountSum& sum = sums[line.account];
        if (sum.rows++ == 0 && IsSummary(source)) {
            // Its latest price is what the whole account is worth.
            line.value = line.latest;
            sum.bySummary = true;
            sum.value = line.value.value_or(0);
        } else if (!sum.bySummary) {
            sum.value += line.value.value_or(0);
        }
    }
    for (OverviewLine& line : lines) {
        const double sum = sums[line.account].value;
        if (line.value && sum > 0) line.share = *line.value * kHundred / sum;
    }
    return lines;
}

std::vector<OverviewLine> Sorted(std::vector<OverviewLine> lines, int column, bool descending) {
    const int direction = descending ? -1 : 1;
    std::stable_sort(lines.begin(), lines.end(),
                     [&](const OverviewLine& one, const OverviewLine& other) {
                         const int order = Compared(one, other, column, direction);
                         return order != 0 ? order < 0 : one.kontoId < other.kontoId;
                     });
    return lines;
}

std::vector<std::string> OverviewCells(const OverviewLine& line) {
    return {
        PlainText(line.kontoId),
        line.fond,
        line.account,
        line.latest ? PriceText(*line.latest) : "",
        ShownDay(line.day),
        line.change ? Signed(*line.change) : "",
        line.sinceStart ? ChangeText(*line.sinceStart) : "",
        line.value ? Fixed(*line.value, kAmountDecimals) : "",
        line.share ? Fixed(*line.share, kShareDecimals) + std::string(texts::ReportPercent) : ""};
}

std::vector<std::vector<std::string>> OverviewSums(std::span<const OverviewSource> sources) {
    std::vector<std::string> names;
    for (const OverviewSource& source : sources) names.push_back(source.row.namn);
    std::vector<std::vector<std::string>> sums;
    Totals all;
    const std::vector<std::string> accounts = DistinctAccounts(names);
    for (const std::string& account : accounts) {
        const Totals totals = PanelTotals(RowsOf(sources, account));
        sums.push_back(SumCells(std::string(texts::SumOfAccount) + account, totals));
        all.start += totals.start;
        all.latest += totals.latest;
        all.percent += totals.percent;
        all.rows += std::max(totals.rows, 1);  // a summary row speaks for one
    }
    if (accounts.size() == 1) return sums;
    sums.push_back(SumCells(std::string(texts::SumOfAll), all));
    return sums;
}
