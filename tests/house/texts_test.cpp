// Where Swedish texts stand, which functions no product file calls, and what no file says.

#include "tests/house/source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using ::testing::IsEmpty;

/// Files whose literals are Swedish by their nature.
bool MayBeSwedish(const house::SourceFile& file) {
    if (file.FileName() == "texts.h") return true;
    for (const std::string_view path :
         {"app/furnish", "fundfile/schema.h", "fundfile/queries", "base/daynumber", "samples/",
          "bench/", "fuzz/", "help/", "jet/index/indexkey", "jet/table/textcodec",
          "platform/qtdialogs", "platform/dialogs"}) {
        if (file.In(path)) return true;
    }
    return false;
}

bool HasSwedishLetter(const std::string& text) {
    for (const char* letter : {"å", "ä", "ö", "Å", "Ä", "Ö"}) {
        if (text.find(letter) != std::string::npos) return true;
    }
    return false;
}

std::vector<std::string> Matches(const std::vector<house::SourceFile>& files,
                                 std::string house::SourceFile::*part, const std::regex& pattern,
                                 std::string_view why) {
    std::vector<std::string> findings;
    for (const auto& file : files) {
        const std::string& text = file.*part;
        for (std::sregex_iterator at(text.begin(), text.end(), pattern), end; at != end; ++at) {
            findings.push_back(house::Finding(file, static_cast<std::size_t>(at->position()),
                                              at->str() + ": " + std::string(why)));
        }
    }
    return findings;
}

TEST(HouseTexts, AreSwedishInTheirOwnFilesOnly) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        if (MayBeSwedish(file)) continue;
        for (const auto& literal : file.literals) {
            if (!HasSwedishLetter(literal.text)) continue;
            findings.push_back(file.path + ":" + std::to_string(literal.line) + ": \"" +
                               literal.text + "\"");
        }
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseTexts, AreNotTranslated) {
    static const std::regex translated(R"(\b(tr|QT_TR_NOOP|translate)\s*\()");
    std::vector<house::SourceFile> files = house::ProductFiles();
    // The toolkit's own texts are English until they are put into that one language.
    std::erase_if(files, [](const auto& file) { return file.In("platform/swedishtexts"); });
    EXPECT_THAT(Matches(files, &house::SourceFile::code, translated, "there is one language"),
                IsEmpty());
}

TEST(HouseNumbers, AreReadAndWrittenByTheNumberFilesOnly) {
    static const std::regex banned(
        R"(\b(strto(d|f|ld|l|ul|ll|ull)|sto(d|f|ld|i|l|ul|ll|ull)|ato(f|i|l|ll)|v?s?n?f?printf|v?f?s?scanf|)"
        R"(std::to_string|std::format|to_wstring|QLocale|QString::number|QString::asprintf|toDouble|toFloat|setNum|)"
        R"(setprecision)\b)");
    EXPECT_THAT(Matches(house::ProductFiles(), &house::SourceFile::code, banned,
                        "follows the locale or double precision"),
                IsEmpty());
}

TEST(HouseNumbers, AreParsedByHandNowhereElse) {
    std::vector<house::SourceFile> files;
    for (auto& file : house::ProductFiles()) {
        // The engine and its tools stand alone and read the numbers of their own language.
        const bool own = file.path == "base/number.cpp" || file.In("jet/") || file.In("jettools/");
        if (!own) files.push_back(std::move(file));
    }
    static const std::regex banned(R"(\b(std::)?(from_chars|to_chars)\b)");
    EXPECT_THAT(Matches(files, &house::SourceFile::code, banned, "use base/number"), IsEmpty());
}

TEST(HouseComments, HoldNoPlansForLater) {
    static const std::regex banned(R"(\b(TO)(DO)\b|\b(FIX)(ME)\b|\bX(XX)\b|\bHA(CK)\b)");
    EXPECT_THAT(
        Matches(house::SourceFiles(), &house::SourceFile::comments, banned, "finish it instead"),
        IsEmpty());
}

TEST(HouseComments, GiveTheirReasonThemselves) {
    static const std::regex banned(R"(\bPart [1-9]\b|\b[Ii]ssue #?\d|\(#\d+\)|\b[Ss]ection \d)");
    EXPECT_THAT(Matches(house::AllTexts(), &house::SourceFile::text, banned,
                        "say the reason, not where it is told"),
                IsEmpty());
}

TEST(HouseFiles, NameNoPlaceOfOneMachine) {
    static const std::regex banned(R"((^|[^A-Za-z0-9_.$~{}])/(home|work|Users|root)/)");
    EXPECT_THAT(
        Matches(house::AllTexts(), &house::SourceFile::text, banned, "a path of one machine"),
        IsEmpty());
}

TEST(HouseCode, HasNoHooksForTests) {
    static const std::regex banned(
        R"(\bfriend\s+class\s+\w*Test\b|\bFRIEND_TEST\b|#\s*if(def)?\s+\w*TEST\w*)");
    EXPECT_THAT(Matches(house::ProductFiles(), &house::SourceFile::code, banned,
                        "a test is a user like any other"),
                IsEmpty());
}

TEST(HouseCode, ThrowsErrorOnly) {
    static const std::regex banned(R"(\bthrow\s+(?!Error\b|jet::|;)\w[\w:]*)");
    EXPECT_THAT(Matches(house::ProductFiles(), &house::SourceFile::code, banned, "throw Error"),
                IsEmpty());
}

}  // namespace
