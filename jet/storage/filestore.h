#pragma once
// Whole files from and to the disk. Saving never touches the file itself: a complete new file is
// written beside it, synced, and renamed over it, then the folder is synced. Errors: ENOSPC/EDQUOT
// -> DiskFull, EIO -> DeviceIo, EACCES/EPERM -> PermissionDenied, EROFS -> ReadOnly, ENOENT ->
// FileNotFound, ENOTDIR -> PathNotFound.

#include "jet/storage/fileimage.h"
#include "jet/storage/systemfile.h"

#include <filesystem>

namespace jet::detail {

struct LoadedFile {
    FileImage image;
    Fingerprint fingerprint;
};

/// The file that `path` leads to when all links are followed; it need not exist.
std::filesystem::path Resolve(const std::filesystem::path& path);

/// Throws FileNotFound, PathNotFound, PermissionDenied, DeviceIo, ForeignFormat (no regular file,
/// too large) and ChangedByOther (it was being written meanwhile).
LoadedFile Load(const std::filesystem::path& path);

/// Whether a new version of the file could be put in its place:
/// neither it nor its folder is write-protected.
bool CanReplace(const std::filesystem::path& path);

/// Removes what processes that died while they stored this file left beside it. What a process that
/// lives is using stays. Never fails: what cannot be removed stays.
void RemoveLeftOvers(const std::filesystem::path& path) noexcept;

inline constexpr mode_t kNewFileMode = 0666;  ///< of which the umask takes away

/// Puts `image` in the place of the file, or creates it, whole and synced. A file's mode is kept,
/// its owner where the system lets us; a new one gets `mode`, less the umask. Throws PathNotFound
/// (no folder), DiskFull, DeviceIo, PermissionDenied, ReadOnly: then the file is as it was and
/// nothing is left beside it, unless the folder alone could not be synced (DeviceIo), after which a
/// power cut decides.
void SaveWhole(const FileImage& image, const std::filesystem::path& path,
               mode_t mode = kNewFileMode);

/// The mode of a file for a new one that is a copy of it.
mode_t ModeForCopyOf(const std::filesystem::path& path);

}  // namespace jet::detail
