// Files that are written whole or not at all, and read whole.

#include "platform/wholefile.h"

#include "base/error.h"

#include <QTemporaryDir>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class WholeFileTest : public ::testing::Test {
  protected:
    std::string In(const std::string& name) const { return (fs::path(root_) / name).string(); }
    static std::string Bytes(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(root_)) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    template <typename Work>
    static ErrorNumber NumberOf(const Work& work) {
        try {
            work();
        } catch (const Error& error) {
            return error.Number();
        }
        ADD_FAILURE() << "no error";
        return {};
    }

    QTemporaryDir folder_;
    std::string root_ = folder_.path().toStdString();
};

TEST_F(WholeFileTest, IsWrittenAndTakesThePlaceOfAnother) {
    WriteWholeFile(In("å.txt"), std::string("a\0b", 3));
    EXPECT_EQ(Bytes(In("å.txt")), std::string("a\0b", 3));
    WriteWholeFile(In("å.txt"), "");
    EXPECT_EQ(Bytes(In("å.txt")), "");
    EXPECT_EQ(Names().size(), 1U);
}

TEST_F(WholeFileTest, FollowsALink) {
    WriteWholeFile(In("there.txt"), "old");
    fs::create_symlink("there.txt", In("link.txt"));
    WriteWholeFile(In("link.txt"), "new");
    EXPECT_EQ(Bytes(In("there.txt")), "new");
    EXPECT_TRUE(fs::is_symlink(In("link.txt")));
}

TEST_F(WholeFileTest, IsLeftAsItWasWhereItCannotBeWritten) {
    EXPECT_EQ(NumberOf([&] { WriteWholeFile(In("no/folder.txt"), "new"); }),
              ErrorNumber::PathNotFound);
    fs::create_directory(In("taken.txt"));
    EXPECT_EQ(NumberOf([&] { WriteWholeFile(In("taken.txt"), "new"); }),
              ErrorNumber::PermissionDenied);
    EXPECT_EQ(Names(), std::vector<std::string>{"taken.txt"});
}

TEST_F(WholeFileTest, OfSeveralNoneIsWrittenUnlessAllCanBe) {
    WriteWholeFile(In("a.txt"), "old");
    fs::create_directory(In("b.txt"));
    EXPECT_EQ(NumberOf([&] {
                  WriteWholeFiles({{In("a.txt"), "new"}, {In("b.txt"), "new"}});
              }),
              ErrorNumber::PermissionDenied);
    EXPECT_EQ(Bytes(In("a.txt")), "old");
    EXPECT_EQ(Names(), (std::vector<std::string>{"a.txt", "b.txt"}));
    WriteWholeFiles({{In("a.txt"), "new"}, {In("c.txt"), "c"}});
    EXPECT_EQ(Bytes(In("a.txt")), "new");
    EXPECT_EQ(Bytes(In("c.txt")), "c");
}

TEST_F(WholeFileTest, IsReadUpToASize) {
    WriteWholeFile(In("a.txt"), "12345");
    EXPECT_EQ(ReadWholeFile(In("a.txt"), 5), "12345");
    EXPECT_EQ(ReadWholeFile(In("a.txt"), 4), std::nullopt);
    EXPECT_EQ(NumberOf([&] { ReadWholeFile(In("gone.txt"), 4); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(NumberOf([&] { ReadWholeFile(root_, 4); }), ErrorNumber::DeviceIo);
    EXPECT_EQ(NumberOf([&] { ReadWholeFile("/dev/zero", 4); }), ErrorNumber::DeviceIo);
}

}  // namespace
