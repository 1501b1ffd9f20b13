#include "tools/rules/percent.h"

#include "base/error.h"

#include <gtest/gtest.h>
#include <string_view>

namespace {

TEST(PercentAnswer, IsAWholeNumberTwoBlanksAndTheSign) {
    const struct {
        std::string_view start, next, answer;
    } rows[] = {
        {"200", "300", "50  %"}, {"200", "250", "25  %"},    {"200", "150", "-25  %"},
        {"3", "4", "33  %"},     {"8", "9", "12  %"},        {"100", "100", "0  %"},
        {"1,5", "3", "100  %"},  {"200,00", "0", "-100  %"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PercentAnswer(row.start, row.next), row.answer) << row.start;
    }
}

TEST(PercentAnswer, HasNoAnswerForSome) {
    const struct {
        std::string_view start, next;
        ErrorNumber number;
    } rows[] = {
        {"0", "5", kDivisionByZero},
        {"0,00", "0", kDivisionByZero},
        {"x", "5", ErrorNumber::TypeMismatch},
        {"5", "1,2,3", ErrorNumber::TypeMismatch},
        {"0,00001", "99999999", ErrorNumber::Overflow},
    };
    for (const auto& row : rows) {
        Skipping skip;
        skip([&] { PercentAnswer(row.start, row.next); });
        EXPECT_EQ(skip.Number(), row.number) << row.start;
    }
}

TEST(WithTwoDecimals, ReformatsANumberAndLeavesTheRest) {
    EXPECT_EQ(WithTwoDecimals("200"), "200,00");
    EXPECT_EQ(WithTwoDecimals("12.345"), "12,35");
    EXPECT_EQ(WithTwoDecimals("1,2,3"), "1,2,3");
    EXPECT_EQ(WithTwoDecimals(""), "");
}

}  // namespace
