#pragma once
// The Swedish texts that the main window's procedures show. Captions of controls are in the furnish
// files, what the rules put together is in rules/texts.h.

#include <string_view>

namespace texts {

inline constexpr std::string_view FailureNumber = "Fel ";

inline constexpr std::string_view SampleFile = "Vimmels_exempel.mdb";

// What is named when a file is to be left with something in it that is not stored.
inline constexpr std::string_view HoldingOf = "Raden för ";
inline constexpr std::string_view NamelessHolding = "En rad utan namn i PPM Data";
inline constexpr std::string_view PointOf = "Punkten i plottdata för fond ";
inline constexpr std::string_view NamelessPoint = "En punkt i plottdata utan fondnummer";
// The price and the fund follow.
inline constexpr std::string_view DayPriceOf = "Kursen ";
inline constexpr std::string_view DayPriceFor = " för ";
inline constexpr std::string_view NoticeOf = "Meddelandet om nya andelar för ";
inline constexpr std::string_view AccountField = "Kontouppgiften ";
// Taking changes back and doing them again
inline constexpr std::string_view Undone = "Ångrat : ";
inline constexpr std::string_view Redone = "Gjort om : ";
inline constexpr std::string_view NotUndone = "Ändringen kan inte ångras";
inline constexpr std::string_view NotRedone = "Ändringen kan inte göras om";
inline constexpr std::string_view BeforeReason = "\r\n\r\n";
inline constexpr std::string_view ChangedBehind =
    "Filen har ändrats av ett annat program sedan dess. Öppna filen på nytt.";
inline constexpr std::string_view UndoneEntry = "Ångrades : ";
inline constexpr std::string_view RedoneEntry = "Gjordes om : ";

inline constexpr std::string_view AskGiveUpRow =
    "Raden är inte färdig och kan inte sparas\r\n\r\nVill du lämna den utan att spara ?";

}  // namespace texts
