#include "base/path.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace {

namespace fs = std::filesystem;

class PathTest : public testing::Test {
  protected:
    PathTest() {
        std::string name = (fs::temp_directory_path() / "path_test_XXXXXX").string();
        folder = ::mkdtemp(name.data());
        std::ofstream(folder / "a") << "a";
        std::ofstream(folder / "b") << "a";
        fs::create_directory(folder / "in");
    }
    ~PathTest() override { fs::remove_all(folder); }

    fs::path folder;
};

TEST_F(PathTest, OneFileIsKnownByAllItsNames) {
    fs::create_symlink(folder / "a", folder / "link");
    fs::create_hard_link(folder / "a", folder / "second");
    for (const char* name : {"a", "link", "second", "in/../a", "in/../link"}) {
        EXPECT_TRUE(IsSameFile(folder / "a", folder / name)) << name;
    }
}

TEST_F(PathTest, EqualFilesAreTwo) {
    EXPECT_FALSE(IsSameFile(folder / "a", folder / "b"));
}

TEST_F(PathTest, AFileThatIsNotThereIsItsPath) {
    EXPECT_TRUE(IsSameFile(folder / "c", folder / "in/../c"));
    EXPECT_FALSE(IsSameFile(folder / "c", folder / "a"));
    EXPECT_FALSE(IsSameFile("", folder / "a"));
}

TEST_F(PathTest, AFolderEndsInOneSeparator) {
    EXPECT_EQ(WithSeparator("/a/b"), "/a/b/");
    EXPECT_EQ(WithSeparator("/a/b/"), "/a/b/");
    EXPECT_EQ(WithSeparator(""), "");
}

}  // namespace
