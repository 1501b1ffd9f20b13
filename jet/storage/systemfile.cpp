#include "jet/storage/systemfile.h"

#include "jet/error.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <linux/magic.h>
#include <string_view>
#include <sys/file.h>
#include <sys/random.h>
#include <sys/statfs.h>
#include <system_error>
#include <unistd.h>

namespace jet::detail {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kRandomDigits = 16;
constexpr std::size_t kMaxKeptLength = 200;  // characters of the file's own name

std::string& TemporaryEnding() {
    static std::string ending = ".jet-new";
    return ending;
}

std::string BeginningFor(const std::string& file) {
    return "." + file.substr(0, kMaxKeptLength) + ".";
}

/// Sixteen digits that nobody can foresee. Throws DeviceIo when the system has none to give.
std::string RandomDigits() {
    std::array<unsigned char, kRandomDigits / 2> bytes{};
    if (Uninterrupted([&] { return ::getrandom(bytes.data(), bytes.size(), 0); }) !=
        static_cast<ssize_t>(bytes.size())) {
        throw Error{ErrorNumber::DeviceIo, "no random number for a temporary name"};
    }
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string digits;
    for (const unsigned char byte : bytes) {
        digits += kDigits[byte >> 4];
        digits += kDigits[byte & 15];
    }
    return digits;
}

fs::path TemporaryNameFor(const fs::path& file) {
    return FolderOf(file) /
           (BeginningFor(file.filename().string()) + RandomDigits() + TemporaryEnding());
}

Descriptor CreateNew(const fs::path& path, mode_t mode) {
    Descriptor file = OpenDescriptor(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
    if (!file.IsOpen()) ThrowSystem("create", path);
    TryLock(file);
    return file;
}

void WriteAll(const Descriptor& file, const fs::path& path, const std::uint8_t* bytes,
              std::size_t size) {
    while (size > 0) {
        const ssize_t written = Uninterrupted([&] { return ::write(file.Number(), bytes, size); });
        if (written < 0) ThrowSystem("write", path);
        if (written == 0) {
            throw Error{ErrorNumber::DeviceIo, "write " + path.string() + ": nothing written"};
        }
        bytes += written;
        size -= static_cast<std::size_t>(written);
    }
}

}  // namespace

void ThrowSystem(const char* what, const fs::path& path) {
    const int code = errno;
    throw Error{NumberOfSystemError(code), std::string(what) + " " + path.string() + ": " +
                                               std::generic_category().message(code)};
}

void Descriptor::Close() noexcept {
    if (number_ >= 0) ::close(number_);
    number_ = -1;
}

Descriptor OpenDescriptor(const fs::path& path, int flags, mode_t mode) noexcept {
    return Descriptor(Uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, mode); }));
}

struct stat StatusOf(const Descriptor& file, const fs::path& path) {
    struct stat status {};
    if (::fstat(file.Number(), &status) != 0) ThrowSystem("status of", path);
    return status;
}

bool Fingerprint::SameButForChange(const Fingerprint& other) const {
    Fingerprint same = other;
    same.changedSeconds = changedSeconds;
    same.changedNanoseconds = changedNanoseconds;
    return *this == same;
}

Fingerprint FingerprintFrom(const struct stat& status) {
    return {.device = static_cast<std::uint64_t>(status.st_dev),
            .inode = static_cast<std::uint64_t>(status.st_ino),
            .size = static_cast<std::uint64_t>(status.st_size),
            .modifiedSeconds = static_cast<std::int64_t>(status.st_mtim.tv_sec),
            .modifiedNanoseconds = static_cast<std::int64_t>(status.st_mtim.tv_nsec),
            .changedSeconds = static_cast<std::int64_t>(status.st_ctim.tv_sec),
            .changedNanoseconds = static_cast<std::int64_t>(status.st_ctim.tv_nsec)};
}

fs::path FolderOf(const fs::path& file) {
    const fs::path folder = file.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

LockResult TryLock(const Descriptor& file) noexcept {
    if (Uninterrupted([&] { return ::flock(file.Number(), LOCK_EX | LOCK_NB); }) == 0) {
        return LockResult::Taken;
    }
    return errno == EWOULDBLOCK ? LockResult::HeldByOther : LockResult::NoLocksHere;
}

Folder::Folder(const fs::path& path) : descriptor_(OpenDescriptor(path, O_RDONLY | O_DIRECTORY)) {
    if (!descriptor_.IsOpen() && errno != EACCES && errno != EPERM) ThrowSystem("open", path);
}

Folder::Synced Folder::Sync() const noexcept {
    if (!descriptor_.IsOpen()) return Synced::Unknown;
    if (Uninterrupted([&] { return ::fsync(descriptor_.Number()); }) == 0) return Synced::Yes;
    const bool knowsNoSync = errno == EINVAL || errno == ENOTSUP || errno == EBADF;
    return knowsNoSync ? Synced::Unknown : Synced::Failed;
}

bool Folder::KeepsExchanges() const noexcept {
    struct statfs about {};
    if (!descriptor_.IsOpen() || ::fstatfs(descriptor_.Number(), &about) != 0) return false;
    const auto kind = static_cast<std::uint64_t>(about.f_type);
    return kind == EXT4_SUPER_MAGIC || kind == XFS_SUPER_MAGIC;
}

TemporaryFile::TemporaryFile(const fs::path& target, mode_t mode)
    : path_(TemporaryNameFor(target)), file_(CreateNew(path_, mode)) {}

TemporaryFile::~TemporaryFile() {
    if (ours_) ::unlink(path_.c_str());
}

void TemporaryFile::Write(const FileImage& image) const {
    for (std::uint64_t at = 0; at < image.Size();) {
        const std::uint64_t piece =
            std::min<std::uint64_t>(FileImage::kChunkBytes, image.Size() - at);
        WriteAll(file_, path_, image.At(at), static_cast<std::size_t>(piece));
        at += piece;
    }
}

void TemporaryFile::Sync() const {
    if (Uninterrupted([&] { return ::fsync(file_.Number()); }) != 0) ThrowSystem("sync", path_);
}

void TemporaryFile::RenameTo(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) ThrowSystem("replace", target);
    ours_ = false;
}

fs::path TemporaryFile::TakePath() noexcept {
    ours_ = false;
    return std::move(path_);
}

void TakeOver(const Descriptor& file, const struct stat& from) noexcept {
    constexpr mode_t kPermissions = 0777, kGroup = 0070, kOthers = 0007;
    struct stat now {};
    if (::fstat(file.Number(), &now) != 0) return;
    mode_t mode = from.st_mode & kPermissions;
    if (now.st_uid != from.st_uid || now.st_gid != from.st_gid) {
        // Who may not give files away can still give the group, if he belongs to it.
        const bool grouped = ::fchown(file.Number(), from.st_uid, from.st_gid) == 0 ||
                             ::fchown(file.Number(), static_cast<uid_t>(-1), from.st_gid) == 0;
        if (!grouped && now.st_gid != from.st_gid) {
            mode &= static_cast<mode_t>(~kGroup) | (mode & kOthers) << 3;
        }
    }
    // A file system without modes refuses, and has nothing to keep.
    if (::fchmod(file.Number(), mode) != 0) errno = 0;
}

void EndTemporaryNamesWith(std::string_view ending) {
    TemporaryEnding() = ending;
}

bool IsTemporaryNameFor(const std::string& name, const std::string& file) {
    const std::string beginning = BeginningFor(file);
    if (name.size() != beginning.size() + kRandomDigits + TemporaryEnding().size()) return false;
    const std::string_view digits = std::string_view(name).substr(beginning.size(), kRandomDigits);
    return name.starts_with(beginning) && name.ends_with(TemporaryEnding()) &&
           digits.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

}  // namespace jet::detail
