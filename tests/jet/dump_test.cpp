// What jetdump prints for files of other engines, against what other readers found in them.

#include "base/version.h"
#include "jet/storage/bytes.h"
#include "tests/jet/memoryfile.h"

namespace {

using jettest::fs::path;

/// The dump of this file shows the five bytes that windows-1252 leaves open as U+FFFD, which we
/// keep apart.
std::string WithOpenBytesReplaced(std::string text) {
    for (const std::string_view open :
         {"\xC2\x81", "\xC2\x8D", "\xC2\x8F", "\xC2\x90", "\xC2\x9D"}) {
        for (auto at = text.find(open); at != std::string::npos; at = text.find(open)) {
            text.replace(at, open.size(), "\xEF\xBF\xBD");
        }
    }
    return text;
}

std::string SortedLines(const std::string& text) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find('\n', at);
        lines.push_back(text.substr(at, end - at));
        at = end == std::string::npos ? text.size() : end + 1;
    }
    std::sort(lines.begin(), lines.end());
    std::string sorted;
    for (const std::string& line : lines) sorted += line + '\n';
    return sorted;
}

TEST(Dump, ShowsEverySampleFileAsItsOtherReadersDo) {
    for (const path& file : jet::test::SampleFiles()) {
        SCOPED_TRACE(file.string());
        path expected = file;
        expected.replace_extension(".jsonl");
        std::string shown = jet::test::Run({JETDUMP_PROGRAM, file.string()}).output;
        std::string wanted = jettest::ReadText(expected);
        if (file.stem() == "testIndexCodesV1997") {
            shown = SortedLines(WithOpenBytesReplaced(shown));
            wanted = SortedLines(wanted);
        }
        EXPECT_TRUE(shown == wanted);
    }
}

TEST(Tools, SayWhatTheyDoAndWhichVersionTheyAre) {
    const std::string version(Version());
    EXPECT_EQ(jet::test::Run({JETDUMP_PROGRAM, "--version"}).output, "jetdump " + version + "\n");
    EXPECT_EQ(jet::test::Run({JETCHECK_PROGRAM, "--version"}).output, "jetcheck " + version + "\n");
    for (const char* tool : {JETDUMP_PROGRAM, JETCHECK_PROGRAM}) {
        const jet::test::Outcome help = jet::test::Run({tool, "--help"});
        EXPECT_EQ(help.status, 0);
        EXPECT_TRUE(help.output.starts_with("usage: jet")) << help.output;
    }
}

TEST(Dump, OfAFileThatIsNoDatabaseSaysSoAndFails) {
    const jet::test::ScratchFolder folder;
    jettest::WriteText(folder / "a.mdb", "no database at all");
    const jet::test::Outcome outcome =
        jet::test::Run({JETDUMP_PROGRAM, (folder / "a.mdb").string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "");
}

}  // namespace
