#pragma once
// Copying a file as the engine stores one: nobody ever meets half of it.

#include <filesystem>

namespace jet {

/// Puts the bytes of `source` in the place of `target`, whole and synced, or changes nothing. A
/// link at `target` is followed. Throws FileNotFound (no `source`), PathNotFound (no folder for
/// `target`), PermissionDenied, ReadOnly, DiskFull, DeviceIo, ForeignFormat when `source` is no
/// file.
void CopyFile(const std::filesystem::path& source, const std::filesystem::path& target);

}  // namespace jet
