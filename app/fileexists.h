#pragma once
// Whether there is a file that can be opened.

#include <string_view>

/// Whether a file of this name can be opened for reading. Never throws.
bool FileExists(std::string_view path);
