#pragma once
// The safety copies of a fund file on disk, in the folder "Kopior" beside it. Which of them stay is
// a rule's to say; what differs between two files another's.

#include "fundfile/rules/difference.h"
#include "fundfile/rules/safetycopies.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace jet {
class Database;
}

struct SafetyCopy {
    CopyName name;
    std::filesystem::path path;
};

/// Newest first; none where the folder is missing or cannot be read.
std::vector<SafetyCopy> SafetyCopiesOf(const std::filesystem::path& fundFile);

/// Copies the file as it is on the disk, whole and synced, unless the day has a copy; then those
/// go that need not stay. Throws what jet::CopyFile throws, and PermissionDenied or DiskFull when
/// the folder cannot be made.
void MakeCopyOfDay(const std::filesystem::path& fundFile, std::int32_t today);

/// The same, one more in a day that has one.
SafetyCopy MakeFurtherCopy(const std::filesystem::path& fundFile, std::int32_t today);

/// Puts the copy in the place of the open file and closes that: it is to be opened anew. Throws,
/// with the file as it was, what LoadFundFileCopy and jet::CopyFile throw, and FileInUse when
/// another running copy took the file.
void RestoreFundFile(jet::Database& open, const std::filesystem::path& copy);

/// What is to be compared. Rows whose identity or point whose day is no number are left out.
FundContent ContentOf(jet::Database& fundFile);
