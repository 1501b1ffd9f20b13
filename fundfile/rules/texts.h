#pragma once
// The words in the summary texts that a holding's row keeps.

#include <string_view>

namespace texts {

inline constexpr std::string_view LatestPrice = "Senaste : ";
inline constexpr std::string_view NoValue = "-";
inline constexpr std::string_view Percent = " %";

}  // namespace texts
