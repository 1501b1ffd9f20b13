#include "entry/rules/newshares.h"

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"
#include "fundfile/rules/savedvalues.h"

namespace {

enum Box : std::size_t { kDate = 2, kShares = 3, kPrice = 4, kPercent = 6, kAfterLast = 7 };

constexpr int kShareDecimals = 4;
constexpr int kValueDecimals = 2;

}  // namespace

std::optional<std::size_t> EmptyBox(const NoticeBoxes& boxes) {
    for (std::size_t box = kDate; box < kAfterLast; ++box) {
        if (boxes[box].empty()) return box;
    }
    return std::nullopt;
}

std::optional<std::string> ValueBoxText(std::string_view sharesBox, std::string_view priceBox) {
    if (sharesBox.empty() || priceBox.empty()) return std::nullopt;
    return Fixed(ParseDouble(sharesBox) * ParseDouble(priceBox), kValueDecimals);
}

Notice ReadNotice(const NoticeBoxes& boxes) {
    const auto day = ParseDate(boxes[kDate]);
    if (!day) throw Error{ErrorNumber::TypeMismatch, "not a date: \"" + boxes[kDate] + "\""};
    const double shares = ParseDouble(boxes[kShares]);
    return {*day, ParseDouble(Fixed(shares, kShareDecimals)), ParseDouble(boxes[kPrice]),
            ParseInteger(boxes[kPercent])};
}

std::optional<std::string> ValuesToSave(const HoldingRow& row) {
    if (row.sparadeVarden != kKeepValues) return std::nullopt;
    return SavedValuesText(row);
}
