#pragma once
// Two questions about paths that the standard library leaves open.

#include <filesystem>
#include <string>

/// Whether both name one file: links are followed, and a second name of a file (a hard link) is
/// that file. Names of files that are not there are compared as paths. Never throws.
bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other) noexcept;

/// The folder's name with the platform's separator at its end, once.
std::string WithSeparator(const std::filesystem::path& folder);
