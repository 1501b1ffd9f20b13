#pragma once
// The Swedish texts that the rules of the main window put together.

#include <array>
#include <string_view>

namespace texts {

inline constexpr std::string_view WindowCaption = "  Kvarnbo  ";
// One blank more than above, on purpose: opening a fund and storing its price differ in it.
inline constexpr std::string_view WindowCaptionOfFund = "   Kvarnbo  ";
inline constexpr std::string_view LastUpdate = " Senaste uppdatering    ";

inline constexpr std::string_view StartData = "StartData ";
inline constexpr std::string_view StartPrice = "Startkurs : ";
inline constexpr std::string_view LatestPrice = "Senaste : ";
inline constexpr std::string_view NoLatestPrice = "Senaste :";
inline constexpr std::string_view NoFund = "Fond";
inline constexpr std::string_view NoPercent = "%";
inline constexpr std::string_view NoValue = "-";
inline constexpr std::string_view Percent = " %";

// Over the start data labels 0 to 9: a holding as it was bought ...
inline constexpr std::array<std::string_view, 10> HeadingsOfStart = {
    "Fond Nr", "Datum", "Andelar", "Värde kr", "Andel %", "", "", "", "", ""};
// ... and one that got new shares since.
inline constexpr std::array<std::string_view, 10> HeadingsOfChange = {
    "Fond Nr", "Startdatum", "Startandelar", "Startkurs",  "Startvärde",
    "",        "Nytt datum", "Nya andelar",  "Nytt värde", "Andel %"};

}  // namespace texts
