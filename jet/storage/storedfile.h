#pragma once
// The file on the disk that an open database was read from: new versions take its place, each whole
// and synced. What a version holds is others' business.

#include "jet/storage/secondimage.h"
#include "jet/storage/systemfile.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace jet::detail {

class StoredFile {
  public:
    /// How the path was given: a file that is reached through a link keeps no second image.
    enum class Reached : std::uint8_t { Directly, ThroughLink };
    StoredFile(std::filesystem::path path, const Fingerprint& state, Reached reached);

    const std::filesystem::path& Path() const { return path_; }

    /// Puts the version in the file's place. Throws ChangedByOther when the file is not in the
    /// state in which we left it, FileInUse when another process is storing it at this moment, and
    /// what system calls bring about: then the file is as it was and nothing of the version is left
    /// beside it. Once it is in place nothing can fail: no memory is asked for from there on.
    ///
    /// InDoubt: it is in place, but a power cut may still bring the old one back, which is gone;
    /// the caller may store the old version in the same way.
    enum class Stored : std::uint8_t { Safely, InDoubt };
    Stored Store(NewVersion version);

  private:
    struct stat RequireUnchanged(const NewVersion& version);
    void WriteBeside(const NewVersion& version, const struct stat& file);
    Stored Place(NewVersion& version, const Folder& folder);
    Stored AfterExchange(NewVersion& version, const Folder& folder, const Fingerprint& complete);

    std::filesystem::path path_, folder_;
    Fingerprint state_;
    std::optional<SecondImage> second_;
    bool mayExchange_;
    bool storedBefore_ = false;
};

}  // namespace jet::detail
