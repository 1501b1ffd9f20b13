#pragma once
// Text files of the program (the log, the notes) are in windows-1252; texts in memory are UTF-8.

#include <string>
#include <string_view>

/// UTF-8 to windows-1252; a character that the code page lacks becomes "?".
std::string EncodeCp1252(std::string_view utf8);
/// windows-1252 to UTF-8; the five unassigned bytes keep their values as control characters.
std::string DecodeCp1252(std::string_view bytes);
