#pragma once
// The Swedish texts that the rules of the main window put together.

#include <array>
#include <string_view>

namespace texts {

inline constexpr std::string_view WindowCaption = "  Kvarnbo  ";
// One blank more than above, on purpose: opening a fund and storing its price differ in it.
inline constexpr std::string_view WindowCaptionOfFund = "   Kvarnbo  ";
inline constexpr std::string_view LastUpdate = " Senaste uppdatering    ";

inline constexpr std::string_view WorkingWith = "Du arbetar med ";
inline constexpr std::string_view Opening = "Öppnar ";  ///< the file, while the window comes up
inline constexpr std::string_view NoFileOpen = "Ingen fondfil är öppen";
inline constexpr std::string_view NotStored = "Det här är inte sparat:";
inline constexpr std::string_view GoOnWithoutIt = "Vill du gå vidare utan det ?";

inline constexpr std::string_view StartData = "StartData ";
inline constexpr std::string_view StartPrice = "Startkurs : ";
inline constexpr std::string_view NoLatestPrice = "Senaste :";
inline constexpr std::string_view NoFund = "Fond";
inline constexpr std::string_view NoPercent = "%";

// The fund list, by what it is for, and the instruction under it
inline constexpr std::string_view ListForPrices = "Ny DagsKurs för...";
inline constexpr std::string_view ChooseColourFor = "Välj Färg för Fond  <Enter>";
inline constexpr std::string_view ChooseColourInfo =
    "Välj ovan vilken plottfärg du vill ändra. "
    "Tryck <Enter> när du gjort ditt val";
inline constexpr std::string_view ChooseCurves = "Välj Fonder att rita";
inline constexpr std::string_view ChooseCurvesInfo =
    "Välj ovan vilka kurvor du vill plotta."
    "Tryck Diagramknappen eller F12 när du är färdig";

// In a picture without a curve: what to do
inline constexpr std::string_view NoCurvesChosen = "Inga kurvor valda: Visa, Välj kurvor";
inline constexpr std::string_view NoHoldings =
    "Filen har inga innehav ännu: skriv in det första under PPM Data";
inline constexpr std::string_view NoPointsOfHolding =
    "Fonden har inga kurser ännu: skriv dagens kurs och tryck Enter";
inline constexpr std::string_view NoPoints = "De valda fonderna har inga kurser ännu";

// For those who do not see the picture
inline constexpr std::string_view NoCurves = "Inga kurvor";
inline constexpr std::string_view OneCurve = " kurva";
inline constexpr std::string_view Curves = " kurvor";
inline constexpr std::string_view FromMonth = " från ";
inline constexpr std::string_view ToMonth = " till ";
inline constexpr std::string_view ByWeeks = ", vecka för vecka";
inline constexpr std::string_view ByMonths = ", månad för månad";
inline constexpr std::string_view ScaleFrom = ", skala ";
inline constexpr std::string_view ScaleTo = " till ";
inline constexpr std::string_view DaysMissing = "Dagar utan kurs: ";
inline constexpr std::string_view CurveColourIs = "Kurvans färg: ";
inline constexpr std::string_view StoredPrice = "Kursen ";
inline constexpr std::string_view IsStored = " är sparad: ";

inline constexpr std::string_view Red = "röd";
inline constexpr std::string_view Orange = "orange";
inline constexpr std::string_view Yellow = "gul";
inline constexpr std::string_view Green = "grön";
inline constexpr std::string_view Turquoise = "turkos";
inline constexpr std::string_view Blue = "blå";
inline constexpr std::string_view Purple = "lila";
inline constexpr std::string_view Pink = "rosa";
inline constexpr std::string_view Brown = "brun";
inline constexpr std::string_view Grey = "grå";
inline constexpr std::string_view Black = "svart";
inline constexpr std::string_view White = "vit";
inline constexpr std::string_view Dark = "mörk";
inline constexpr std::string_view Light = "ljus";

/// At the day that is today, in the picture
inline constexpr std::string_view Today = "idag";

inline constexpr std::string_view Undo = "Ångra";
inline constexpr std::string_view Redo = "Gör om";
inline constexpr std::string_view BeforeChangeName = " : ";

// What a change is called in the menu
inline constexpr std::string_view PriceOf = "kursen ";
inline constexpr std::string_view ForFund = " för ";
inline constexpr std::string_view RowOf = "raden ";
inline constexpr std::string_view DeletedHolding = "borttaget innehav ";
inline constexpr std::string_view DeletionOf = "raderingen av ";
inline constexpr std::string_view NewSharesOf = "nya andelar för ";
inline constexpr std::string_view ColourOf = "färgen på ";
inline constexpr std::string_view ImportOf = "kurserna ur ";
inline constexpr std::string_view CurveChoice = "valet av kurvor";
inline constexpr std::string_view PointOfDay = "punkten";
inline constexpr std::string_view DeletedPointOfDay = "borttagen punkt";
inline constexpr std::string_view SomeChange = "ändringen";

/// Before the file's name.
inline constexpr std::string_view ImportFrom = "Importera kurser ur ";
/// Before the day.
inline constexpr std::string_view DayPricesOf = "Dagens kurser  ";

// Around the number of stored points
inline constexpr std::string_view ListHolds = "Listan innehåller ";
inline constexpr std::string_view Rows = " poster";

// While a file is held over the window, and when it cannot be dropped there
inline constexpr std::string_view DropOpens = "Släpp filen för att öppna ";
inline constexpr std::string_view DropsFundFilesOnly =
    "Bara en fondfil, som slutar på .mdb, kan öppnas här";
inline constexpr std::string_view DropsOneFile = "Bara en fil i taget kan öppnas";

inline constexpr std::string_view ToDiagram = "&Diagram";
inline constexpr std::string_view ToHoldings = "&PPM Data";

inline constexpr std::string_view ShowDays = "Visa Dag för Dag";
inline constexpr std::string_view ShowWeeks = "Visa Vecka för Vecka";
inline constexpr std::string_view ShowMonths = "Visa Månad för Månad";

/// Two years and one more January, so that twelve months never wrap; the tag of lblMonth(1), too.
inline constexpr std::string_view MonthNames =
    "Jan|Feb|Mars|April|Maj|Juni|Juli|Aug|Sep|Okt|Nov|Dec|"
    "Jan|Feb|Mars|April|Maj|Juni|Juli|Aug|Sep|Okt|Nov|Dec|Jan";

// Over the start data labels 0 to 9: a holding as it was bought ...
inline constexpr std::array<std::string_view, 10> HeadingsOfStart = {
    "Fond Nr", "Datum", "Andelar", "Värde kr", "Andel %", "", "", "", "", ""};
// ... and one that got new shares since.
inline constexpr std::array<std::string_view, 10> HeadingsOfChange = {
    "Fond Nr", "Startdatum", "Startandelar", "Startkurs",  "Startvärde",
    "",        "Nytt datum", "Nya andelar",  "Nytt värde", "Andel %"};

}  // namespace texts
