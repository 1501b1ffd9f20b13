// One version: whatever names it says the same.

#include "base/version.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <string>

namespace {

std::string Found(const char* file, const char* pattern) {
    std::ifstream stream(std::string(KVARNBO_SOURCES) + "/" + file);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::smatch match;
    return std::regex_search(text, match, std::regex(pattern)) ? match[1].str() : "";
}

TEST(HouseVersion, IsTheBuilds) {
    EXPECT_EQ(Found("CMakeLists.txt", "project\\(Kvarnbo VERSION ([0-9.]+)"), Version());
}

TEST(HouseVersion, IsTheLibrarys) {
    EXPECT_EQ(Found("jet/CMakeLists.txt", "project\\(jet VERSION ([0-9.]+)"), Version());
}

TEST(HouseVersion, HasAnEntryInTheHistoryOnItsDay) {
    const std::string day = Found("CMakeLists.txt", "KVARNBO_RELEASE_DATE ([0-9-]+)");
    EXPECT_EQ(Found("CHANGELOG.md", "\n## ([^\n]+)"), std::string(Version()) + " (" + day + ")");
}

TEST(HouseVersion, IsTheNewestReleaseOfTheMetadata) {
    EXPECT_EQ(Found("packaging/se.kvarnbo.kvarnbo.metainfo.xml.in", "<release version=\"([^\"]+)"),
              "@PROJECT_VERSION@");
}

}  // namespace
