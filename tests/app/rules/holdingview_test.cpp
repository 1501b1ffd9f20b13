#include "app/rules/holdingview.h"

#include <array>
#include <gtest/gtest.h>
#include <string>

namespace {

using Ten = std::array<std::string, 10>;

HoldingRow Row() {
    HoldingRow row;
    row.kontoId = 3;
    row.fond = "Björkdal Försiktig";
    row.fondNr = "751 062";
    row.bokfortDatum = 38772;
    row.fondandelar = 2010.0489;
    row.kursKr = 28.5;
    row.vardeKr = 57286.39365;
    row.andel = 15;
    row.namn = "PPM Konto";
    row.senasteDag = 46077;
    row.senasteKurs = "Senaste : 33,64";
    row.procent = "18 %";
    row.kursVarde = "67618";
    row.sparadeVarden = "x";
    return row;
}

HoldingRow RowWithSavedValues() {
    HoldingRow row = Row();
    row.sparadeVarden = "2005-02-27¶1976,0607¶28,99¶57285,9992¶";
    return row;
}

TEST(HoldingView, WithoutSavedValuesShowsTheRowAsBought) {
    const HoldingView view = ViewOf(Row(), " 3. Björkdal Försiktig");
    EXPECT_EQ(view.labels,
              (Ten{"751 062", "2006-02-24", "2010,0489", "57286,39", "15", "", "", "", "", ""}));
    EXPECT_EQ(view.headings[3], "Värde kr");
    EXPECT_EQ(view.headings[6], "");
}

TEST(HoldingView, WithSavedValuesShowsThemFirst) {
    const HoldingView view = ViewOf(RowWithSavedValues(), " 3. Björkdal Försiktig");
    EXPECT_EQ(view.labels, (Ten{"751 062", "2005-02-27", "1976,0607", "28,99", "57285,9992", "",
                                "2006-02-24", "2010,0489", "57286,39365", "15"}));
    EXPECT_EQ(view.headings[3], "Startkurs");
    EXPECT_EQ(view.headings[9], "Andel %");
}

TEST(HoldingView, HasAHeadingOverEveryValueAndNoOther) {
    for (const auto& row : {Row(), RowWithSavedValues()}) {
        const HoldingView view = ViewOf(row, " 3. F");
        for (std::size_t i = 0; i < view.labels.size(); ++i) {
            EXPECT_EQ(view.labels[i].empty(), view.headings[i].empty()) << i;
        }
    }
}

TEST(HoldingView, NamesTheFundInItsCaptions) {
    const HoldingView view = ViewOf(Row(), " 3. Björkdal Försiktig");
    EXPECT_EQ(view.frameCaption, "StartData  3. Björkdal Försiktig  PPM Konto");
    EXPECT_EQ(view.windowCaption,
              "   Kvarnbo  Björkdal Försiktig Senaste uppdatering    Tisdag 24 Februari 2026");
    EXPECT_EQ(view.colourNumber, "3");
    EXPECT_EQ(view.status.fund, "Björkdal Försiktig");
}

TEST(HoldingView, WithoutALatestDayEndsTheCaptionBeforeIt) {
    HoldingRow row = Row();
    row.senasteDag.reset();
    EXPECT_EQ(ViewOf(row, "").windowCaption,
              "   Kvarnbo  Björkdal Försiktig Senaste uppdatering    ");
}

TEST(HoldingView, ShowsTheStoredSummary) {
    EXPECT_EQ(ViewOf(Row(), "").status, (StatusTexts{"Björkdal Försiktig", "Startkurs : 28,5",
                                                     "Senaste : 33,64", "18 %", "67618", "28,5"}));
}

TEST(HoldingView, TakesTheStartPriceFromTheSavedValues) {
    const HoldingView view = ViewOf(RowWithSavedValues(), "");
    EXPECT_EQ(view.status.startPrice, "Startkurs : 28,99");
    EXPECT_EQ(view.status.startPriceTag, "28,99");
}

TEST(HoldingView, WithoutALatestPriceShowsTheEmptySummary) {
    for (const char* none : {"0", ""}) {
        HoldingRow row = Row();
        row.senasteKurs = none;
        const StatusTexts status = ViewOf(row, "").status;
        EXPECT_EQ(status.latestPrice, "Senaste :");
        EXPECT_EQ(status.change, "%");
        EXPECT_EQ(status.value, "-");
    }
}

TEST(HoldingView, OfARowWithoutValuesIsEmptyAndDoesNotFail) {
    const HoldingView view = ViewOf(HoldingRow{}, " 1. ");
    EXPECT_EQ(view.labels, Ten{"-"}) << "an empty number is shown as one";
    EXPECT_EQ(view.status.startPrice, "Startkurs : 0");
}

TEST(HoldingView, WithNothingOpenShowsThePrefixesAlone) {
    const HoldingView view = EmptyView();
    EXPECT_EQ(view.labels, Ten{});
    EXPECT_EQ(view.status, (StatusTexts{"Fond", "Startkurs : ", "Senaste : ", "%", "-", ""}));
    EXPECT_EQ(view.windowCaption, "  Kvarnbo  ");
    EXPECT_EQ(view.frameCaption, "StartData ");
    EXPECT_EQ(view.colourNumber, "");
}

TEST(UpdatedCaption, BeginsWithTwoBlanks) {
    EXPECT_EQ(UpdatedCaption("Räntefond", 46077),
              "  Kvarnbo  Räntefond Senaste uppdatering    Tisdag 24 Februari 2026");
}

}  // namespace
