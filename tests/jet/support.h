#pragma once
// What the engine's tests share: sample files, a folder to work in, other programs.

#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace jet::test {

/// The folder with the sample files, if there is one on this machine.
inline std::optional<std::filesystem::path> Samples() {
    const char* folder = std::getenv("KVARNBO_SAMPLES");
    if (folder == nullptr || *folder == '\0') return std::nullopt;
    return std::filesystem::path(folder);
}

/// All sample files, sorted by name.
std::vector<std::filesystem::path> SampleFiles();

/// A folder that goes away with the object.
class ScratchFolder {
  public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }
    const std::filesystem::path& Path() const { return path_; }

  private:
    std::filesystem::path path_;
};

/// What a program printed, and how it ended.
struct Outcome {
    int status = -1;  ///< 127: there is no such program
    std::string output;
};
/// Runs a program found on the PATH, without a shell; standard error is left out.
Outcome Run(const std::vector<std::string>& arguments);

/// An independent reader's output. A missing reader is a failure of the test.
std::string ReadWith(const std::vector<std::string>& arguments);

}  // namespace jet::test

#define SKIP_WITHOUT_SAMPLES() \
    if (!jet::test::Samples()) GTEST_SKIP() << "KVARNBO_SAMPLES names no folder of sample files"
