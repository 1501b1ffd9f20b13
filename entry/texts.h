#pragma once
// The Swedish texts of price entry.

#include <string_view>

namespace texts {

inline constexpr std::string_view MoreThan200 =
    "Kontrollera din inmatning !\r\nmer än 200 % ökning ?";
inline constexpr std::string_view MoreThan1000 = "Mer än 1000 % ökning\r\nEj tillåtet";
inline constexpr std::string_view WrongEntry = "Felaktig inmatning";
inline constexpr std::string_view StoreFailed = "Fel i SQLPlott";
inline constexpr std::string_view StoreFailedLog = "Fel i SQLPlott  ";

}  // namespace texts
