#pragma once
// Which fund files are offered to be opened, and in which order. Knows no folders.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct ListedFile {
    std::string path;
    bool open = false;  ///< it is the one in use
    bool operator==(const ListedFile&) const = default;
};

/// A file that was found in a folder; `changed` counts up with time.
struct FoundFile {
    ListedFile file;
    std::int64_t changed = 0;
};

inline constexpr std::size_t kMaxListedFiles = 8;

/// The name of a fund file, and of none that the program keeps for itself: the template, a lock, a
/// file that is being written (its name begins with a point).
bool IsFundFileName(std::string_view name);

/// The newest first, those of one moment by their paths; kMaxListedFiles at most. The open one is
/// among them however old it is.
std::vector<ListedFile> Newest(std::vector<FoundFile> found);
