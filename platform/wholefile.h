#pragma once
// Files of other programs, read and written as a whole: who writes one replaces it whole or not at
// all.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

struct FileToWrite {
    std::string path;  ///< UTF-8; a link is followed
    std::string bytes;
};

/// Puts every file in the place of the one that has its name, if there is one. All of them are
/// complete beside their places before the first one is put there: a full disk or a folder that
/// cannot be written leaves all as they were. Throws PathNotFound (no folder), PermissionDenied,
/// DiskFull, DeviceIo.
void WriteWholeFiles(const std::vector<FileToWrite>& files);
void WriteWholeFile(const std::string& path, std::string_view bytes);

/// All bytes of an ordinary file; nothing if it is larger than that. Throws FileNotFound,
/// PermissionDenied, DeviceIo.
std::optional<std::string> ReadWholeFile(const std::string& path, std::size_t maxBytes);
