#pragma once
// Names of tables, columns and queries: compared without regard to letter case.

#include <string>
#include <string_view>

namespace jet::detail {

/// The name with every letter small (Latin, Greek and Cyrillic); for keys of maps.
std::string FoldName(std::string_view utf8);
bool SameName(std::string_view left, std::string_view right);

}  // namespace jet::detail
