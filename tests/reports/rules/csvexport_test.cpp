#include "reports/rules/csvexport.h"

#include "base/csv.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

HoldingRow Row() {
    HoldingRow row;
    row.kontoId = 3;
    row.fond = "=Asp; \"norr\"";
    row.fondNr = "249 995";
    row.bokfortDatum = 46024;
    row.fondandelar = 10.5;
    row.kursKr = 100;
    row.vardeKr = 1050;
    row.andel = 50;
    row.namn = "Premiepension";
    row.kontoinnehavare = "Elsa";
    row.senasteDag = 46325;
    row.senasteKurs = "Senaste : 110,10";
    row.procent = "10 %";
    row.kursVarde = "1156";
    return row;
}

TEST(CsvExport, WritesAHoldingALine) {
    EXPECT_EQ(HoldingsCsv(std::vector{Row()}),
              std::string(kCsvMark) +
                  "Nr;Fond;Fondnr;Datum;Andelar;Startkurs;Startvärde;Andel %;Konto;"
                  "Kontoinnehavare;Kontonummer;Senaste dag;Senaste kurs;Ändring %;Värde\r\n"
                  "3;\"'=Asp; \"\"norr\"\"\";249 995;2026-01-02;10,5;100;1050;50;Premiepension;"
                  "Elsa;;2026-10-30;110,10;10;1156\r\n");
    HoldingRow summary = Row();
    summary.fond = "Helt konto";
    summary.kursVarde = "-";
    summary.senasteKurs = "0";
    EXPECT_NE(HoldingsCsv(std::vector{summary}).find("Elsa;;;;;\r\n"), std::string::npos);
}

TEST(CsvExport, WritesThePointsOfEachHoldingByTheirDays) {
    EXPECT_EQ(PointsCsv(std::vector{Row()}, {{3, {{46325, 10}, {46024, 0}}}, {9, {{46024, 7}}}}),
              std::string(kCsvMark) +
                  "Datum;Nr;Fondnr;Fond;Konto;Procent;Kronor\r\n"
                  "2026-01-02;3;249 995;\"'=Asp; \"\"norr\"\"\";Premiepension;0;100,00\r\n"
                  "2026-10-30;3;249 995;\"'=Asp; \"\"norr\"\"\";Premiepension;10;110,10\r\n"
                  "2026-01-02;9;;;;7;\r\n");
}

TEST(CsvExport, GivesEveryPercentageItsPrice) {
    const struct {
        double start;
        std::int32_t percent;
        const char* price;
    } rows[] = {{100, 10, "110,00"},  {50, 3, "51,50"}, {0.05, 3, "0,0515"},
                {0.013, 1, "0,0131"}, {100, -100, ""},  {100, -120, ""},
                {0, 5, ""},           {1e30, 5, ""},    {100, 1200, "1300,00"}};
    for (const auto& row : rows) {
        OpenHolding holding;
        holding.startPrice = row.start;
        if (row.start > 1e20) {
            EXPECT_NE(PriceOfPoint(holding, {46024, row.percent}), "") << "large, but a price";
            continue;
        }
        EXPECT_EQ(PriceOfPoint(holding, {46024, row.percent}), row.price) << row.start;
    }
}

TEST(CsvExport, TakesTheSummarysPriceOnlyWhereItGivesThePercentage) {
    OpenHolding holding;
    holding.startPrice = 100;
    holding.summary = {46325, "Senaste : 110,40", "10 %", ""};
    EXPECT_EQ(PriceOfPoint(holding, {46325, 10}), "110,40");
    EXPECT_EQ(PriceOfPoint(holding, {46325, 12}), "112,00");
    EXPECT_EQ(PriceOfPoint(holding, {46324, 10}), "110,00");
}

TEST(CsvExport, NamesTwoFilesByTheChosenOne) {
    const ExportNames names{"/hem/fonder innehav.csv", "/hem/fonder kurser.csv"};
    for (const char* chosen :
         {"/hem/fonder.csv", "/hem/fonder", "/hem/fonder innehav.csv", "/hem/fonder kurser.csv"}) {
        EXPECT_EQ(ExportNamesFor(chosen), names) << chosen;
    }
    EXPECT_EQ(ExportNamesFor("/hem.d/ innehav.csv").prices, "/hem.d/ innehav kurser.csv");
    EXPECT_EQ(ExportNamesFor("/hem/2026.11.csv").holdings, "/hem/2026.11 innehav.csv");
}

}  // namespace
