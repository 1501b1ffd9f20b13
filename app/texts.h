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
inline constexpr std::string_view NoticeOf = "Meddelandet om nya andelar för ";
inline constexpr std::string_view AccountField = "Kontouppgiften ";
inline constexpr std::string_view AskGiveUpRow =
    "Raden är inte färdig och kan inte sparas\r\n\r\nVill du lämna den utan att spara ?";

}  // namespace texts
