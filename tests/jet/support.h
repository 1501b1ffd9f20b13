#pragma once
// What the engine's tests share: sample files, a folder to work in, other programs.

#include "tests/support/samplefiles.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace jet::test {

using samplefiles::OtherFiles;

/// Our own fund files, and other programs' files where they are there, sorted by path.
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

#define SKIP_WITHOUT_SAMPLES()                                   \
    if (!jet::test::OtherFiles())                                \
    GTEST_SKIP() << "KVARNBO_SAMPLES names no folder of sample " \
                    "files"
