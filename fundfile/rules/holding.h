#pragma once
// One row of the holdings table as typed values, in the order of its columns. Knows no file.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// The fund number of a row that stands for a whole account;
/// also what a holding without a number gets.
inline constexpr std::string_view kSummaryFondNr = "999 999";

/// The KontoId of a row whose first column is no number.
inline constexpr std::int32_t kFallbackKontoId = 1;

/// A column without a value is an empty text or `nullopt`. Numbers carry the digits that the column
/// shows: a single-precision column is widened with WidenSingle.
struct HoldingRow {
    std::int32_t kontoId = kFallbackKontoId;   ///< 0
    std::string fond;                          ///< 1
    std::string fondNr;                        ///< 2
    std::optional<std::int32_t> bokfortDatum;  ///< 3, a day number
    std::optional<double> fondandelar;         ///< 4
    std::optional<double> kursKr;              ///< 5
    std::optional<double> vardeKr;             ///< 6
    std::optional<double> andel;               ///< 7
    std::string kontoinnehavare;               ///< 8 or 9
    std::string kontonummer;                   ///< 9 or 8
    std::string namn;                          ///< 10
    std::optional<std::int32_t> plottFarg;     ///< 11
    std::optional<std::int32_t> senasteDag;    ///< 12, a day number
    std::string senasteKurs;                   ///< 13
    std::string procent;                       ///< 14
    std::string kursVarde;                     ///< 15
    std::string skala;                         ///< 16
    std::string sparadeVarden;                 ///< 17

    bool operator==(const HoldingRow&) const = default;
};

/// A column as it is shown without a format: plain text, a date as yyyy-mm-dd, nothing as "".
std::string ShownNumber(std::optional<double> number);
std::string ShownDay(std::optional<std::int32_t> day);
