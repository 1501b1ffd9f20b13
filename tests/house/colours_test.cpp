// Every colour of the windows has a name, in one header.

#include "tests/house/source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <regex>
#include <string>
#include <vector>

namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

/// The grid picture has colours of its own, the rule for curves has the diagram's background.
bool MayNameColours(const house::SourceFile& file) {
    return file.path == "widgets/colours.h" || file.In("samples/") || file.In("packaging/") ||
           file.In("bench/") || file.path == "fundfile/rules/curvecolour.h";
}

/// Cheaper than a search for all patterns.
bool NamesAColour(const house::SourceFile& file) {
    for (const char* word : {"QColor", "Colour ", "Colour{", "fromRgb", "qRgb"}) {
        if (file.text.find(word) != std::string::npos) return true;
    }
    return false;
}

std::vector<std::string> Unnamed(const house::SourceFile& file) {
    static const std::regex inCode(
        R"(\bfromRgb\s*\(|\bqRgb\s*\(|\bQColor\s*\w*\s*[({]\s*\d+\s*,\s*\d+\s*,\s*\d+\s*[)}]|)"
        R"(\bColour\s*\w*\s*\{\s*\d)");
    static const std::regex inText("#[0-9A-Fa-f]{6}\\b");
    std::vector<std::string> findings;
    if (!NamesAColour(file)) return findings;
    for (std::sregex_iterator at(file.code.begin(), file.code.end(), inCode), end; at != end;
         ++at) {
        findings.push_back(
            house::Finding(file, static_cast<std::size_t>(at->position()), at->str()));
    }
    for (const auto& literal : file.literals) {
        if (literal.text.find('#') == std::string::npos) continue;
        if (std::regex_search(literal.text, inText)) {
            findings.push_back(file.path + ":" + std::to_string(literal.line));
        }
    }
    return findings;
}

TEST(HouseColours, HaveTheirNamesInOneHeader) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        if (MayNameColours(file)) continue;
        for (const std::string& finding : Unnamed(file)) findings.push_back(finding);
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseColours, AreFoundWithoutAName) {
    const auto file = house::Scan("app/x.cpp",
                                  "constexpr Colour kPen{1, 2, 3};\n"
                                  "a = QColor(211, 240, 254);\n"
                                  "b = QColor::fromRgb(0xFF);\n"
                                  "c = \"QMenu { color: #1B2B36; }\";\n"
                                  "d = ToQColor(colours::kPanel);\n"
                                  "e = \"QMenu { color: $text; }\";\n");
    EXPECT_THAT(Unnamed(file), SizeIs(4));
}

}  // namespace
