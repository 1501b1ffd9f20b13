#pragma once
// The Swedish texts of the diagram.

#include <string_view>

namespace texts {

inline constexpr std::string_view PlotFailed = "Fel i Plottingrutinen\r\nGör omstart på programmet";
inline constexpr std::string_view PlotFailedLog = "Fel i Plottingrutinen ";
inline constexpr std::string_view PrintPlotFailed =
    "Fel i PrintPlotta\r\nGör omstart på programmet";
inline constexpr std::string_view PrintPlotFailedLog = "Fel i Print Plottingrutinen ";

// It follows the name of the column that is empty.
inline constexpr std::string_view PointIncomplete =
    " saknas\r\nEn punkt har FondNr, XCord, YCord och KontoId\r\nFyll i, eller tryck <Esc>";

// Finding and mending a point
inline constexpr std::string_view AllFunds = "Alla fonder";
inline constexpr std::string_view NoDay = "Skriv en dag, till exempel 2026-11-13";
inline constexpr std::string_view NoPointOn = "Det finns ingen punkt den ";
inline constexpr std::string_view NoPointPrice =
    "Kursen ska vara ett tal större än 0\r\nSkriv till exempel 190,32";
// Between the holding's name, its latest price and its change.
inline constexpr std::string_view SummaryFollows = " : sammanfattningen följer med  ";
inline constexpr std::string_view AfterLatest = "  ";

}  // namespace texts
