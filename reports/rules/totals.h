#pragma once
// The totals of one account. Numbers are taken from the columns' texts, decimal point, as far as
// they go: a text that begins with no number counts as 0.

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// One row of the totals query, each column as its plain text with a decimal point.
struct TotalsRow {
    std::string fondNr, kursKr, vardeKr, procent, kursVarde, senasteKurs;
};

struct Totals {
    float start = 0;
    float latest = 0;
    std::int32_t percent = 0;  ///< the sum; see MeanPercent
    std::int32_t rows = 0;
    bool operator==(const Totals&) const = default;
};

/// The totals with one more row. The percent sum is rounded per row, halves to even, not once at
/// the end. Overflow (6) where a sum does not fit.
Totals WithRow(Totals totals, const TotalsRow& row);

/// The totals of all rows, a summary row among them summed like any other. The report wants it so.
Totals SumOf(std::span<const TotalsRow> rows);

/// What the panel shows: if the first row is a summary row it alone speaks for the account, and its
/// latest price text, "date:amount", holds the latest total with a decimal comma. An amount that
/// cannot be read or added is left out, and nothing else with it.
Totals PanelTotals(std::span<const TotalsRow> rows);

/// The percent sum through the row count, truncated toward zero; the sum itself without rows.
std::int32_t MeanPercent(const Totals& totals);

/// The result label of the totals panel.
std::string PanelText(std::string_view account, const Totals& totals);

/// "Konto A/Startvärde/10234,5 kr/Senaste Totalvärde/11020 kr/7 %".
std::string ReportLine(std::string_view account, const Totals& totals);

/// The account names without surrounding blanks, each once,
/// in the order of the rows; empty ones left out.
std::vector<std::string> DistinctAccounts(std::span<const std::string> names);
