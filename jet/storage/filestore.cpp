#include "jet/storage/filestore.h"

#include "jet/error.h"

#include <algorithm>
#include <dirent.h>
#include <exception>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace jet::detail {

namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kMaxFileSize = 1ULL << 31;
constexpr int kLinkLimit = 40;

struct CloseFolder {
    void operator()(DIR* folder) const noexcept { ::closedir(folder); }
};

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
    const Descriptor file = OpenDescriptor(path, O_RDONLY | O_NONBLOCK);
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
    // Another program may put a new file in its place meanwhile; this one stays what it was.
    if (!FingerprintFrom(StatusOf(file, path)).SameButForChange(loaded.fingerprint)) {
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

void RemoveLeftOvers(const std::filesystem::path& path) noexcept try {
    const fs::path target = Resolve(path);
    const fs::path in = FolderOf(target);
    const std::string name = target.filename().string();
    // Not the library's iterator, which ends the program when memory runs out.
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(in.c_str()));
    if (folder == nullptr) return;
    while (const dirent* entry = ::readdir(folder.get())) {
        if (!IsTemporaryNameFor(entry->d_name, name)) continue;
        const fs::path left = in / entry->d_name;
        const Descriptor file = OpenDescriptor(left, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
        // Without locks nobody knows whether its process lives.
        if (file.IsOpen() && TryLock(file) == LockResult::Taken) ::unlink(left.c_str());
    }
} catch (const std::exception&) {
    // Memory ran out: they stay until the next time.
}

void SaveWhole(const FileImage& image, const std::filesystem::path& path, mode_t mode) {
    const fs::path target = Resolve(path);
    const fs::path in = FolderOf(target);
    std::error_code unknown;
    if (!fs::exists(in, unknown)) {
        throw Error{ErrorNumber::PathNotFound, "there is no folder " + in.string()};
    }
    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        throw Error{ErrorNumber::PermissionDenied, target.string() + " is not a file"};
    }
    TemporaryFile file(target, exists ? mode_t{0600} : mode);
    if (exists) TakeOver(file.File(), old);
    file.Write(image);
    file.Sync();
    const Folder folder(in);
    file.RenameTo(target);
    if (folder.Sync() == Folder::Synced::Failed) {
        throw Error{ErrorNumber::DeviceIo, "sync the folder " + in.string() + ": device failed"};
    }
}

mode_t ModeForCopyOf(const std::filesystem::path& path) {
    constexpr mode_t kPermissions = 0777;
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & kPermissions : kNewFileMode;
}

}  // namespace jet::detail
