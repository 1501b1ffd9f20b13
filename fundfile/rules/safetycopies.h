#pragma once
// The safety copies of a fund file: what each is called, and which days keep theirs.
// Knows no files.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The first copy of a day has number 1: the file as it was before the day's first change.
struct CopyName {
    std::int32_t day = 0;  ///< a day number
    std::int32_t number = 1;
    bool operator==(const CopyName&) const = default;
};

/// "fonder 2026-11-22.mdb", then "fonder 2026-11-22 nr 2.mdb" and so on for "fonder.mdb".
std::string CopyFileName(std::string_view fundFile, CopyName name);
/// What a file's name says; nothing for one that is no copy of `fundFile`.
std::optional<CopyName> ReadCopyName(std::string_view fundFile, std::string_view copy);

/// Whether a file's name is that of a copy, of whatever file.
bool IsCopyName(std::string_view name);

/// Of the days that have a copy, those that keep it, in ascending order: the last ten, and the
/// first of each of the last 24 months. A day later than today, from a clock that was wrong, is
/// kept beside them.
std::vector<std::int32_t> DaysToKeep(std::vector<std::int32_t> days, std::int32_t today);
