#pragma once
// The Swedish texts of the reports that no rule puts together.

#include <string_view>

namespace texts {

/// Before the sum of everything in the short overview.
inline constexpr std::string_view SumShort = "Summa";

inline constexpr std::string_view PrintFailed = "Fel i PrintRutinen";
inline constexpr std::string_view PrintFailedLog = "Fel i Printrutinen mnuPrint ";
inline constexpr std::string_view PrintFailedAccountLog = ", konto ";

}  // namespace texts
