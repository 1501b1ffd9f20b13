#include "fundfile/rules/savedvalues.h"

#include "base/number.h"

#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace {

HoldingRow Row() {
    HoldingRow row;
    row.bokfortDatum = 38772;
    row.fondandelar = 122.0051;
    row.kursKr = WidenSingle(268.62F);
    row.vardeKr = 32773.009366271974;
    row.sparadeVarden = "x";
    return row;
}

TEST(SavedValues, AreClosedByAPilcrowEach) {
    EXPECT_EQ(SavedValuesText(Row()), "2006-02-24¶122,0051¶268,62¶32773,009366271974¶");
}

TEST(SavedValues, OfMissingColumnsAreEmpty) {
    EXPECT_EQ(SavedValuesText(HoldingRow{}), "¶¶¶¶");
}

TEST(SavedValues, ReadBackAsTheyWereWritten) {
    const SavedValues expected{"2006-02-24", "122,0051", "268,62", "32773,009366271974"};
    EXPECT_EQ(ParseSavedValues(SavedValuesText(Row())), expected);
}

TEST(SavedValues, AreMissingInTheMarkerAndInAnythingShort) {
    for (const std::string_view column : {"x", "", " ", "X", "a¶b¶", "¶¶"}) {
        EXPECT_EQ(ParseSavedValues(column), std::nullopt) << column;
    }
}

TEST(SavedValues, MayMissTheirLastPilcrow) {
    EXPECT_EQ(ParseSavedValues("a¶b¶c¶d"), (SavedValues{"a", "b", "c", "d"}));
}

TEST(StartPrice, IsTheSavedOneIfThereIsOne) {
    HoldingRow row = Row();
    EXPECT_EQ(StartPriceOf(row), 268.62);
    row.sparadeVarden = "2005-01-03¶10¶99,5¶995¶";
    EXPECT_EQ(StartPriceOf(row), 99.5);
}

TEST(StartPrice, IsZeroWhenItIsMissingOrNoNumber) {
    HoldingRow row = Row();
    row.kursKr.reset();
    EXPECT_EQ(StartPriceOf(row), 0.0);
    row.sparadeVarden = "2005-01-03¶10¶?¶995¶";
    EXPECT_EQ(StartPriceOf(row), 0.0);
}

TEST(Holding, ShowsAColumnAsItIs) {
    EXPECT_EQ(ShownNumber(12.5), "12,5");
    EXPECT_EQ(ShownNumber(std::nullopt), "");
    EXPECT_EQ(ShownDay(38772), "2006-02-24");
    EXPECT_EQ(ShownDay(std::nullopt), "");
}

}  // namespace
