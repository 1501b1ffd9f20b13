// What the program says is explained in the help, word for word.

#include "tests/house/source.h"

#include <algorithm>
#include <cstddef>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using ::testing::IsEmpty;

/// Where the texts stand that are told in boxes and beside what is typed.
constexpr std::string_view kFiles[] = {"app/texts.h",       "entry/texts.h",      "diagram/texts.h",
                                       "fundfile/texts.h",  "reports/texts.h",    "tools/texts.h",
                                       "app/rules/texts.h", "entry/rules/texts.h"};

/// No messages: what is not asked or told but names a thing, beside those whose names say so.
const std::set<std::string> kNamesOfThings = {
    // Parts of the list of what is not stored, and of the status bar
    "HoldingOf", "NamelessHolding", "PointOf", "NamelessPoint", "NoticeOf", "DayPriceFor", "Undone",
    "Redone", "SummaryFollows", "CopySaved", "StartsWith", "Restored", "FormerState", "Opening",
    "PdfSaved", "DropOpens",
    // Titles, captions and readings
    "FundFiles", "FilesToDelete", "About", "AboutEngine", "AboutFormat97", "AboutFormat2000",
    "AboutFolder", "ListHolds", "ToHoldings", "LastUpdate", "WorkingWith", "NewPriceOf",
    "AlsoToday", "NoCurves", "PrintFailedAccountLog",
    // What the picture and the list say where they are empty or chosen from: that is the help
    "ChooseColourInfo", "ChooseCurvesInfo", "NoCurvesChosen", "NoHoldings", "NoPointsOfHolding",
    "NoPoints",
    // Names of changes to take back
    "DeletionOf", "ColourOf", "CurveChoice", "DeletedPointOfDay",
    // What the keys do with what was pasted
    "NoChange", "ImportFiles", "OneImported", "MoreImported", "ExportFiles", "ImportOf",
    "ImportFrom", "IsThereAlready", "NothingOnTheLine", "OneThere", "MoreThere", "OneWithout",
    "MoreWithout", "NothingToStore", "EscLeaves", "NotStoredBecause", "EnterStores", "OneRefused",
    "MoreRefused", "EscGivesUp",
    // What is said of pictures and buttons to who does not see them
    "ByWeeks", "ByMonths", "DaysMissing", "CurveColourIs"};

bool IsMessage(const std::string& name) {
    return !name.ends_with("Log") && !name.ends_with("Entry") && !name.ends_with("Title") &&
           !kNamesOfThings.contains(name);
}

std::string Replaced(const std::string& text, const char* what, const char* with) {
    return std::regex_replace(text, std::regex(what), with);
}

/// One line, without what stands around it.
std::string OneLine(const std::string& text) {
    std::string line;
    for (const char letter : text) {
        const bool blank = letter == ' ' || letter == '\n' || letter == '\r' || letter == '\t';
        if (!blank) line += letter;
        if (blank && !line.empty() && line.back() != ' ') line += ' ';
    }
    constexpr std::string_view kAround = " :.(),";
    const auto first = line.find_first_not_of(kAround);
    if (first == std::string::npos) return "";
    return line.substr(first, line.find_last_not_of(kAround) - first + 1);
}

/// A line's end is a blank; the other marks are nothing.
std::string WithoutMarks(const std::string& page) {
    std::string text;
    for (std::size_t at = 0; at < page.size(); ++at) {
        if (page[at] != '<') {
            text += page[at];
            continue;
        }
        if (page.compare(at, 4, "<br>") == 0) text += ' ';
        at = std::min(page.find('>', at), page.size());
    }
    return text;
}

std::string HelpText() {
    std::string all;
    for (const auto& file : house::AllTexts()) {
        if (file.In("help/pages/") && file.path.ends_with(".html")) {
            all += WithoutMarks(file.text) + ' ';
        }
    }
    all = Replaced(Replaced(Replaced(all, "&lt;", "<"), "&gt;", ">"), "&amp;", "&");
    return OneLine(all);
}

/// The texts of a file with the names of their constants, "" inside a function.
std::vector<std::pair<std::string, std::string>> Texts(const house::SourceFile& file) {
    static const std::regex kText(
        R"((?:string_view (\w+) =|return|with\(|text \+)\s*((?:"(?:[^"\\]|\\.)*"\s*)+))");
    static const std::regex kPiece(R"re("((?:[^"\\]|\\.)*)")re");
    std::vector<std::pair<std::string, std::string>> texts;
    for (std::sregex_iterator at(file.text.begin(), file.text.end(), kText), end; at != end; ++at) {
        const std::string pieces = (*at)[2];
        std::string text;
        for (std::sregex_iterator piece(pieces.begin(), pieces.end(), kPiece); piece != end;
             ++piece) {
            text += (*piece)[1];
        }
        text = Replaced(Replaced(text, R"(\\r\\n|\\n)", " "), R"(\\")", "\"");
        texts.emplace_back((*at)[1], OneLine(text));
    }
    return texts;
}

TEST(HouseMessages, AreExplainedInTheHelp) {
    const std::string help = HelpText();
    std::vector<std::string> missing;
    for (const auto& file : house::ProductFiles()) {
        if (std::find(std::begin(kFiles), std::end(kFiles), file.path) == std::end(kFiles))
            continue;
        for (const auto& [name, text] : Texts(file)) {
            const bool words = text.find(' ') != std::string::npos;
            if (!words || !IsMessage(name) || help.find(text) != std::string::npos) continue;
            missing.push_back(file.path + " " + name + ": " + text);
        }
    }
    EXPECT_THAT(missing, IsEmpty());
}

TEST(HouseMessages, AreFoundInTheirFiles) {
    std::ptrdiff_t constants = 0, found = 0;
    // Others are names for a text that stands elsewhere.
    static const std::regex kConstant("constexpr std::string_view \\w+ =\\s*\"");
    for (const auto& file : house::ProductFiles()) {
        if (std::find(std::begin(kFiles), std::end(kFiles), file.path) == std::end(kFiles))
            continue;
        const auto texts = Texts(file);
        found += std::count_if(texts.begin(), texts.end(),
                               [](const auto& text) { return !text.first.empty(); });
        constants +=
            std::distance(std::sregex_iterator(file.text.begin(), file.text.end(), kConstant), {});
    }
    EXPECT_GT(constants, 0);
    EXPECT_EQ(found, constants) << "texts that this test does not read";
}

TEST(HouseMessages, SpeakOneSwedish) {
    std::vector<std::string> findings;
    for (const auto& file : house::AllTexts()) {
        if (!file.In("help/pages/")) continue;
        // Given texts that are quoted stand in tables and in bold.
        const std::string own =
            Replaced(Replaced(file.text, R"(<table class="message"[\s\S]*?</table>)", ""),
                     "<b>[^<]*</b>", "");
        for (const char* word : {"\\bskall\\b", "\\bmaila?\\b", "\\bfeature\\b", "\\bdefault\\b"}) {
            if (std::regex_search(own, std::regex(word, std::regex::icase))) {
                findings.push_back(file.path + ": " + word);
            }
        }
    }
    EXPECT_THAT(findings, IsEmpty());
}

}  // namespace
