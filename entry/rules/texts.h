#pragma once
// The Swedish texts that the rules of price and holdings entry put together.

#include <string_view>

namespace texts {

inline constexpr std::string_view LineBreak = "\r\n";
inline constexpr std::string_view Deleted = "Raderades : ";
inline constexpr std::string_view AfterDeletedNumber = "       ";
inline constexpr std::string_view AfterDeletedDate = "  ";
inline constexpr std::string_view AtPrice = "  a' ";
inline constexpr std::string_view AfterDeletedPrice = "  kr     ";
inline constexpr std::string_view AfterDeletedValue = "  kr";

}  // namespace texts
