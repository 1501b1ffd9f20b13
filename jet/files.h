#pragma once
// What programs do with whole database files. Any thread may call CopyFile and IsSameFile.

#include <cstddef>
#include <filesystem>
#include <string_view>

namespace jet {

/// Puts the bytes of `source` in the place of `target` as the library stores a file: whole and
/// synced, so that nobody ever meets half of it, or changes nothing. Links are followed. A file at
/// `target` keeps its mode and owner; a new one follows the umask. Whether `target` is open in this
/// process is not looked at. Reads and writes the whole file. Throws FileNotFound (no `source`),
/// PathNotFound (no folder for `target`), PermissionDenied, ReadOnly, DiskFull, DeviceIo,
/// ForeignFormat when `source` is no file or larger than any database, ChangedByOther when it was
/// being written meanwhile.
void CopyFile(const std::filesystem::path& source, const std::filesystem::path& target);

/// Whether both name one file: links are followed, and a second name of a file (a hard link) is
/// that file. Names of files that are not there are compared as paths. Never throws; what cannot be
/// found out is two files.
bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other) noexcept;

/// The most characters of a temporary ending.
inline constexpr std::size_t kMaxTemporaryEnding = 32;

/// How the names end that the process gives to new images of files until they take their place:
/// `.NAME.`, sixteen random digits and `ending`, which is ".jet-new" until this is called. For the
/// whole process, before it opens, makes or copies a file, and in every start alike: what was left
/// behind is known by it. `ending` has 1 to `kMaxTemporaryEnding` ASCII letters, digits, points,
/// hyphens and underscores; for any other this throws InvalidProcedureCall and changes nothing.
void SetTemporaryEnding(std::string_view ending);

}  // namespace jet
