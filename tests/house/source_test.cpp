// The reader of sources must itself be right, or the tests on it find nothing.

#include "tests/house/source.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

using ::testing::ElementsAre;

std::vector<std::string> TextsOf(const house::SourceFile& file) {
    std::vector<std::string> texts;
    for (const auto& literal : file.literals) texts.push_back(literal.text);
    return texts;
}

TEST(HouseSource, KeepsLiteralsApartFromCode) {
    const auto file = house::Scan("a.cpp", "f(\"stof(\", 'x'); // stod(\ng();\n");
    EXPECT_THAT(TextsOf(file), ElementsAre("stof("));
    EXPECT_EQ(file.code.find("stof"), std::string::npos);
    EXPECT_EQ(file.code.find("stod"), std::string::npos);
    EXPECT_NE(file.comments.find("stod"), std::string::npos);
    EXPECT_NE(file.code.find("g();"), std::string::npos);
}

TEST(HouseSource, KnowsEscapesRawTextsAndDigitSeparators) {
    const auto file =
        house::Scan("a.cpp", "a(\"x\\\"y\"); b(R\"q(raw \"it\")q\"); c(1'000, '\"'); d(\"z\");");
    EXPECT_THAT(TextsOf(file), ElementsAre("x\\\"y", "raw \"it\"", "z"));
}

TEST(HouseSource, KnowsCharactersWithAPrefix) {
    const auto file = house::Scan("a.cpp", "f(u'[', \"a\"); g(0xF'F, u'{', U'\"', \"b\");");
    EXPECT_THAT(TextsOf(file), ElementsAre("a", "b"));
    EXPECT_EQ(file.code.find('{'), std::string::npos);
}

TEST(HouseSource, KnowsBlockComments) {
    const auto file = house::Scan("a.cpp", "/* \"no\" */ f(\"yes\"); /* open");
    EXPECT_THAT(TextsOf(file), ElementsAre("yes"));
}

TEST(HouseSource, FindsIncludesOutsideComments) {
    const auto file =
        house::Scan("a.cpp", "#include \"a/b.h\"\n// #include <no>\n#include <vector>\n");
    EXPECT_THAT(file.includes, ElementsAre("\"a/b.h\"", "<vector>"));
}

TEST(HouseSource, CountsLines) {
    const auto file = house::Scan("a.cpp", "\n\n  \"x\"\n");
    ASSERT_EQ(file.literals.size(), 1U);
    EXPECT_EQ(file.literals[0].line, 3);
    EXPECT_EQ(house::Finding(file, 4, "why"), "a.cpp:3: why");
}

TEST(HouseSource, FindsTheProgramsFiles) {
    const auto files = house::ProductFiles();
    EXPECT_GT(files.size(), 50U);
    EXPECT_TRUE(std::any_of(files.begin(), files.end(),
                            [](const auto& f) { return f.path == "base/number.cpp"; }));
    EXPECT_TRUE(
        std::none_of(files.begin(), files.end(), [](const auto& f) { return f.In("tests/"); }));
}

}  // namespace
