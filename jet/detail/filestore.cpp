#include "jet/detail/filestore.h"

#include "base/systemerror.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace jet::detail {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kMaxFileSize = 1ULL << 31;
constexpr int kLinkLimit = 40;

/// Call it first thing after a failed system call.
[[noreturn]] void ThrowSystem(const char* what, const fs::path& path) {
    const int code = errno;
    throw Error{NumberOfSystemError(code), std::string(what) + " " + path.string() + ": " +
                                               std::generic_category().message(code)};
}

/// An open file; closed when the scope ends.
class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    bool IsOpen() const { return number_ >= 0; }
    int Number() const { return number_; }
    void Close() {
        if (number_ >= 0) ::close(number_);
        number_ = -1;
    }

  private:
    int number_;
};

/// Calls again while a signal interrupts.
template <typename Call>
auto Uninterrupted(Call&& call) {
    auto result = call();
    while (result == -1 && errno == EINTR) result = call();
    return result;
}

Descriptor Open(const fs::path& path, int flags, mode_t mode = 0) {
    return Descriptor(Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

Fingerprint FingerprintFrom(const struct stat& status) {
    return {.device = static_cast<std::uint64_t>(status.st_dev),
            .inode = static_cast<std::uint64_t>(status.st_ino),
            .size = static_cast<std::uint64_t>(status.st_size),
            .modifiedSeconds = static_cast<std::int64_t>(status.st_mtim.tv_sec),
            .modifiedNanoseconds = static_cast<std::int64_t>(status.st_mtim.tv_nsec)};
}

struct stat StatusOf(const Descriptor& file, const fs::path& path) {
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0) ThrowSystem("status of", path);
    return status;
}

fs::path FolderOf(const fs::path& file) {
    const fs::path folder = file.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

/// Beside the file and always the same, so that what a crash leaves behind is found and reused.
fs::path TemporaryNameFor(const fs::path& file) {
    constexpr std::size_t kMaxKeptLength = 200;
    std::string name = file.filename().string();
    if (name.size() > kMaxKeptLength) name.resize(kMaxKeptLength);
    return FolderOf(file) / ("." + name + ".kvarnbo-ny");
}

bool Lock(const Descriptor& file, const fs::path& path) {
    if (Uninterrupted([&] { return ::flock(file.Number(), LOCK_EX | LOCK_NB); }) == 0) return true;
    if (errno == EWOULDBLOCK) return false;
    if (errno == ENOLCK || errno == EOPNOTSUPP || errno == EINVAL) return true;  // no locks here
    ThrowSystem("lock", path);
}

/// The new file while it is being written; removed again unless it was renamed into place. Its lock
/// tells a writer that lives from a left-over of one that died.
class TemporaryFile {
  public:
    TemporaryFile(fs::path path, mode_t mode) : path_(std::move(path)), file_(Create(mode)) {}
    ~TemporaryFile() {
        if (file_.IsOpen() && !renamed_) ::unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const Descriptor& File() const { return file_; }
    const fs::path& Path() const { return path_; }

    void Write(const FileImage& image) const {
        for (std::uint64_t at = 0; at < image.Size();) {
            const std::uint64_t piece =
                std::min<std::uint64_t>(FileImage::kChunkBytes, image.Size() - at);
            WriteAll(image.At(at), static_cast<std::size_t>(piece));
            at += piece;
        }
    }
    void Sync() const {
        if (Uninterrupted([&] { return ::fsync(file_.Number()); }) != 0) ThrowSystem("sync", path_);
    }
    void RenameTo(const fs::path& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) ThrowSystem("replace", target);
        renamed_ = true;
    }

  private:
    Descriptor Create(mode_t mode) const {
        constexpr int kAttempts = 3;
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            Descriptor file = Open(path_, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
            if (file.IsOpen()) {
                if (!Lock(file, path_)) ThrowInUse();
                // Another process may have taken the name for a left-over before the lock was ours.
                if (StatusOf(file, path_).st_nlink > 0) return file;
                continue;
            }
            if (errno != EEXIST) ThrowSystem("create", path_);
            RemoveLeftOver();
        }
        ThrowInUse();
    }
    void RemoveLeftOver() const {
        const Descriptor old = Open(path_, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
        if (old.IsOpen() && !Lock(old, path_)) ThrowInUse();
        if (::unlink(path_.c_str()) != 0 && errno != ENOENT) ThrowSystem("remove", path_);
    }
    [[noreturn]] void ThrowInUse() const {
        throw Error{ErrorNumber::FileInUse, "another process is writing " + path_.string()};
    }
    void WriteAll(const std::uint8_t* bytes, std::size_t size) const {
        while (size > 0) {
            const ssize_t written =
                Uninterrupted([&] { return ::write(file_.Number(), bytes, size); });
            if (written < 0) ThrowSystem("write", path_);
            if (written == 0) {
                throw Error{ErrorNumber::DeviceIo, "write " + path_.string() + ": nothing written"};
            }
            bytes += written;
            size -= static_cast<std::size_t>(written);
        }
    }

    fs::path path_;
    Descriptor file_;
    bool renamed_ = false;
};

/// Mode as before; owner and group as far as the system lets us, which only matters when somebody
/// else's file is saved.
void TakeOver(const TemporaryFile& file, const struct stat& old) {
    const struct stat now = StatusOf(file.File(), file.Path());
    if (now.st_uid != old.st_uid || now.st_gid != old.st_gid) {
        if (::fchown(file.File().Number(), old.st_uid, old.st_gid) != 0) {
            // Not allowed to give files away: at least the group, if we belong to it.
            if (::fchown(file.File().Number(), static_cast<uid_t>(-1), old.st_gid) != 0) errno = 0;
        }
    }
    constexpr mode_t kPermissions = 0777;
    if (::fchmod(file.File().Number(), old.st_mode & kPermissions) != 0) {
        ThrowSystem("set the mode of", file.Path());
    }
}

/// False when the folder could be synced but the disk failed. A folder that cannot be synced at all
/// (some network file systems, no right to read it) counts as synced: nothing more can be done
/// there.
bool SyncFolder(const fs::path& folder) {
    const Descriptor descriptor = Open(folder, O_RDONLY | O_DIRECTORY);
    if (!descriptor.IsOpen()) return errno == EACCES || errno == EPERM;
    if (Uninterrupted([&] { return ::fsync(descriptor.Number()); }) == 0) return true;
    return errno == EINVAL || errno == ENOTSUP || errno == EBADF;
}

void CheckUnchanged(const fs::path& path, const Fingerprint& expected) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) ThrowSystem("save", path);
    if (FingerprintFrom(status) != expected) {
        throw Error{ErrorNumber::ChangedByOther,
                    path.string() + " was changed by another program since it was read"};
    }
}

void ReadAll(const Descriptor& file, const fs::path& path, FileImage& image) {
    for (std::uint64_t at = 0; at < image.Size();) {
        const std::uint64_t toChunkEnd = FileImage::kChunkBytes - at % FileImage::kChunkBytes;
        const std::uint64_t wanted = std::min(toChunkEnd, image.Size() - at);
        const ssize_t got = Uninterrupted(
            [&] { return ::read(file.Number(), image.At(at), static_cast<std::size_t>(wanted)); });
        if (got < 0) ThrowSystem("read", path);
        if (got == 0) {
            throw Error{ErrorNumber::ChangedByOther, path.string() + " became shorter while read"};
        }
        at += static_cast<std::uint64_t>(got);
    }
}

}  // namespace

void FileImage::Resize(std::uint64_t size) {
    const std::size_t chunks = static_cast<std::size_t>((size + kChunkBytes - 1) / kChunkBytes);
    while (chunks_.size() < chunks) {
        chunks_.push_back(std::make_unique<std::uint8_t[]>(kChunkBytes));
    }
    size_ = size;
}

std::filesystem::path Resolve(const std::filesystem::path& path) {
    fs::path target = path;
    std::error_code failed;
    for (int links = 0; links < kLinkLimit; ++links) {
        const fs::path next = fs::read_symlink(target, failed);
        if (failed) break;
        target = next.is_absolute() ? next : FolderOf(target) / next;
    }
    // The folder's own links and dots: the same file always gets the same path.
    const fs::path folder = fs::canonical(FolderOf(target), failed);
    if (failed) return target;
    return folder / target.filename();
}

LoadedFile Load(const std::filesystem::path& path) {
    // Not to wait for a writer when the name is a pipe's.
    const Descriptor file = Open(path, O_RDONLY | O_NONBLOCK);
    if (!file.IsOpen()) ThrowSystem("open", path);
    const struct stat before = StatusOf(file, path);
    if (!S_ISREG(before.st_mode)) {
        throw Error{ErrorNumber::ForeignFormat, path.string() + " is not a file"};
    }
    const auto size = static_cast<std::uint64_t>(before.st_size);
    if (size > kMaxFileSize) {
        throw Error{ErrorNumber::ForeignFormat, path.string() + " is larger than any database"};
    }
    LoadedFile loaded{{}, FingerprintFrom(before)};
    loaded.image.Resize(size);
    ReadAll(file, path, loaded.image);
    if (FingerprintFrom(StatusOf(file, path)) != loaded.fingerprint) {
        throw Error{ErrorNumber::ChangedByOther, path.string() + " was changed while it was read"};
    }
    return loaded;
}

bool CanReplace(const std::filesystem::path& path) {
    const fs::path target = Resolve(path);
    struct stat status {};
    if (::stat(target.c_str(), &status) != 0) return false;
    // The superuser may write anything; a file without any write bit is meant to stay as it is for
    // him too.
    constexpr mode_t kAnyWrite = 0222;
    if ((status.st_mode & kAnyWrite) == 0) return false;
    return ::access(target.c_str(), W_OK) == 0 &&
           ::access(FolderOf(target).c_str(), W_OK | X_OK) == 0;
}

Replaced ReplaceAtomically(const std::filesystem::path& path, const FileImage& image,
                           const Fingerprint* expected) {
    const fs::path target = Resolve(path);
    if (expected != nullptr) CheckUnchanged(target, *expected);
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        throw Error{ErrorNumber::PermissionDenied, target.string() + " is not a file"};
    }
    TemporaryFile file(TemporaryNameFor(target), exists ? 0600 : 0666);
    if (exists) TakeOver(file, old);
    file.Write(image);
    file.Sync();
    const Fingerprint fingerprint = FingerprintFrom(StatusOf(file.File(), file.Path()));
    if (expected != nullptr) CheckUnchanged(target, *expected);
    file.RenameTo(target);
    return {fingerprint, SyncFolder(FolderOf(target))};
}

void SaveWhole(const FileImage& image, const std::filesystem::path& path) {
    std::error_code code;
    const fs::path folder = FolderOf(Resolve(path));
    if (!fs::exists(folder, code)) {
        throw Error{ErrorNumber::PathNotFound, "there is no folder " + folder.string()};
    }
    if (!ReplaceAtomically(path, image, nullptr).folderSynced) {
        throw Error{ErrorNumber::DeviceIo,
                    "sync the folder of " + path.string() + ": device failed"};
    }
}

}  // namespace jet::detail
