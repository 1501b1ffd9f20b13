#pragma once
// The Swedish texts of price entry, the holdings grid and the new shares notice.

#include <string_view>

namespace texts {

inline constexpr std::string_view MoreThan200 =
    "Kontrollera din inmatning !\r\nmer än 200 % ökning ?";
inline constexpr std::string_view MoreThan1000 = "Mer än 1000 % ökning\r\nEj tillåtet";
inline constexpr std::string_view WrongEntry = "Felaktig inmatning";
inline constexpr std::string_view StoreFailed = "Fel i SQLPlott";
inline constexpr std::string_view StoreFailedLog = "Fel i SQLPlott  ";

// The day's round: of a price that is typed, and to a screen reader what the field is for.
inline constexpr std::string_view NotStoredYet = "inte sparad";
inline constexpr std::string_view NewPriceOf = "Ny kurs för ";
inline constexpr std::string_view WhoseLatestIs = ", senaste ";

// The grid's column captions; their blanks belong to them.
inline constexpr std::string_view FondColumn = "          Fond";
inline constexpr std::string_view FondNrColumn = "Fond Nr";
inline constexpr std::string_view DateColumn = "Datum";
inline constexpr std::string_view SharesColumn = "Fondandelar";
inline constexpr std::string_view PriceColumn = "Kurs Kr  ";
inline constexpr std::string_view ValueColumn = "Värde Kr   ";
inline constexpr std::string_view PercentColumn = "Andel %";

inline constexpr std::string_view LockedField = "Detta fält är låst";
inline constexpr std::string_view WrongDate = "Felaktigt Datum\r\nSkall skrivas typ\r\n2000-12-31";
// They follow the column's caption; the wrong text stands between the first two.
inline constexpr std::string_view BeforeNoNumber = ": \"";
inline constexpr std::string_view AfterNoNumber = "\" är inget tal\r\nSkriv till exempel 1234,50";
inline constexpr std::string_view NegativeShares = " får inte vara mindre än 0";
inline constexpr std::string_view AfterRefusedColumn = ": ";
// Around the number of characters.
inline constexpr std::string_view NameTooLong = "Namnet på kontot är för långt\r\nHögst ";
inline constexpr std::string_view AccountTextTooLong = "Texten är för lång\r\nHögst ";
inline constexpr std::string_view Characters = " tecken";
inline constexpr std::string_view DateMissing = "Datum Felaktigt ifyllt";
inline constexpr std::string_view NameMissing =
    "Fondens namn saknas\r\nFyll i kolumnen Fond, eller tryck <Esc>";
inline constexpr std::string_view PriceMissing =
    "Kurs Kr saknas eller är inte större än 0\r\nFyll i kolumnen Kurs Kr, eller tryck <Esc>";
inline constexpr std::string_view AskDelete =
    "Du håller på att ta bort en post !\r\n\r\nÄr detta riktigt ?";
inline constexpr std::string_view LastRow =
    "Du får inte radera sista posten\r\nLösning: Öppna någon annan Fil\r\n"
    "Eventuellt     Radera denna\r\n\r\n";
// They follow the number of a data source's failure.
inline constexpr std::string_view BasDataFailed = "  i dtaBasData";
inline constexpr std::string_view PlottFailed = "  i dtaPlott";
inline constexpr std::string_view SqlFailed = "  i dtaSQL";

inline constexpr std::string_view AskNewShares =
    "Den här funktionen skall du bara använda\r\n"
    "när du fått meddeland om Nya Andelar för\r\n"
    "Fond som redan finns här ovan\r\n"
    "\r\n"
    "Dessa meddelande kommer normalt i Februari\r\n"
    "\r\n"
    "Nya Fonder skriver du direkt i boxen ovan\r\n"
    "\r\n"
    "Vill du ändra Datum, Andelar, Kurs Kr, Andel% ?";
inline constexpr std::string_view AllFieldsNeeded =
    "Alla Fält på denna rad skall vara ifyllda\r\n\r\n Ok och <Esc> tar dig ur denna Funktion";
inline constexpr std::string_view NoNumbers =
    "Datum, Andelar, Kurs Kr och Andel % är inte rätt ifyllda\r\n\r\n"
    " Ok och <Esc> tar dig ur denna Funktion";

// Prices from a file.
inline constexpr std::string_view ImportTitle = "Importera kurser";
inline constexpr std::string_view ImportFiles = "Kurser i textform|*.csv *.txt|Alla filer|*";
inline constexpr std::string_view NotImported = "Kurserna importerades inte";
inline constexpr std::string_view ImportTooLarge = "Filen är större än 32 MB.";
inline constexpr std::string_view ImportTooManyLines = "Filen har fler än 200 000 rader.";
inline constexpr std::string_view ImportNoText =
    "Filen är ingen textfil. Spara tabellen som CSV i det program som har gjort den.";
inline constexpr std::string_view ImportNoColumns =
    "Det går inte att se vilka kolumner som är datum och kurs. Ge kolumnerna rubrikerna Datum, "
    "Fond och Kurs.";
// They follow the number of prices.
inline constexpr std::string_view OneFarAboveStart =
    " kurs är mer än 200 % över startkursen.\r\n\r\nVill du spara den också ?";
inline constexpr std::string_view MoreFarAboveStart =
    " kurser är mer än 200 % över startkursen.\r\n\r\nVill du spara dem också ?";
// Before the file's name.
inline constexpr std::string_view OneImported = "1 kurs är importerad ur ";
inline constexpr std::string_view MoreImported = " kurser är importerade ur ";

}  // namespace texts
