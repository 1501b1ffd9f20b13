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

/// For those who do not see the diagram.
inline constexpr std::string_view CurvesShown = "Kurvor: ";
inline constexpr std::string_view NoCurves = "Inga kurvor";

}  // namespace texts
