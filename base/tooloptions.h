#pragma once
// What every tool answers instead of doing its work: --help and --version.

#include "base/version.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <string>

/// The exit status after an answer; nothing when `argument` asks for none.
inline std::optional<int> Answered(const char* tool, const char* argument, const char* usage) {
    if (std::strcmp(argument, "--help") == 0) {
        std::fputs(usage, stdout);
        return 0;
    }
    if (std::strcmp(argument, "--version") == 0) {
        std::puts((std::string(tool) + " " + std::string(Version())).c_str());
        return 0;
    }
    return std::nullopt;
}
