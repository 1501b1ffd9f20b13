#include "app/rules/fundline.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

const struct {
    std::int32_t kontoId;
    std::string_view line, mark;
} kLines[] = {
    {1, " 1. Räntefond", " 1."},     {9, " 9. Räntefond", " 9."},
    {10, "10. Räntefond", "10."},    {99, "99. Räntefond", "99."},
    {123, "123. Räntefond", "123."}, {45678, "45678. Räntefond", "45678."},
};

TEST(FundLine, LinesUpOneAndTwoDigits) {
    for (const auto& row : kLines) EXPECT_EQ(FundLine(row.kontoId, "Räntefond"), row.line);
}

TEST(FundLine, GivesItsNumberBack) {
    for (const auto& row : kLines) EXPECT_EQ(NumberOfLine(row.line), row.kontoId);
    EXPECT_EQ(NumberOfLine("12. A. B. Fond 7. serien"), 12);
}

TEST(FundLine, WithoutANumberIsATypeMismatch) {
    for (const std::string_view line : {"", "Fond", ". Fond"}) {
        Skipping skip;
        skip([&] { NumberOfLine(line); });
        EXPECT_EQ(skip.Number(), ErrorNumber::TypeMismatch) << line;
    }
}

TEST(CurveMark, EndsWithItsPoint) {
    for (const auto& row : kLines) EXPECT_EQ(CurveMark(row.line), row.mark);
}

TEST(CurveMark, IsAddedOnce) {
    std::string marks = AddCurveMark("", " 1. A");
    marks = AddCurveMark(marks, "12. B");
    marks = AddCurveMark(marks, " 1. A");
    EXPECT_EQ(marks, " 1.12.");
}

TEST(CurveMark, IsNotTakenForThePartOfAnother) {
    EXPECT_EQ(AddCurveMark("112.", "12. B"), "112.12.");
    EXPECT_EQ(AddCurveMark("12.", "112. B"), "12.112.");
    EXPECT_EQ(AddCurveMark("11.", " 1. B"), "11. 1.");
}

TEST(CurveMarks, SplitIntoCurvesInTheOrderChosen) {
    EXPECT_EQ(CurvesOfMarks("12. 3."), (std::vector<std::int32_t>{12, 3}));
    EXPECT_EQ(CurvesOfMarks(" 1."), (std::vector<std::int32_t>{1}));
    EXPECT_EQ(CurvesOfMarks("1..2"), (std::vector<std::int32_t>{1, 2}));
    EXPECT_TRUE(CurvesOfMarks("").empty());
    EXPECT_TRUE(CurvesOfMarks(" .").empty());
}

}  // namespace
