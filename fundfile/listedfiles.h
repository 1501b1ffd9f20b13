#pragma once
// The fund files that lie in the folders a user works in.

#include "fundfile/rules/listedfiles.h"

#include <filesystem>
#include <string>
#include <vector>

/// Those of the program's folder and of the open file's, each file once, links
/// followed. Without the safety copies. What cannot be read is left out; nothing throws but want of
/// memory.
std::vector<ListedFile> ListFundFiles(const std::filesystem::path& programFolder,
                                      const std::string& openFile);
