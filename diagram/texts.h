#pragma once
// The Swedish texts of the diagram.

#include <string_view>

namespace texts {

inline constexpr std::string_view ShowDays = "Visa Dag för Dag";
inline constexpr std::string_view ShowWeeks = "Visa Vecka för Vecka";
inline constexpr std::string_view ShowMonths = "Visa Månad för Månad";

inline constexpr std::string_view PlotFailed = "Fel i Plottingrutinen\r\nGör omstart på programmet";
inline constexpr std::string_view PlotFailedLog = "Fel i Plottingrutinen ";
inline constexpr std::string_view PrintPlotFailed =
    "Fel i PrintPlotta\r\nGör omstart på programmet";
inline constexpr std::string_view PrintPlotFailedLog = "Fel i Print Plottingrutinen ";

inline constexpr std::string_view ChooseColourFor = "Välj Färg för Fond  <Enter>";
inline constexpr std::string_view ChooseColourInfo =
    "Välj ovan vilken plottfärg du vill ändra. "
    "Tryck <Enter> när du gjort ditt val";
inline constexpr std::string_view ChooseCurves = "Välj Fonder att rita";
inline constexpr std::string_view ChooseCurvesInfo =
    "Välj ovan vilka kurvor du vill plotta."
    "Tryck Diagramknappen eller F12 när du är färdig";

/// For those who do not see the diagram.
inline constexpr std::string_view CurvesShown = "Kurvor: ";
inline constexpr std::string_view NoCurves = "Inga kurvor";

}  // namespace texts
