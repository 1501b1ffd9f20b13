#include "fundfile/rules/savedvalues.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"

std::optional<SavedValues> ParseSavedValues(std::string_view column) {
    const auto pieces = Split(column, kSavedValueEnd);
    constexpr std::size_t kValues = 4;
    if (pieces.size() < kValues) return std::nullopt;
    return SavedValues{pieces[0], pieces[1], pieces[2], pieces[3]};
}

std::string SavedValuesText(const HoldingRow& row) {
    std::string text;
    for (const auto& value : {ShownDay(row.bokfortDatum), ShownNumber(row.fondandelar),
                              ShownNumber(row.kursKr), ShownNumber(row.vardeKr)}) {
        text += value + std::string(kSavedValueEnd);
    }
    return text;
}

double StartPriceOf(const HoldingRow& row) {
    const auto saved = ParseSavedValues(row.sparadeVarden);
    if (!saved) return row.kursKr.value_or(0);
    double start = 0;
    Skipping skip;
    skip([&] { start = ParseDouble(saved->price); });
    return start;
}
