#pragma once
// The words in the summary texts that a holding's row keeps.

#include <string_view>

namespace texts {

inline constexpr std::string_view LatestPrice = "Senaste : ";
inline constexpr std::string_view NoValue = "-";
inline constexpr std::string_view Percent = " %";

// What differs between a safety copy and the file as it is now
inline constexpr std::string_view CopyIsLikeNow = "Lika som filen är nu";
inline constexpr std::string_view HoldingsMissing = "Innehav som saknas i kopian: ";
inline constexpr std::string_view HoldingsExtra = "Innehav som bara finns i kopian: ";
inline constexpr std::string_view HoldingsChanged = "Innehav som ändrats sedan dess: ";
inline constexpr std::string_view PointsMissing = "Punkter som saknas i kopian: ";
inline constexpr std::string_view PointsExtra = "Punkter som bara finns i kopian: ";
inline constexpr std::string_view PointsChanged = "Punkter med annat värde: ";
inline constexpr std::string_view BeforeNames = " - ";
inline constexpr std::string_view AndMore = " med flera";

}  // namespace texts
