#pragma once
// The Swedish words that controls without words of their own say to a screen reader.

#include <string_view>

namespace texts {

inline constexpr std::string_view EmptyCell = "tom";
inline constexpr std::string_view Row = "rad ";
inline constexpr std::string_view OfRows = " av ";
inline constexpr std::string_view NewRow = "ny rad";
inline constexpr std::string_view LockedCell = "låst";
inline constexpr std::string_view MarkedLine = "vald";
inline constexpr std::string_view SortedUp = "sorterad stigande";
inline constexpr std::string_view SortedDown = "sorterad fallande";

}  // namespace texts
