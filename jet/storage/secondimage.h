#pragma once
// Two images of one file, exchanged by name, so that storing a price costs a few pages and not the
// whole file. This page says what the class relies on; nothing outside it and StoredFile knows.
//
// What it is. Putting a new version in a file's place takes a complete new image beside it. Once a
// session has stored, the image that the second store replaces is not thrown away: it is one
// version behind, and the pages in which it is behind are known. The next store writes those pages
// and its own into it, syncs it, and exchanges the names of the two files in one step
// (RENAME_EXCHANGE). What was the file is the second image now, again one version behind.
//
// What holds at every moment. The file's name leads to a complete version, which nobody writes to:
// only the image beside it is written to, and that one gets the name after it was synced. A process
// that dies leaves the second image behind, under a name that nobody takes for the file; it is
// removed when the file is claimed the next time (RemoveLeftOvers). A power cut keeps or loses the
// exchange as a whole. So that it cannot come back after its second image was written to again, an
// image is kept only where the folder was synced after the exchange, and only on file systems that
// are known to keep an exchange and its order through a power cut.
//
// Who else might look at the second image:
// - A program that opened the file before the exchange still reads it. A write lease, which the
//   system grants only when nobody else has the image open, is taken before the first byte is
//   written and held until the sync; who opens the image meanwhile waits for its end and finds it
//   complete. Who has it open already keeps it: it is dropped, and a fresh image is written. The
//   system tells of one who waits by a signal, which would end a program that does not expect it;
//   one that is ignored by default is asked for instead.
// - A second name (a hard link made by a backup): the image has more than one name then, and is
//   dropped.
// - A program that wrote to it: it is not as it was left (size, times, identity), and is dropped.
//
// Whenever anything is in doubt, a fresh image is written and put in place as if there were no
// second one: that is slow, and never wrong. Mode and owner follow the file's at each store.

#include "jet/storage/systemfile.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <vector>

namespace jet::detail {

/// What is to take a file's place, and in what it differs from that.
struct NewVersion {
    const FileImage& image;
    std::size_t pageSize;
    std::vector<std::uint32_t> changed;              ///< pages, ascending; new ones too
    std::function<bool(const FileImage&)> replaces;  ///< whether these are the bytes it replaces
};

class SecondImage {
  public:
    /// A fresh image, complete and synced.
    explicit SecondImage(TemporaryFile& fresh);
    /// Nothing is left beside the file.
    ~SecondImage();
    SecondImage(const SecondImage&) = delete;
    SecondImage& operator=(const SecondImage&) = delete;

    /// Brings a kept image to the new version. When it does not, the image is of no more use; where
    /// there are NoLeases, none will ever be.
    enum class Written : std::uint8_t { Complete, InDoubt, NoLeases };
    Written Write(const NewVersion& version, const struct stat& file) noexcept;

    /// Exchanges it with the file; again, it takes that back. Not: `errno` says why.
    bool Exchange(const std::filesystem::path& file) noexcept;
    /// Puts it in the file's place, for good. Throws before anything changed.
    void Replace(const std::filesystem::path& file);

    /// Of the complete version, under whichever name.
    Fingerprint State() const noexcept;

    /// After an exchange: whether what has its name now is the file in that state.
    bool Took(const Fingerprint& replaced) const noexcept;

    /// After an exchange that will last: what was the file is the image from here on, behind in the
    /// pages in which the versions differ. False when it is not what the file was.
    bool Keep(const Fingerprint& replaced, std::vector<std::uint32_t> behind) noexcept;

  private:
    bool IsAsItWasLeft() const noexcept;
    bool WritePages(const NewVersion& version) const noexcept;
    bool WriteRun(const NewVersion& version, std::uint32_t first, std::uint32_t end) const noexcept;

    std::filesystem::path path_;
    Descriptor file_;
    Fingerprint left_;
    std::vector<std::uint32_t> behind_;
    bool hasName_ = true;
};

}  // namespace jet::detail
