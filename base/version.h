#pragma once
// The version of this program, as the build names it.

#include <string_view>

/// "1.0.0".
std::string_view Version();
