#include "entry/rules/cells.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "entry/rules/texts.h"

namespace {

constexpr std::size_t kLongName = 25;
constexpr std::size_t kKeptOfName = 23;
constexpr std::size_t kShortNumber = 5;
constexpr std::size_t kNumberGroup = 3;
constexpr int kValueDecimals = 2;
// Shares and prices have four decimals at most, so no product needs more than eight.
constexpr int kProductDecimals = 8;

}  // namespace

std::string CellName(std::string_view typed) {
    if (Length(typed) < kLongName) return std::string(typed);
    return Left(typed, kKeptOfName) + "..";
}

std::string CellFundNumber(std::string_view typed) {
    if (Length(typed) <= kShortNumber) return std::string(typed);
    return Left(typed, kNumberGroup) + " " + Right(typed, kNumberGroup);
}

std::optional<std::string> CellNumber(std::string_view typed) try {
    if (Trim(typed).empty()) return "";
    ParseDouble(typed);
    std::string number(typed);
    std::erase(number, ' ');
    return number;
} catch (const Error&) {
    return std::nullopt;
}

std::string FundNumberOrDefault(std::string_view fondNr) {
    return std::string(Trim(fondNr).empty() ? kSummaryFondNr : fondNr);
}

std::optional<double> RowValue(std::optional<double> shares, std::optional<double> price) {
    if (!shares || !price) return std::nullopt;
    return ParseDouble(Fixed(*shares * *price, kProductDecimals));
}

Missing MissingIn(const HoldingRow& row) {
    if (Trim(row.fond).empty()) return Missing::Name;
    if (row.kursKr.value_or(0) <= 0) return Missing::Price;
    return row.bokfortDatum ? Missing::Nothing : Missing::Date;
}

std::string DeletionEntry(const HoldingRow& row, std::string_view today) {
    using std::string;
    const string value = row.vardeKr ? Fixed(*row.vardeKr, kValueDecimals) : "";
    return string(today) + string(texts::LineBreak) + string(texts::Deleted) + row.namn + " " +
           row.fond + string(texts::LineBreak) + row.fondNr + string(texts::AfterDeletedNumber) +
           ShownDay(row.bokfortDatum) + string(texts::AfterDeletedDate) + string(texts::LineBreak) +
           ShownNumber(row.fondandelar) + string(texts::AtPrice) + ShownNumber(row.kursKr) +
           string(texts::AfterDeletedPrice) + value + string(texts::AfterDeletedValue);
}
