#pragma once
// Files as the system sees them: descriptors, what tells one state of a file from another, and new
// files that take an old one's place. For the units that store files; nobody else calls the system.

#include "jet/storage/fileimage.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <utility>

namespace jet::detail {

/// Throws the Error for `errno`: call it first thing after a failed system call.
[[noreturn]] void ThrowSystem(const char* what, const std::filesystem::path& path);

/// An open file; closed when the scope ends.
class Descriptor {
  public:
    Descriptor() = default;
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }
    void Close() noexcept;

  private:
    int number_ = -1;
};

/// Calls again while a signal interrupts.
template <typename Call>
auto Uninterrupted(Call&& call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

/// Not open, and `errno` set, when that failed. Never inherited by other programs.
Descriptor OpenDescriptor(const std::filesystem::path& path, int flags, mode_t mode = 0) noexcept;

struct stat StatusOf(const Descriptor& file, const std::filesystem::path& path);

/// What tells one state of a file from another without reading it.
struct Fingerprint {
    std::uint64_t device = 0, inode = 0, size = 0;
    std::int64_t modifiedSeconds = 0, modifiedNanoseconds = 0;
    std::int64_t changedSeconds = 0, changedNanoseconds = 0;  ///< of mode, owner and names as well
    bool operator==(const Fingerprint&) const = default;
    /// Equal but for the time of the last change of mode, owner or names.
    bool SameButForChange(const Fingerprint& other) const;
};
Fingerprint FingerprintFrom(const struct stat& status);

std::filesystem::path FolderOf(const std::filesystem::path& file);

/// What the lock that tells a living writer from a dead one's left-over says.
enum class LockResult : std::uint8_t { Taken, HeldByOther, NoLocksHere };
LockResult TryLock(const Descriptor& file) noexcept;

/// A folder in which a file changes its name, opened before so that nothing can fail but the sync.
class Folder {
  public:
    explicit Folder(const std::filesystem::path& path);

    /// Unknown: it cannot be synced at all (some network file systems, no right to read it), and
    /// nothing more can be done about it.
    enum class Synced : std::uint8_t { Yes, Failed, Unknown };
    Synced Sync() const noexcept;
    /// Whether two names can be exchanged there, and after Sync stay so through a power cut.
    bool KeepsExchanges() const noexcept;

  private:
    Descriptor descriptor_;
};

/// A new file beside the one whose place it is to take, under a name that nobody can foresee.
/// Removed again unless it was given another name. It is locked: see RemoveLeftOvers.
class TemporaryFile {
  public:
    /// Throws what ThrowSystem throws.
    TemporaryFile(const std::filesystem::path& target, mode_t mode);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const Descriptor& File() const { return file_; }
    const std::filesystem::path& Path() const { return path_; }

    void Write(const FileImage& image) const;
    void Sync() const;
    /// Throws before anything changed.
    void RenameTo(const std::filesystem::path& target);
    /// The name and the file become the caller's, who removes it.
    std::filesystem::path TakePath() noexcept;
    Descriptor TakeFile() noexcept { return std::move(file_); }

  private:
    std::filesystem::path path_;
    Descriptor file_;
    bool ours_ = true;
};

/// Gives the file the mode of another one, and its owner and group, as far as the system and the
/// file system let us. Whom the old group shut out, the new one does not let in.
void TakeOver(const Descriptor& file, const struct stat& from) noexcept;

/// For the names that TemporaryFile makes from now on.
void EndTemporaryNamesWith(std::string_view ending);

/// Whether the name was made by TemporaryFile for this file (names without folders).
bool IsTemporaryNameFor(const std::string& name, const std::string& file);

}  // namespace jet::detail
