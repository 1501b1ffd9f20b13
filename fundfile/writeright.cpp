#include "fundfile/writeright.h"

#include "base/error.h"
#include "base/number.h"
#include "platform/qttext.h"

#include <QFileInfo>
#include <QLockFile>
#include <QString>
#include <QSysInfo>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <optional>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

namespace fs = std::filesystem;

/// A lock file that nobody finished writing is left behind by a crash; after this time nobody will.
constexpr std::chrono::seconds kUnfinishedLockAge{10};

WriteClaim Refused(WriteRight right, std::string owner = {}) {
    return {nullptr, right, std::move(owner)};
}

struct LockOwner {
    qint64 process = 0;
    QString computer, program;
};

std::optional<LockOwner> OwnerOf(const QLockFile& lock) {
    LockOwner owner;
    if (!lock.getLockInfo(&owner.process, &owner.computer, &owner.program)) {
        return std::nullopt;
    }
    return owner;
}

/// Whether the process has ended. Its number may have been given to another program since.
bool IsGone(const LockOwner& owner) {
    if (::kill(static_cast<pid_t>(owner.process), 0) != 0 && errno == ESRCH) {
        return true;
    }
    const QFileInfo program(QStringLiteral("/proc/%1/exe").arg(owner.process));
    const QString running = QFileInfo(program.symLinkTarget()).fileName();
    return !running.isEmpty() && running != QFileInfo(owner.program).fileName();
}

bool IsUnfinished(const fs::path& lock) {
    std::error_code code;
    const auto age = fs::file_time_type::clock::now() - fs::last_write_time(lock, code);
    return !code && age < kUnfinishedLockAge;
}

WriteClaim RefusedBy(const QLockFile& lock, const fs::path& lockPath) {
    const std::string computer = "dator ";
    const std::optional<LockOwner> owner = OwnerOf(lock);
    if (!owner) {
        return Refused(IsUnfinished(lockPath) ? WriteRight::OtherCopy : WriteRight::StaleLock);
    }
    if (owner->computer != QSysInfo::machineHostName()) {
        return Refused(WriteRight::OtherComputer, computer + FromQt(owner->computer));
    }
    if (IsGone(*owner)) {
        return Refused(WriteRight::StaleLock);
    }
    return Refused(WriteRight::OtherCopy, "process " + PlainText(std::int64_t{owner->process}) +
                                              ", " + computer + FromQt(owner->computer));
}

/// In a folder that all may write (with the sticky bit, as /tmp) a file is replaced by its owner,
/// the folder's or the superuser alone.
bool BelongsToOthers(const fs::path& realPath) {
    struct stat file {};
    struct stat folder {};
    const uid_t user = ::geteuid();
    if (user == 0 || ::stat(realPath.c_str(), &file) != 0 ||
        ::stat(realPath.parent_path().c_str(), &folder) != 0) {
        return false;
    }
    return (folder.st_mode & S_ISVTX) != 0 && user != file.st_uid && user != folder.st_uid;
}

}  // namespace

WriteClaim ClaimWriting(const fs::path& realPath) {
    const fs::path lockPath = LockPath(realPath);
    if (BelongsToOthers(realPath)) {
        return Refused(WriteRight::OthersFile);
    }
    std::error_code code;
    if (fs::is_directory(lockPath, code)) {
        return Refused(WriteRight::FolderAtLock);
    }
    auto lock = std::make_shared<QLockFile>(ToQt(lockPath.string()));
    // A copy may be open for days: a lock is stale when its process is gone, never by its age ...
    lock->setStaleLockTime(0);
    if (lock->tryLock(0)) {
        return {std::move(lock), WriteRight::Ours, {}};
    }
    if (lock->error() == QLockFile::LockFailedError && !OwnerOf(*lock)) {
        // ... except where it names no process, since the machine stopped while it was written.
        lock->setStaleLockTime(kUnfinishedLockAge);
        if (lock->tryLock(0)) {
            lock->setStaleLockTime(0);
            return {std::move(lock), WriteRight::Ours, {}};
        }
    }
    switch (lock->error()) {
        case QLockFile::LockFailedError:
            return RefusedBy(*lock, lockPath);
        case QLockFile::PermissionError:
            return Refused(WriteRight::FolderProtected);
        default:
            return Refused(WriteRight::CannotLock);
    }
}

bool IsHeldElsewhere(const WriteClaim& claim) {
    return claim.right == WriteRight::OtherCopy || claim.right == WriteRight::OtherComputer;
}

std::string ForeignLockBeside(const fs::path& realPath) {
    for (const char* ending : {".ldb", ".LDB"}) {
        const fs::path lock = fs::path(realPath).replace_extension(ending);
        std::error_code code;
        if (fs::exists(lock, code)) return lock.filename().string();
    }
    return {};
}

fs::path LockPath(const fs::path& path) {
    std::error_code code;
    const fs::path real = fs::weakly_canonical(path, code);
    return fs::path(code ? path : real) += ".lock";
}

void BreakLock(const fs::path& path) {
    std::error_code code;
    fs::remove(LockPath(path), code);
    if (code) {
        throw Error{ErrorNumber::PermissionDenied, LockPath(path).string() + ": " + code.message()};
    }
}
