// The window has one writer: what it shows is decided by the state alone and carried out by Panels.

#include "tests/house/source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// Panels writes them, and the furnish files say how they come into the world.
bool MayWrite(const house::SourceFile& file) {
    return file.path.starts_with("app/panels.") || file.path.starts_with("app/furnish");
}

/// The files that know the window and its controls.
bool KnowsTheWindow(const house::SourceFile& file) {
    if (file.In("tests/") || file.path.find("/rules/") != std::string::npos) return false;
    for (const std::string_view folder :
         {"app/", "main/", "entry/", "diagram/", "reports/", "tools/", "fundfile/"}) {
        if (file.In(folder)) return true;
    }
    return false;
}

/// Panels and controls that the events of more than one concern change.
constexpr const char* kShared =
    "(?:panRubrik|lblRubrik|lblIngenFil|panControl|panDiagram|fraStartData|panListFonder|panTotal|"
    "panPlottData|"
    "panBasData|lblRecCount|"
    "imgColor|imgGrafNr|cmdFondList|cmdPPMData|cmdNyAndel|cmdNyOk|fraNyAndel|txtGrid|"
    "lblGrafNr|lblPlottInfo|lblTotal|lblColorNr|lblFraData|lblFraHeading|lblFraHint|lblForhand|"
    "lblXCord|"
    "lblYCord|lblPanDatum|shaPlottColor|mnuArkiv|mnuShow|mnuPrint|mnuVeckor|mnuMonth|txtValue|"
    "panImport|lblImport|panKurser|lblKlara|lblKursBesked|panOversikt|panKort|"
    "lstFonder|lstLegend|picDiagram)";

std::vector<std::string> Matches(const house::SourceFile& file, const std::string& pattern,
                                 std::string_view why) {
    const std::regex expression(pattern);
    std::vector<std::string> findings;
    const auto begin = std::sregex_iterator(file.code.begin(), file.code.end(), expression);
    for (auto match = begin; match != std::sregex_iterator(); ++match) {
        findings.push_back(house::Finding(file, static_cast<std::size_t>(match->position()), why));
    }
    return findings;
}

void Append(std::vector<std::string>& all, std::vector<std::string> more) {
    all.insert(all.end(), more.begin(), more.end());
}

/// Shows, hides, enables or focuses one of them, or writes its caption, tag or colour. The text of
/// a text and the boxes of a notice are the user's, and their own controllers'.
std::vector<std::string> SecondWriters(const house::SourceFile& file) {
    const std::string shared = kShared;
    const std::string element = R"((?:\[[^\]]*\])?)";
    std::vector<std::string> findings;
    Append(findings, Matches(file,
                             R"(\b)" + shared + element +
                                 R"(\s*->\s*(?:show|hide|raise|setVisible|setHidden|setEnabled|)"
                                 R"(setDisabled|setFocus|setTitle|setText|SetFillColour|)"
                                 R"(SetPlaceholder|MarkDay|Light|SetEntries)\()",
                             "only Panels shows it"));
    Append(findings,
           Matches(file,
                   R"(\bSetCaption\(\s*(?:&window\b|[\w.>-]*\b(?!txtValue\b))" + shared + R"(\b))",
                   "only Panels writes its caption"));
    Append(findings, Matches(file, R"(\bSetTag\()", "only Panels writes tags"));
    Append(findings, Matches(file, R"(\bSetTextColour\()", "only Panels colours the list"));
    Append(findings, Matches(file, R"(\bstaBar\s*->\s*Set)", "only Panels writes the status bar"));
    return findings;
}

/// What is going on is asked of the state. What the user typed or chose may be read.
std::vector<std::string> Questions(const house::SourceFile& file) {
    std::vector<std::string> findings;
    Append(findings, Matches(file, R"((?:->|\.)\s*(?:isVisible|isHidden|isEnabled)\()",
                             "the state says what is shown"));
    Append(findings, Matches(file, R"(\bCaption\(\s*&?\w*\.?(?:lbl|lb|pan|cmd|mnu|fra|img)\w*)",
                             "the state says what is shown"));
    Append(findings, Matches(file, R"([^:\w]Tag\()", "no tag is asked"));
    return findings;
}

TEST(HouseOneWriter, ShowsWhatTheWindowShows) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        if (KnowsTheWindow(file) && !MayWrite(file) && !file.path.starts_with("app/look.")) {
            Append(findings, SecondWriters(file));
        }
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseOneWriter, LeavesNothingToReadBack) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        if (KnowsTheWindow(file) && !MayWrite(file)) Append(findings, Questions(file));
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseOneWriter, FindsASecondWriterAndAQuestion) {
    const auto file = house::Scan("app/x.cpp",
                                  "window.panTotal->show();\n"
                                  "window.lblFraData[0] -> setText(a);\n"
                                  "SetCaption(window.panListFonder, b);\n"
                                  "SetCaption(&window, b);\n"
                                  "SetCaption(window.txtValue, b);\n"
                                  "SetTag(window.imgColor, b);\n"
                                  "window.staBar->SetText(2, b);\n"
                                  "window.txtValue->selectAll();\n");
    EXPECT_THAT(SecondWriters(file), ElementsAre("app/x.cpp:1: only Panels shows it",
                                                 "app/x.cpp:2: only Panels shows it",
                                                 "app/x.cpp:3: only Panels writes its caption",
                                                 "app/x.cpp:4: only Panels writes its caption",
                                                 "app/x.cpp:6: only Panels writes tags",
                                                 "app/x.cpp:7: only Panels writes the status bar"));
    const auto asking = house::Scan("app/y.cpp",
                                    "if (window.panTotal->isVisible()) a();\n"
                                    "Caption(window.lblGrafNr);\n"
                                    "Caption(window.txtValue);\n"
                                    "b = Tag(window.imgColor);\n");
    EXPECT_THAT(Questions(asking), ElementsAre("app/y.cpp:1: the state says what is shown",
                                               "app/y.cpp:2: the state says what is shown",
                                               "app/y.cpp:4: no tag is asked"));
}

}  // namespace
