#include "fundfile/rules/openholding.h"

#include <gtest/gtest.h>

namespace {

HoldingRow Row() {
    HoldingRow row;
    row.kontoId = 7;
    row.fond = "Granvassa";
    row.fondNr = "249 995";
    row.fondandelar = 1234.5678;
    row.kursKr = 524287.99;
    row.namn = "Premiepension";
    row.senasteDag = 46325;
    row.senasteKurs = "Senaste : 110,00";
    row.procent = "10 %";
    row.kursVarde = "1100";
    row.skala = "1.7./45/-30";
    row.sparadeVarden = "x";
    return row;
}

TEST(OpenHolding, IsWhatItsRowSays) {
    const OpenHolding expected{.kontoId = 7,
                               .fondNr = "249 995",
                               .fond = "Granvassa",
                               .account = "Premiepension",
                               .startPrice = 524287.99,
                               .shares = 1234.5678,
                               .scale = {45, -30},
                               .summary = {46325, "Senaste : 110,00", "10 %", "1100"}};
    EXPECT_EQ(OpenHoldingOf(Row()), expected);
}

TEST(OpenHolding, StartsFromTheSavedPriceAndHoldsThePresentShares) {
    HoldingRow row = Row();
    row.sparadeVarden = "2005-01-03¶10¶99,5¶995¶";
    EXPECT_EQ(OpenHoldingOf(row).startPrice, 99.5);
    EXPECT_EQ(OpenHoldingOf(row).shares, 1234.5678);
}

TEST(OpenHolding, OfAnEmptyRowHasNothingToReckonWith) {
    const OpenHolding empty = OpenHoldingOf({});
    EXPECT_EQ(empty.kontoId, kFallbackKontoId);
    EXPECT_EQ(empty.startPrice, 0);
    EXPECT_EQ(empty.shares, 0);
    EXPECT_EQ(empty.scale, (ScaleRange{15, -10}));
    EXPECT_EQ(empty.summary, HoldingSummary{});
}

}  // namespace
