#pragma once
// A question about paths that the standard library leaves open.

#include <filesystem>
#include <string>

/// The folder's name with the platform's separator at its end, once.
std::string WithSeparator(const std::filesystem::path& folder);
