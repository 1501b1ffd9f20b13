// The example of the library's README is a source file of the tests: it compiles, it does what it
// says, and the README shows the same text.

#include "jet/database.h"
#include "support.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

void Example(const std::filesystem::path& path);

namespace jet::test {
namespace {

std::string TextOf(const std::string& file) {
    std::ifstream in(std::filesystem::path(KVARNBO_SOURCES) / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Readme, ShowsTheExampleThatIsCompiled) {
    const std::string readme = TextOf("jet/README.md");
    const std::string open = "```cpp\n";
    const std::size_t begin = readme.find(open) + open.size();
    ASSERT_NE(readme.find(open), std::string::npos);
    EXPECT_EQ(readme.substr(begin, readme.find("```", begin) - begin),
              TextOf("tests/jet/readme_example.cpp"));
}

TEST(Readme, ExampleDoesWhatItSays) {
    const ScratchFolder folder;
    testing::internal::CaptureStdout();
    Example(folder / "people.mdb");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "1 Åsa\n2 Örjan\n");

    const auto database = Database::Open(folder / "people.mdb");
    const auto rows = database->OpenRecordSet("People");
    EXPECT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ(rows->Field("Id"), Value(std::int32_t{2}));
    EXPECT_EQ(rows->Field("Name"), Value("Östen"));
    EXPECT_TRUE(database->Verify().empty());
}

}  // namespace
}  // namespace jet::test
