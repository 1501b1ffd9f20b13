// No file and no function is longer than a person can hold in mind.

#include "tests/house/source.h"

#include <algorithm>
#include <cstddef>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::ptrdiff_t kMaxFileLines = 400;
constexpr std::ptrdiff_t kMaxFunctionLines = 45;  ///< between its braces

std::ptrdiff_t LinesIn(std::string_view text) {
    return std::count(text.begin(), text.end(), '\n');
}

/// The place after the brace that closes the one at `open`.
std::size_t AfterBlock(std::string_view code, std::size_t open) {
    int depth = 0;
    for (std::size_t at = open; at < code.size(); ++at) {
        if (code[at] == '{') ++depth;
        if (code[at] == '}' && --depth == 0) return at + 1;
    }
    return code.size();
}

/// What stands before a brace says what it opens.
enum class Block { Scope, Function, Other };

Block BlockAfter(std::string_view before) {
    const std::size_t end = before.find_last_not_of(" \n");
    // A body after the braces of a member that it begins with.
    if (end == std::string_view::npos) return Block::Function;
    const auto has = [&](std::string_view word) {
        return before.find(word) != std::string_view::npos;
    };
    const char last = before[end];
    if (has("(")) return last == '(' || last == ',' || last == '=' ? Block::Other : Block::Function;
    for (const std::string_view word : {"namespace", "class ", "struct ", "union ", "extern "}) {
        if (has(word) && !has("enum ")) return Block::Scope;
    }
    return Block::Other;
}

/// Those that are too long, by where they begin.
std::vector<std::string> LongFunctions(const house::SourceFile& file) {
    std::vector<std::string> findings;
    const std::string& code = file.code;
    std::size_t begin = 0;
    for (std::size_t at = 0; at < code.size(); ++at) {
        if (code[at] == ';' || code[at] == '}') begin = at + 1;
        if (code[at] != '{') continue;
        const Block block = BlockAfter(std::string_view(code).substr(begin, at - begin));
        begin = at + 1;
        if (block == Block::Scope) continue;
        const std::size_t end = AfterBlock(code, at);
        const auto lines = LinesIn(std::string_view(code).substr(at, end - at)) - 1;
        if (block == Block::Function && lines > kMaxFunctionLines) {
            findings.push_back(house::Finding(file, at, std::to_string(lines) + " lines"));
        }
        at = end - 1;
        begin = end;
    }
    return findings;
}

TEST(HouseSizes, OfFilesAreLimited) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        if (file.In("fuzz/") || LinesIn(file.text) <= kMaxFileLines) continue;
        findings.push_back(file.path + ": " + std::to_string(LinesIn(file.text)) + " lines");
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseSizes, OfFunctionsAreLimited) {
    std::vector<std::string> findings;
    for (const auto& file : house::ProductFiles()) {
        for (const std::string& finding : LongFunctions(file)) findings.push_back(finding);
    }
    EXPECT_THAT(findings, IsEmpty());
}

TEST(HouseSizes, AreFoundInClassesAndOutsideOfThem) {
    std::string body;
    for (std::ptrdiff_t line = 0; line <= kMaxFunctionLines; ++line) body += "    f(1);\n";
    const auto file =
        house::Scan("app/x.cpp", "namespace a {\nint b() {\n" + body + "}\nconst int c[] = {\n" +
                                     "};\nclass D {\n    void e() const {\n" + body +
                                     "    }\n};\nvoid g() {\n    f(1);\n}\n}\n");
    EXPECT_THAT(LongFunctions(file),
                ElementsAre("app/x.cpp:2: 46 lines", "app/x.cpp:53: 46 lines"));
}

}  // namespace
