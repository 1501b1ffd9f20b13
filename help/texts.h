#pragma once
// The Swedish texts of the help viewer.

#include <string_view>

namespace helptexts {

inline constexpr std::string_view Window = "Kvarnbo – Hjälp";
inline constexpr std::string_view Back = "Bakåt";
inline constexpr std::string_view BackTip = "Sidan du läste före denna  <Alt+Vänsterpil>";
inline constexpr std::string_view Forward = "Framåt";
inline constexpr std::string_view ForwardTip = "Tillbaka igen  <Alt+Högerpil>";
inline constexpr std::string_view Home = "Första sidan";
inline constexpr std::string_view HomeTip = "Till första sidan  <Alt+Home>";
inline constexpr std::string_view Search = "Sök i hjälpen";
inline constexpr std::string_view SearchTip = "Skriv ett eller flera ord  <Ctrl+F>";
inline constexpr std::string_view ClearSearch = "Rensa sökningen";
inline constexpr std::string_view Contents = "Innehåll";
inline constexpr std::string_view Hits = "Sökresultat";
inline constexpr std::string_view NoHits = "Inget hittades. Prova ett kortare ord.";
inline constexpr std::string_view Page = "Hjälpsida";
inline constexpr std::string_view ScrollPage = "Rulla sidan";
inline constexpr std::string_view ScrollAcross = "Rulla sidan i sidled";
inline constexpr std::string_view Previous = "Föregående: ";
inline constexpr std::string_view Next = "Nästa: ";
inline constexpr std::string_view CannotRead = "Hjälpfilen kunde inte läsas";
inline constexpr std::string_view CannotReadAdvice =
    "Installera Kvarnbo på nytt. Filen som saknas eller är skadad:";
inline constexpr std::string_view NoFile = "Kvarnbo.hlp";

}  // namespace helptexts
