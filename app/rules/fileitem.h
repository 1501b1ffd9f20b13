#pragma once
// The name under which the menu offers a fund file.

#include <cstdint>
#include <string>
#include <string_view>

/// The file's name without its folder and ending. A long one is cut in its middle, for files are
/// told apart by how their names begin and end; what would break a menu's line becomes a blank.
std::string FileItemName(std::string_view path);

/// "1  A file": the number is the key that leads there. An "&" in the name is doubled, so that it
/// is no mark of another one.
std::string FileItemCaption(std::int32_t number, std::string_view name);
