#pragma once
// What the system's own dialogs say in Swedish: button captions and the default title.

#include <string_view>

namespace texts::dialogs {

inline constexpr std::string_view kDefaultTitle = "Kvarnbo";
inline constexpr std::string_view kOk = "OK";
inline constexpr std::string_view kCancel = "Avbryt";
inline constexpr std::string_view kYes = "&Ja";
inline constexpr std::string_view kNo = "&Nej";

}  // namespace texts::dialogs
