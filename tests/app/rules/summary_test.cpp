#include "app/rules/summary.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>

namespace {

TEST(Summary, ChangeIsRoundedToTheEvenNeighbour) {
    const struct {
        float start, next;
        std::int32_t percent;
    } rows[] = {
        {100, 105, 5},  {200, 201, 0},    {200, 203, 2},     {200, 205, 2},
        {100, 100, 0},  {100, 50, -50},   {100, 1, -99},     {200, 199, 0},
        {200, 197, -2}, {12.5F, 25, 100}, {100, 1100, 1000},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ChangeSinceStart(row.start, row.next), row.percent)
            << row.start << " " << row.next;
    }
}

TEST(Summary, ChangeIsReckonedInDoublePrecision) {
    // The singles nearest to these prices are 59.4999981 % and 108.5000038 % apart.
    EXPECT_EQ(ChangeSinceStart(10.0F, 15.95F), 59);
    EXPECT_EQ(ChangeSinceStart(10.0F, 20.85F), 109);
}

TEST(Summary, ChangeHasNoAnswerForSome) {
    Skipping skip;
    skip([] { ChangeSinceStart(0, 100); });
    EXPECT_EQ(skip.Number(), ErrorNumber::DivisionByZero);
    skip([] { ChangeSinceStart(1e-30F, 100); });
    EXPECT_EQ(skip.Number(), ErrorNumber::Overflow);
}

TEST(Summary, ChangeTextHasABlankBeforeTheSign) {
    EXPECT_EQ(ChangeText(5), "5 %");
    EXPECT_EQ(ChangeText(-50), "-50 %");
}

TEST(Summary, CurrentValueIsInWholeKronor) {
    EXPECT_EQ(CurrentValueText("751 062", "2010,0489", 33.64F), "67618");
    EXPECT_EQ(CurrentValueText("751 062", "10,0000", 12.25F), "122");
    EXPECT_EQ(CurrentValueText("751 062", "10,0000", 12.35F), "124");
    EXPECT_EQ(CurrentValueText("751 062", "", 12.35F), "0");
}

TEST(Summary, CurrentValueOfASummaryRowIsADash) {
    EXPECT_EQ(CurrentValueText("999 999", "1,0000", 12.35F), "-");
}

TEST(Summary, CurrentValueOfUnreadableSharesIsATypeMismatch) {
    Skipping skip;
    skip([] { CurrentValueText("751 062", "tio", 1); });
    EXPECT_EQ(skip.Number(), ErrorNumber::TypeMismatch);
}

TEST(Summary, SharesComeFromTheSecondColumnWhereThereIsOne) {
    EXPECT_EQ(SharesCaption("2010,0489", "1976,0607"), "2010,0489");
    EXPECT_EQ(SharesCaption("", "1976,0607"), "1976,0607");
}

TEST(Summary, CaptionBeginsWithTwoBlanks) {
    EXPECT_EQ(UpdatedCaption("Räntefond", 46077),
              "  Kvarnbo  Räntefond Senaste uppdatering    Tisdag 24 Februari 2026");
}

}  // namespace
