#pragma once
// The right to write a fund file, which one running copy has at a time: a lock file beside it, and
// what stands against taking it. Knows nothing of what is in the file.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

class QLockFile;

/// Whether the file may be written, and if not, why.
enum class WriteRight : std::uint8_t {
    Ours,             ///< no other running copy can write it while it is open here
    OtherCopy,        ///< another running copy has it open
    FileProtected,    ///< the file itself is write-protected
    FolderProtected,  ///< its folder takes no new files: a protected folder or a read-only medium
    CannotLock,       ///< the lock could not be stored beside the file, as on a full disk
    OtherComputer,    ///< a copy on another computer has it open, or died there
    StaleLock,        ///< a copy that is gone left its lock, and the folder lets nobody remove it
    FolderAtLock,     ///< a folder stands where the lock would stand
    OthersFile,       ///< somebody else's file in a shared folder, where only he may put a new one
                      ///< in its place
    Damaged,          ///< the file lacks a part, and is not written to
};

/// What was found when a file was to be written. It lives as long as the file is open; the lock
/// goes with it.
struct WriteClaim {
    std::shared_ptr<QLockFile> lock = nullptr;  ///< null: not ours
    WriteRight right = WriteRight::Ours;
    std::string owner = {};  ///< who has it, where that is known
};

/// `realPath` is the file's own path, with links resolved, so that one file has one lock. A lock
/// whose process is gone is taken over.
WriteClaim ClaimWriting(const std::filesystem::path& realPath);

/// Whether another running copy has the file, as far as anybody here can know.
bool IsHeldElsewhere(const WriteClaim& claim);

/// The name of another database program's lock, the file's name with the ending ".ldb"; "" when
/// none lies beside the file.
std::string ForeignLockBeside(const std::filesystem::path& realPath);

/// Where the lock of the file lies: beside it, as "fonder.mdb.lock".
std::filesystem::path LockPath(const std::filesystem::path& path);

/// Removes the lock that a copy on another computer has, which nobody here can know to be alive.
/// Only for a user who has said so. Throws PermissionDenied.
void BreakLock(const std::filesystem::path& path);
