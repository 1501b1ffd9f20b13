#pragma once
// A file's bytes from and to the disk: every system call of the library is made here.
//
// Saving never touches the file itself: a complete new file is written beside it, synced, and
// renamed over it, then the folder is synced. Errors: ENOSPC/EDQUOT -> DiskFull, EIO -> DeviceIo,
// EACCES/EPERM -> PermissionDenied, EROFS -> ReadOnly, ENOENT -> FileNotFound, ENOTDIR ->
// PathNotFound.

#include "jet/detail/bytes.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace jet::detail {

/// A file's bytes in pieces of equal size, so that growing never copies what is there.
class FileImage {
  public:
    /// A multiple of both page sizes.
    static constexpr std::size_t kChunkBytes = std::size_t{256} * 1024;

    std::uint64_t Size() const { return size_; }
    /// Bytes that come into view hold what they held before; zero the first time.
    void Resize(std::uint64_t size);
    /// `size` bytes at `offset`, which must not cross a chunk's end (pages never do). Not checked.
    std::uint8_t* At(std::uint64_t offset) {
        return chunks_[offset / kChunkBytes].get() + offset % kChunkBytes;
    }
    const std::uint8_t* At(std::uint64_t offset) const {
        return chunks_[offset / kChunkBytes].get() + offset % kChunkBytes;
    }

  private:
    std::vector<std::unique_ptr<std::uint8_t[]>> chunks_;
    std::uint64_t size_ = 0;
};

/// What tells one state of a file from another without reading it.
struct Fingerprint {
    std::uint64_t device = 0, inode = 0, size = 0;
    std::int64_t modifiedSeconds = 0, modifiedNanoseconds = 0;
    bool operator==(const Fingerprint&) const = default;
};

struct LoadedFile {
    FileImage image;
    Fingerprint fingerprint;
};

/// The file that `path` leads to when all links are followed; it need not exist.
std::filesystem::path Resolve(const std::filesystem::path& path);

/// Throws FileNotFound, PathNotFound, PermissionDenied, DeviceIo, ForeignFormat (no regular file,
/// too large) and ChangedByOther (it was being written meanwhile).
LoadedFile Load(const std::filesystem::path& path);

/// Whether a new version of the file could be put in its place: neither it nor its folder is
/// write-protected.
bool CanReplace(const std::filesystem::path& path);

/// How far a replacement came.
struct Replaced {
    Fingerprint fingerprint;  ///< of the new file
    bool folderSynced;  ///< false: the new file is in place, but a power cut may still undo the
                        ///< rename
};

/// Puts `image` in the place of the file, or creates it. With `expected` the file must still be in
/// that state, else ChangedByOther. Throws before the rename only: then the file is as it was and
/// nothing is left beside it. The file's mode is kept, its owner where the system lets us. A name
/// that a crash left behind is reused. Throws FileInUse when another process is replacing the same
/// file at this moment.
Replaced ReplaceAtomically(const std::filesystem::path& path, const FileImage& image,
                           const Fingerprint* expected);

/// The same for a file that is of no use before it is safe: a folder that cannot be synced is
/// DeviceIo, a folder that is not there PathNotFound.
void SaveWhole(const FileImage& image, const std::filesystem::path& path);

}  // namespace jet::detail
