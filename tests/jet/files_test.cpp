#include "jet/files.h"

#include "support.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace jet::test {
namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
  protected:
    FilesTest() {
        std::ofstream(folder / "a") << "a";
        std::ofstream(folder / "b") << "a";
        fs::create_directory(folder / "in");
    }

    const ScratchFolder folder;
};

TEST_F(FilesTest, OneFileIsKnownByAllItsNames) {
    fs::create_symlink(folder / "a", folder / "link");
    fs::create_hard_link(folder / "a", folder / "second");
    for (const char* name : {"a", "link", "second", "in/../a", "in/../link"}) {
        EXPECT_TRUE(IsSameFile(folder / "a", folder / name)) << name;
    }
}

TEST_F(FilesTest, EqualFilesAreTwo) {
    EXPECT_FALSE(IsSameFile(folder / "a", folder / "b"));
}

TEST_F(FilesTest, AFileThatIsNotThereIsItsPath) {
    EXPECT_TRUE(IsSameFile(folder / "c", folder / "in/../c"));
    EXPECT_FALSE(IsSameFile(folder / "c", folder / "a"));
    EXPECT_FALSE(IsSameFile("", folder / "a"));
}

}  // namespace
}  // namespace jet::test
