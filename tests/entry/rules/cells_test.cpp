#include "entry/rules/cells.h"

#include <gtest/gtest.h>
#include <optional>
#include <string_view>

namespace {

TEST(CellName, IsCutFrom25CharactersOn) {
    EXPECT_EQ(CellName("Räntefond"), "Räntefond");
    EXPECT_EQ(CellName("123456789012345678901234"), "123456789012345678901234");
    EXPECT_EQ(CellName("1234567890123456789012345"), "12345678901234567890123..");
    EXPECT_EQ(CellName("åäöåäöåäöåäöåäöåäöåäöåäö"), "åäöåäöåäöåäöåäöåäöåäöåäö");
    EXPECT_EQ(CellName("åäöåäöåäöåäöåäöåäöåäöåäöå"), "åäöåäöåäöåäöåäöåäöåäöåä..");
    EXPECT_EQ(CellName(""), "");
}

TEST(CellFundNumber, GetsItsBlankFromSixCharactersOn) {
    const struct {
        std::string_view typed, stored;
    } rows[] = {
        {"249995", "249 995"},
        {"249 995", "249 995"},
        {"2468024", "246 024"},
        {"12345", "12345"},
        {"", ""},
        {"7", "7"},
        {"123-456-789", "123 789"},
    };
    for (const auto& row : rows) EXPECT_EQ(CellFundNumber(row.typed), row.stored) << row.typed;
}

TEST(CellNumber, IsStoredWithoutItsBlanks) {
    const struct {
        std::string_view typed;
        std::optional<std::string> stored;
    } rows[] = {
        {"1234,5678", "1234,5678"},
        {"1 234,5", "1234,5"},
        {"12 345 678", "12345678"},
        {"-5", "-5"},
        {" 7 ", "7"},
        {"12,50", "12,50"},
        {"", ""},
        {"  ", ""},
        {"1 12,50", std::nullopt},
        {"1,2,3", std::nullopt},
        {"-", std::nullopt},
        {"1-2", std::nullopt},
    };
    for (const auto& row : rows) EXPECT_EQ(CellNumber(row.typed), row.stored) << row.typed;
}

TEST(FundNumber, IsTheSummaryRowsWhenNoneWasTyped) {
    EXPECT_EQ(FundNumberOrDefault(""), "999 999");
    EXPECT_EQ(FundNumberOrDefault("  "), "999 999");
    EXPECT_EQ(FundNumberOrDefault("249 995"), "249 995");
}

TEST(RowValue, IsSharesTimesPrice) {
    EXPECT_EQ(RowValue(10, 123.4567), 1234.567);
    EXPECT_EQ(RowValue(95.5204, 208.5), 19916.0034);
    EXPECT_EQ(RowValue(0, 12.5), 0.0);
}

TEST(RowValue, NeedsBothFactors) {
    EXPECT_EQ(RowValue(std::nullopt, 12.5), std::nullopt);
    EXPECT_EQ(RowValue(10, std::nullopt), std::nullopt);
}

TEST(MissingIn, FindsWhatKeepsARowFromBeingStored) {
    HoldingRow row;
    EXPECT_EQ(MissingIn(row), Missing::Name);
    row.fond = "  ";
    EXPECT_EQ(MissingIn(row), Missing::Name);
    row.fond = "Räntefond";
    EXPECT_EQ(MissingIn(row), Missing::Price);
    row.kursKr = 0;
    EXPECT_EQ(MissingIn(row), Missing::Price);
    row.kursKr = -1;
    EXPECT_EQ(MissingIn(row), Missing::Price);
    row.kursKr = 0.01;
    EXPECT_EQ(MissingIn(row), Missing::Date);
    row.bokfortDatum = 46024;
    EXPECT_EQ(MissingIn(row), Missing::Nothing);
}

TEST(DeletionEntry, KeepsTheRowForTheLog) {
    HoldingRow row;
    row.namn = "PPM Konto";
    row.fond = "Räntefond";
    row.fondNr = "249 995";
    row.bokfortDatum = 36891;
    row.fondandelar = 10.5;
    row.kursKr = 123.4567;
    row.vardeKr = 1296.29535;
    EXPECT_EQ(DeletionEntry(row, "Måndag 16 November 2026"),
              "Måndag 16 November 2026\r\n"
              "Raderades : PPM Konto Räntefond\r\n"
              "249 995       2000-12-31  \r\n"
              "10,5  a' 123,4567  kr     1296,30  kr");
}

TEST(DeletionEntry, OfAnEmptyRowKeepsItsLines) {
    EXPECT_EQ(DeletionEntry(HoldingRow{}, "i dag"),
              "i dag\r\nRaderades :  \r\n         \r\n  a'   kr       kr");
}

}  // namespace
