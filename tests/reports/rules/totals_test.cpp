#include "reports/rules/totals.h"

#include "base/error.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace {

using Rows = std::vector<TotalsRow>;

TotalsRow Row(std::string value, std::string percent, std::string latest) {
    return {"249 995",         "10",          std::move(value), std::move(percent),
            std::move(latest), "Senaste : 10"};
}

const TotalsRow kSummary = {"999 999", "203219.5", "1", "-39 %", "-", "2026-02-24:1234,5"};

TEST(Totals, AddUpAnAccount) {
    const Rows rows = {Row("10000.25", "5 %", "10500"), Row("234.25", "9 %", "520")};
    const Totals totals = SumOf(rows);
    EXPECT_EQ(totals, (Totals{10234.5F, 11020.0F, 14, 2}));
    EXPECT_EQ(MeanPercent(totals), 7);
}

TEST(Totals, RoundThePercentSumAfterEveryRow) {
    const Rows rows = {Row("1", "2.5", "1"), Row("1", "2.5", "1"), Row("1", "1", "1")};
    Totals totals;
    const std::int32_t running[] = {2, 4, 5};
    for (std::size_t i = 0; i < rows.size(); ++i) {
        totals = WithRow(totals, rows[i]);
        EXPECT_EQ(totals.percent, running[i]);
    }
    EXPECT_EQ(MeanPercent(totals), 1);
}

TEST(Totals, CutTheMeanTowardZero) {
    EXPECT_EQ(MeanPercent({0, 0, -7, 2}), -3);
    EXPECT_EQ(MeanPercent({0, 0, 7, 2}), 3);
    EXPECT_EQ(MeanPercent({0, 0, -39, 0}), -39);
}

TEST(Totals, CountWhatIsNoNumberAsZero) {
    EXPECT_EQ(SumOf(Rows{Row("", "%", "-")}), (Totals{0, 0, 0, 1}));
    EXPECT_EQ(SumOf(Rows{Row("12,5", "3,9 %", "x")}), (Totals{12, 0, 3, 1}));
}

TEST(Totals, OverflowRatherThanBecomeInfinite) {
    Skipping skip;
    skip([] { SumOf(Rows{Row(std::string(39, '9'), "1", "1")}); });
    EXPECT_EQ(skip.Number(), ErrorNumber::Overflow);
    skip([] { SumOf(Rows{Row("1", "2147483647", "1"), Row("1", "1", "1")}); });
    EXPECT_EQ(skip.Number(), ErrorNumber::Overflow);
}

TEST(PanelTotals, OfASummaryRowComeFromItAlone) {
    const Rows rows = {kSummary, Row("500", "5 %", "600")};
    EXPECT_EQ(PanelTotals(rows), (Totals{203219.5F, 1234.5F, -39, 0}));
}

TEST(PanelTotals, OfASummaryRowFurtherDownSumEverything) {
    const Rows rows = {Row("500", "5 %", "600"), kSummary};
    EXPECT_EQ(PanelTotals(rows), SumOf(rows));
}

TEST(PanelTotals, OfASummaryRowWithoutAColonLeaveTheLatestTotalAtZero) {
    TotalsRow row = kSummary;
    for (const char* text : {"", "1234,5", "2026-02-24:", "2026-02-24:x"}) {
        row.senasteKurs = text;
        EXPECT_EQ(PanelTotals(Rows{row}), (Totals{203219.5F, 0, -39, 0})) << text;
    }
}

TEST(PanelTotals, OfASummaryRowReadThePieceAfterTheFirstColon) {
    TotalsRow row = kSummary;
    row.senasteKurs = "Senaste : 123926,41";
    EXPECT_EQ(PanelTotals(Rows{row}).latest, 123926.41F);
    row.senasteKurs = "a:12:34";
    EXPECT_EQ(PanelTotals(Rows{row}).latest, 12.0F);
}

TEST(PanelTotals, LeaveOutOnlyWhatCannotBeAdded) {
    const std::string tooMuch(39, '9');
    const Rows rows = {Row("500", "5 %", "600"), Row(tooMuch, "7 %", "60"),
                       Row("50", "2147483647", "6"), Row("5", "1 %", tooMuch)};
    EXPECT_EQ(PanelTotals(rows), (Totals{555, 666, 13, 4}));
}

TEST(PanelTotals, OfNoRowsAreZero) {
    EXPECT_EQ(PanelTotals({}), Totals{});
}

TEST(SumOf, SumsASummaryRowLikeAnyOther) {
    const Rows rows = {kSummary, Row("500", "5 %", "600")};
    EXPECT_EQ(SumOf(rows), (Totals{501, 600, -34, 2}));
}

TEST(PanelText, HasTwoBlanksBeforeTheFirstUnitAndThreeBeforeTheSecond) {
    EXPECT_EQ(PanelText("Konto A", {10234.5F, 11020, 14, 2}),
              "Konto A\r\n\r\nStartvärde\r\n\r\n10234,50  kr\r\n\r\nSenaste "
              "Totalvärde\r\n\r\n11020,00   kr");
}

TEST(PanelText, OfNoRowsShowsZeros) {
    EXPECT_EQ(PanelText("Tomt", PanelTotals({})),
              "Tomt\r\n\r\nStartvärde\r\n\r\n0,00  kr\r\n\r\nSenaste Totalvärde\r\n\r\n0,00   kr");
}

TEST(ReportLine, JoinsTheTotalsWithSlashes) {
    EXPECT_EQ(ReportLine("Konto A", {10234.5F, 11020, 14, 2}),
              "Konto A/Startvärde/10234,5 kr/Senaste Totalvärde/11020 kr/7 %");
}

TEST(ReportLine, OfNoRowsShowsZeros) {
    EXPECT_EQ(ReportLine("Tomt", SumOf({})), "Tomt/Startvärde/0 kr/Senaste Totalvärde/0 kr/0 %");
}

TEST(DistinctAccounts, KeepTheFirstOfEachInOrder) {
    const std::vector<std::string> names = {"PPM Konto ", "Åsas konto", " PPM Konto", "",
                                            "  ",         "ppm konto",  "Åsas konto"};
    EXPECT_EQ(DistinctAccounts(names),
              (std::vector<std::string>{"PPM Konto", "Åsas konto", "ppm konto"}));
    EXPECT_TRUE(DistinctAccounts({}).empty());
}

}  // namespace
