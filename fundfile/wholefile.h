#pragma once
// A file that is built beside its place and put there whole: nobody ever meets half of it.

#include <filesystem>

class WholeFile {
  public:
    /// Begins with a copy of `start`, beside `target`. Throws FileNotFound (no `start`),
    /// PathNotFound (no folder for `target`), PermissionDenied, DiskFull, DeviceIo.
    WholeFile(const std::filesystem::path& start, const std::filesystem::path& target);

    /// What was not put in place leaves nothing behind.
    ~WholeFile();
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;

    /// Where to build it, until it is put in place.
    const std::filesystem::path& Path() const { return building_; }

    /// Durable when it returns. What stood at the target before is replaced; a link is followed.
    void PutInPlace();

  private:
    std::filesystem::path target_, building_;
    bool placed_ = false;
};
