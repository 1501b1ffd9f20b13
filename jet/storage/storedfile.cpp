#include "jet/storage/storedfile.h"

#include "jet/error.h"
#include "jet/storage/filestore.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <utility>

namespace jet::detail {

namespace {

/// The state after names changed, which the time of the last change shows. Any other difference is
/// somebody else's: then the state before is the one that we know.
Fingerprint AfterRenaming(const Fingerprint& before, const Fingerprint& after) {
    return after.SameButForChange(before) ? after : before;
}

/// Of two processes that store the same file one waits here for nobody: it hears of the other.
Descriptor LockForReplacing(const std::filesystem::path& path) {
    Descriptor file = OpenDescriptor(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    if (file.IsOpen() && TryLock(file) == LockResult::HeldByOther) {
        throw Error{ErrorNumber::FileInUse, "another process is storing " + path.string()};
    }
    return file;
}

}  // namespace

StoredFile::StoredFile(std::filesystem::path path, const Fingerprint& state, Reached reached)
    : path_(std::move(path)),
      folder_(FolderOf(path_)),
      state_(state),
      mayExchange_(reached == Reached::Directly) {}

StoredFile::Stored StoredFile::Store(NewVersion version) {
    const struct stat file = RequireUnchanged(version);
    try {
        WriteBeside(version, file);
        return Place(version, Folder(folder_));
    } catch (...) {
        second_.reset();
        throw;
    }
}

/// A new mode, owner or second name shows as a change of the file, too: then its bytes decide.
struct stat StoredFile::RequireUnchanged(const NewVersion& version) {
    struct stat status {};
    if (::lstat(path_.c_str(), &status) != 0) ThrowSystem("save", path_);
    const Fingerprint now = FingerprintFrom(status);
    if (now == state_) return status;
    if (now.SameButForChange(state_)) {
        const LoadedFile loaded = Load(path_);
        if (loaded.fingerprint == now && version.replaces(loaded.image)) {
            state_ = now;
            return status;
        }
    }
    throw Error{ErrorNumber::ChangedByOther,
                path_.string() + " was changed by another program since it was read"};
}

/// The version as the second image, complete and synced, in the one that was kept or a fresh one.
void StoredFile::WriteBeside(const NewVersion& version, const struct stat& file) {
    if (second_) {
        const SecondImage::Written written = second_->Write(version, file);
        if (written == SecondImage::Written::Complete) return;
        if (written == SecondImage::Written::NoLeases) mayExchange_ = false;
        second_.reset();
    }
    constexpr mode_t kOwnerOnly = 0600;  // until the file's own mode is set
    TemporaryFile fresh(path_, kOwnerOnly);
    TakeOver(fresh.File(), file);
    fresh.Write(version.image);
    fresh.Sync();
    second_.emplace(fresh);
}

/// The first version of a session is renamed into place, so that a single price leaves nothing
/// beside the file.
StoredFile::Stored StoredFile::Place(NewVersion& version, const Folder& folder) {
    Descriptor lock = LockForReplacing(path_);
    RequireUnchanged(version);
    const Fingerprint complete = second_->State();
    if (storedBefore_ && mayExchange_ && folder.KeepsExchanges()) {
        if (second_->Exchange(path_)) {
            lock.Close();
            return AfterExchange(version, folder, complete);
        }
        mayExchange_ = false;
    }
    second_->Replace(path_);
    state_ = AfterRenaming(complete, second_->State());
    second_.reset();
    if (folder.Sync() == Folder::Synced::Failed) return Stored::InDoubt;
    storedBefore_ = true;
    return Stored::Safely;
}

StoredFile::Stored StoredFile::AfterExchange(NewVersion& version, const Folder& folder,
                                             const Fingerprint& complete) {
    const Fingerprint replaced = std::exchange(state_, AfterRenaming(complete, second_->State()));
    const bool others = !second_->Took(replaced);
    const Folder::Synced synced = others ? Folder::Synced::Unknown : folder.Sync();
    if ((others || synced == Folder::Synced::Failed) && second_->Exchange(path_)) {
        struct stat status {};
        const bool known = ::lstat(path_.c_str(), &status) == 0;
        state_ = known ? AfterRenaming(replaced, FingerprintFrom(status)) : replaced;
        throw Error{others ? ErrorNumber::ChangedByOther : ErrorNumber::DeviceIo,
                    path_.string() + (others ? " was changed by another program while it was stored"
                                             : ": the folder cannot be synced, device failed")};
    }
    // Where the exchange may still be undone by a power cut, the old image must stay as it is.
    const bool lasts = synced == Folder::Synced::Yes;
    if (!lasts || !second_->Keep(replaced, std::move(version.changed))) second_.reset();
    return Stored::Safely;
}

}  // namespace jet::detail
