#pragma once
// The Swedish texts of the printed report that no rule puts together.

#include <string_view>

namespace texts {

inline constexpr std::string_view PrintFailed = "Fel i PrintRutinen";
inline constexpr std::string_view PrintFailedLog = "Fel i Printrutinen mnuPrint ";
inline constexpr std::string_view PrintFailedAccountLog = ", konto ";

}  // namespace texts
