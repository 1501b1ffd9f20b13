#pragma once
// The Swedish texts that the rules of the reports put together.

#include <string_view>

namespace texts {

inline constexpr std::string_view StartTotal = "Startvärde";
inline constexpr std::string_view LatestTotal = "Senaste Totalvärde";
// One blank more in the second, on purpose: the two amounts stand in line.
inline constexpr std::string_view PanelStartUnit = "  kr";
inline constexpr std::string_view PanelLatestUnit = "   kr";
inline constexpr std::string_view ReportUnit = " kr";
inline constexpr std::string_view ReportPercent = " %";
inline constexpr std::string_view ReportSeparator = "/";
inline constexpr std::string_view ReportLineBreak = "\r\n";

inline constexpr std::string_view ReportUpdated = "Senaste UppDatering  ";
inline constexpr std::string_view ReportScaleUnit = "  %";
inline constexpr std::string_view ReportStartPrice = "StartKurs : ";
inline constexpr std::string_view ReportStartValue = "Värde vid start : ";
inline constexpr std::string_view ReportStartUnit = " Kr";
inline constexpr std::string_view ReportCurrentValue = "Värde idag : ";
inline constexpr std::string_view ReportTotals = "Total Summa för konto :";

// The rows of sums under the overview; the first is followed by the account's name.
inline constexpr std::string_view SumOfAccount = "Summa ";
inline constexpr std::string_view SumOfAll = "Summa alla konton";

// Exported tables: what their names end in, and their first lines.
inline constexpr std::string_view HoldingsFile = " innehav";
inline constexpr std::string_view PricesFile = " kurser";
inline constexpr std::string_view CsvEnding = ".csv";
inline constexpr std::string_view HoldingsHeader =
    "Nr;Fond;Fondnr;Datum;Andelar;Startkurs;Startvärde;Andel %;Konto;Kontoinnehavare;Kontonummer;"
    "Senaste dag;Senaste kurs;Ändring %;Värde\r\n";
inline constexpr std::string_view PricesHeader = "Datum;Nr;Fondnr;Fond;Konto;Procent;Kronor\r\n";

}  // namespace texts
