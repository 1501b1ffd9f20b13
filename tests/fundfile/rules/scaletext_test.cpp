#include "fundfile/rules/scaletext.h"

#include <cstdint>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string_view>
#include <vector>

namespace {

using Curves = std::vector<std::int32_t>;

TEST(ScaleText, IsReadFromItsEnd) {
    const struct {
        std::string_view column;
        ScaleText text;
    } rows[] = {
        {"15/-10", {"", {}, {15, -10}}},
        {"45/-30", {"", {}, {45, -30}}},
        {"./15/-10", {".", {}, {15, -10}}},
        {"5.9./45/-30", {"5.9.", {5, 9}, {45, -30}}},
        {"1.2.5/45/-30", {"1.2.5", {1, 2, 5}, {45, -30}}},
        {"/30/-20", {"", {}, {30, -20}}},
        {" 1. 2.12./30/-20", {" 1. 2.12.", {1, 2, 12}, {30, -20}}},
        {"123./30/-20", {"123.", {123}, {30, -20}}},
        {"1.2./15/-10/60/-40", {"1.2.", {1, 2}, {60, -40}}},
        {" 60 / -40 ", {"", {}, {60, -40}}},
    };
    for (const auto& row : rows) EXPECT_EQ(ParseScaleText(row.column), row.text) << row.column;
}

TEST(ScaleText, LeavesOutWhatIsNoCurve) {
    EXPECT_EQ(ParseScaleText("1..2.x.3./15/-10").curves, (Curves{1, 2, 3}));
    EXPECT_EQ(ParseScaleText("99999999999./15/-10").curves, Curves{});
}

TEST(ScaleText, ThatCannotBeReadIsTheDefault) {
    for (const std::string_view column :
         {"", " ", ".", "15", "x/y", "15/", "/-10", "/", "//", "15/x", "0/0", "15/10", "-15/-10",
          "15/0", "99999999999/-10", "1.2./x/-10"}) {
        EXPECT_EQ(ParseScaleText(column).scale, ScaleRange{}) << column;
    }
    EXPECT_EQ(ScaleColumn(ScaleRange{}), kDefaultScaleText);
}

TEST(ScaleText, OutsideTheProportionIsReadAsTheScaleThatTakesItIn) {
    EXPECT_EQ(ParseScaleText("15/-4").scale, (ScaleRange{15, -10}));
    EXPECT_EQ(ParseScaleText("1/-1").scale, (ScaleRange{15, -10}));
    EXPECT_EQ(ParseScaleText("1.2./45/-40").scale, (ScaleRange{60, -40}));
    EXPECT_EQ(ParseScaleText("2000000000/-5").scale, (ScaleRange{15, -10}));
}

TEST(ScaleText, IsWrittenTopFirst) {
    EXPECT_EQ(ScaleColumn({45, -30}), "45/-30");
    EXPECT_EQ(FirstScaleColumn(Curves{5, 9}, {45, -30}), "5.9./45/-30");
    EXPECT_EQ(FirstScaleColumn(Curves{}, {15, -10}), "./15/-10");
}

TEST(ScaleText, OfTheFirstRowKeepsItsListWhenTheScaleChanges) {
    EXPECT_EQ(WithScale("./15/-10", {45, -30}), "./45/-30");
    EXPECT_EQ(WithScale("1.2.5/15/-10", {45, -30}), "1.2.5/45/-30");
    EXPECT_EQ(WithScale("15/-10", {45, -30}), "./45/-30");
    EXPECT_EQ(WithScale("", {45, -30}), "./45/-30");
}

TEST(ScaleText, OfTheFirstRowKeepsItsScaleWhenTheListChanges) {
    EXPECT_EQ(WithCurves("./45/-30", Curves{3, 12}), "3.12./45/-30");
    EXPECT_EQ(WithCurves("1.2./45/-30", Curves{}), "./45/-30");
    EXPECT_EQ(WithCurves("45/-30", Curves{1}), "1./45/-30");
    EXPECT_EQ(WithCurves("", Curves{1}), "1./15/-10");
}

TEST(ScaleText, FollowsItsRowToTheFrontAndBack) {
    EXPECT_EQ(AsFirstRow("45/-30"), "./45/-30");
    EXPECT_EQ(AsFirstRow("1.2./45/-30"), "1.2./45/-30");
    EXPECT_EQ(AsFirstRow(" "), "./15/-10");
    EXPECT_EQ(AsFirstRow("/45/-30"), "./45/-30");
    EXPECT_EQ(AsOtherRow("1.2./45/-30"), "45/-30");
    EXPECT_EQ(AsOtherRow("./15/-10"), "15/-10");
    EXPECT_EQ(AsOtherRow("45/-30"), "45/-30");
    EXPECT_EQ(AsOtherRow(""), "15/-10");
}

}  // namespace
