#pragma once
// The Swedish texts that the main window's procedures show. Captions of controls are in the furnish
// files, what the rules put together is in rules/texts.h.

#include <string_view>

namespace texts {

inline constexpr std::string_view FailureNumber = "Fel ";

inline constexpr std::string_view SampleFile = "Vimmels_exempel.mdb";

}  // namespace texts
