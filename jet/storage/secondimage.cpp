#include "jet/storage/secondimage.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace jet::detail {

namespace {

/// Held: nobody else has the file open, and who opens it waits until this scope ends.
class WriteLease {
  public:
    explicit WriteLease(const Descriptor& file)
        : file_(file.Number()),
          held_(::fcntl(file_, F_SETSIG, SIGURG) == 0 && ::fcntl(file_, F_SETLEASE, F_WRLCK) == 0),
          reason_(errno) {}
    ~WriteLease() {
        if (held_) ::fcntl(file_, F_SETLEASE, F_UNLCK);
    }
    WriteLease(const WriteLease&) = delete;
    WriteLease& operator=(const WriteLease&) = delete;
    bool Held() const { return held_; }
    bool OpenElsewhere() const { return !held_ && reason_ == EAGAIN; }

  private:
    int file_;
    bool held_;
    int reason_;
};

bool SameFile(const struct stat& one, const struct stat& other) {
    return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool SameRights(const struct stat& one, const struct stat& other) {
    return one.st_mode == other.st_mode && one.st_uid == other.st_uid && one.st_gid == other.st_gid;
}

}  // namespace

SecondImage::SecondImage(TemporaryFile& fresh) : path_(fresh.TakePath()), file_(fresh.TakeFile()) {}

SecondImage::~SecondImage() {
    if (hasName_) ::unlink(path_.c_str());
}

SecondImage::Written SecondImage::Write(const NewVersion& version,
                                        const struct stat& file) noexcept {
    const WriteLease lease(file_);
    if (!lease.Held()) return lease.OpenElsewhere() ? Written::InDoubt : Written::NoLeases;
    struct stat status {};
    if (!IsAsItWasLeft() || ::fstat(file_.Number(), &status) != 0) return Written::InDoubt;
    if (!SameRights(status, file)) TakeOver(file_, file);
    // The image may be of a version that had more pages.
    const auto size = static_cast<off_t>(version.image.Size());
    const bool shortened = status.st_size <= size ||
                           Uninterrupted([&] { return ::ftruncate(file_.Number(), size); }) == 0;
    const bool complete = shortened && WritePages(version) &&
                          Uninterrupted([&] { return ::fdatasync(file_.Number()); }) == 0;
    return complete ? Written::Complete : Written::InDoubt;
}

/// Under its name, with no other one, and untouched.
bool SecondImage::IsAsItWasLeft() const noexcept {
    struct stat status {
    }, named{};
    return ::fstat(file_.Number(), &status) == 0 && ::lstat(path_.c_str(), &named) == 0 &&
           SameFile(status, named) && status.st_nlink == 1 && FingerprintFrom(status) == left_;
}

/// The pages in which it is behind and those that are new, neighbours in one call.
bool SecondImage::WritePages(const NewVersion& version) const noexcept {
    const auto perChunk = static_cast<std::uint32_t>(FileImage::kChunkBytes / version.pageSize);
    const auto pageCount = static_cast<std::uint32_t>(version.image.Size() / version.pageSize);
    const auto oldEnd = std::lower_bound(behind_.begin(), behind_.end(), pageCount);
    auto old = behind_.begin();
    auto fresh = version.changed.begin();
    std::uint32_t first = 0, end = 0;  // of the run that is being gathered
    while (old != oldEnd || fresh != version.changed.end()) {
        const bool takeOld = fresh == version.changed.end() || (old != oldEnd && *old <= *fresh);
        const std::uint32_t page = takeOld ? *old : *fresh;
        if (old != oldEnd && *old == page) ++old;
        if (fresh != version.changed.end() && *fresh == page) ++fresh;
        if (page != end || page % perChunk == 0) {
            if (!WriteRun(version, first, end)) return false;
            first = page;
        }
        end = page + 1;
    }
    return WriteRun(version, first, end);
}

bool SecondImage::WriteRun(const NewVersion& version, std::uint32_t first,
                           std::uint32_t end) const noexcept {
    if (first == end) return true;
    std::uint64_t at = std::uint64_t{first} * version.pageSize;
    const std::uint64_t to = std::uint64_t{end} * version.pageSize;
    while (at < to) {
        const ssize_t written = Uninterrupted([&] {
            return ::pwrite(file_.Number(), version.image.At(at), static_cast<std::size_t>(to - at),
                            static_cast<off_t>(at));
        });
        if (written <= 0) return false;
        at += static_cast<std::uint64_t>(written);
    }
    return true;
}

bool SecondImage::Exchange(const std::filesystem::path& file) noexcept {
    return ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, file.c_str(), RENAME_EXCHANGE) == 0;
}

void SecondImage::Replace(const std::filesystem::path& file) {
    if (::rename(path_.c_str(), file.c_str()) != 0) ThrowSystem("replace", file);
    hasName_ = false;
}

Fingerprint SecondImage::State() const noexcept {
    struct stat status {};
    return ::fstat(file_.Number(), &status) == 0 ? FingerprintFrom(status) : Fingerprint{};
}

bool SecondImage::Took(const Fingerprint& replaced) const noexcept {
    struct stat status {};
    return ::lstat(path_.c_str(), &status) == 0 &&
           FingerprintFrom(status).SameButForChange(replaced);
}

bool SecondImage::Keep(const Fingerprint& replaced, std::vector<std::uint32_t> behind) noexcept {
    Descriptor kept = OpenDescriptor(path_, O_RDWR | O_NOFOLLOW | O_NONBLOCK);
    struct stat status {};
    if (!kept.IsOpen() || ::fstat(kept.Number(), &status) != 0) return false;
    left_ = FingerprintFrom(status);
    if (!left_.SameButForChange(replaced) || TryLock(kept) != LockResult::Taken) return false;
    file_ = std::move(kept);
    behind_ = std::move(behind);
    return true;
}

}  // namespace jet::detail
