#include "reports/rules/totals.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "fundfile/rules/holding.h"
#include "reports/rules/texts.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int kAmountDecimals = 2;
constexpr std::string_view kBeforeLatestTotal = ":";

/// A sum in single precision.
float Single(double sum) {
    const auto single = static_cast<float>(sum);
    if (!std::isfinite(single)) throw Error{ErrorNumber::Overflow, "an account's total"};
    return single;
}

float Plus(float sum, std::string_view column) {
    return Single(static_cast<double>(sum) + LeadingNumber(column));
}

std::int32_t PlusPercent(std::int32_t sum, std::string_view column) {
    return RoundHalfEven(sum + LeadingNumber(column));
}

Totals SummaryTotals(const TotalsRow& row) {
    Totals totals;
    Skipping skip;
    skip([&] { totals.start = Plus(0, row.kursKr); });
    skip([&] {
        const auto pieces = Split(row.senasteKurs, kBeforeLatestTotal);
        if (pieces.size() > 1) totals.latest = ParseSingle(pieces[1]);
    });
    skip([&] { totals.percent = RoundHalfEven(LeadingNumber(row.procent)); });
    return totals;
}

}  // namespace

Totals WithRow(Totals totals, const TotalsRow& row) {
    totals.start = Plus(totals.start, row.vardeKr);
    totals.percent = PlusPercent(totals.percent, row.procent);
    totals.latest = Plus(totals.latest, row.kursVarde);
    ++totals.rows;
    return totals;
}

Totals SumOf(std::span<const TotalsRow> rows) {
    Totals totals;
    for (const auto& row : rows) totals = WithRow(totals, row);
    return totals;
}

Totals PanelTotals(std::span<const TotalsRow> rows) {
    if (!rows.empty() && rows.front().fondNr == kSummaryFondNr) return SummaryTotals(rows.front());
    Totals totals;
    Skipping skip;
    for (const auto& row : rows) {
        skip([&] { totals.start = Plus(totals.start, row.vardeKr); });
        skip([&] { totals.percent = PlusPercent(totals.percent, row.procent); });
        skip([&] { totals.latest = Plus(totals.latest, row.kursVarde); });
        ++totals.rows;
    }
    return totals;
}

std::int32_t MeanPercent(const Totals& totals) {
    return totals.rows > 0 ? totals.percent / totals.rows : totals.percent;
}

std::string PanelText(std::string_view account, const Totals& totals) {
    const std::string twice =
        std::string(texts::ReportLineBreak) + std::string(texts::ReportLineBreak);
    return std::string(account) + twice + std::string(texts::StartTotal) + twice +
           Fixed(totals.start, kAmountDecimals) + std::string(texts::PanelStartUnit) + twice +
           std::string(texts::LatestTotal) + twice + Fixed(totals.latest, kAmountDecimals) +
           std::string(texts::PanelLatestUnit);
}

std::string ReportLine(std::string_view account, const Totals& totals) {
    return Join(
        {std::string(account), std::string(texts::StartTotal),
         PlainText(totals.start) + std::string(texts::ReportUnit), std::string(texts::LatestTotal),
         PlainText(totals.latest) + std::string(texts::ReportUnit),
         PlainText(MeanPercent(totals)) + std::string(texts::ReportPercent)},
        texts::ReportSeparator);
}

std::vector<std::string> DistinctAccounts(std::span<const std::string> names) {
    std::vector<std::string> accounts;
    for (const auto& name : names) {
        const std::string account = Trim(name);
        const bool seen = std::find(accounts.begin(), accounts.end(), account) != accounts.end();
        if (!account.empty() && !seen) accounts.push_back(account);
    }
    return accounts;
}
