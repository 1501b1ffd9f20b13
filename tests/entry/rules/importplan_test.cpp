#include "entry/rules/importplan.h"

#include "base/daynumber.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

constexpr std::int32_t kToday = 46342;  // 2026-11-16

std::int32_t Day(const char* text) {
    return *ParseDate(text);
}

RoundLine Line(std::int32_t kontoId, const char* number, const char* name,
               std::vector<CurvePoint> points) {
    RoundLine line;
    line.holding.kontoId = kontoId;
    line.holding.fondNr = number;
    line.holding.fond = name;
    line.holding.account = "PPM";
    line.holding.startPrice = 100;
    line.holding.shares = 10;
    line.points = std::move(points);
    return line;
}

/// Asp on two accounts, and Ek whose latest price is known to the öre.
std::vector<RoundLine> Holdings() {
    std::vector<RoundLine> lines = {
        Line(1, "249 995", "Asp", {{Day("2026-11-10"), 10}, {Day("2026-11-12"), 12}}),
        Line(2, "468 024", "Ek", {{Day("2026-11-12"), 20}}), Line(3, "249 995", "Asp", {})};
    lines[1].holding.summary = {Day("2026-11-12"), "Senaste : 120,40", "20 %", "1204"};
    return lines;
}

std::string FateName(ImportFate fate) {
    switch (fate) {
        case ImportFate::Refused:
            return "refused";
        case ImportFate::Asks:
            return "asks";
        case ImportFate::Stores:
            return "stores";
        case ImportFate::NoPrice:
            return "no price";
        case ImportFate::IsThere:
            return "there";
    }
    return "?";
}

/// "fate KontoId price verdict" of each.
std::vector<std::string> Fates(const std::vector<PriceLine>& lines) {
    const std::vector<RoundLine> holdings = Holdings();
    std::vector<std::string> fates;
    for (const ImportedPrice& price : ImportPlan(lines, holdings, kToday)) {
        const std::string whose =
            price.holding ? std::to_string(holdings[*price.holding].holding.kontoId) : "-";
        fates.push_back(FateName(price.fate) + " " + whose + " " + price.price + " " +
                        price.verdict);
    }
    return fates;
}

PriceLine In(const char* day, const char* fund, const char* price, const char* kontoId = "") {
    return {1, day, kontoId, "", fund, price};
}

using Strings = std::vector<std::string>;

TEST(ImportPlan, JudgesEachLineByTheRulesOfATypedPrice) {
    const struct {
        PriceLine line;
        Strings fates;
    } rows[] = {
        {In("2026-11-13", "Ek", "121.5"), {"stores 2 121,50 22 %, +1,3 %"}},
        {In("2026-11-13", "468024", "121,5 kr"), {"stores 2 121,50 22 %, +1,3 %"}},
        {In("2026-11-11", "Ek", "1 210"), {"refused 2 1210,00 Sparas inte: mer än 1000 % ökning"}},
        {In("2026-11-11", "Ek", "301"), {"asks 2 301,00 Stämmer det? mer än 200 % ökning"}},
        {In("2026-11-13", "Ek", "60"), {"stores 2 60,00 Stämmer det? -40 %, -50,0 %"}},
        {In("2026-11-11", "Ek", "60"), {"stores 2 60,00 -40 %"}},
        {In("2026-11-13", "Ek", "abc"), {"refused 2 abc Sparas inte: ingen kurs"}},
        {In("2026-11-13", "Ek", "0"), {"refused 2 0 Sparas inte: ingen kurs"}},
        {In("2026-11-13", "Ek", ""), {"no price -  Ingen kurs på raden"}},
        {In("2026-11-13", "Al", "12"), {"refused - 12 Sparas inte: ingen fond heter så"}},
        {In("13/11", "Ek", "12"), {"refused - 12 Sparas inte: inget datum med helt årtal"}},
        {In("2026-11-17", "Ek", "121"), {"refused 2 121,00 Sparas inte: dagen har inte varit än"}},
        {In("2026-11-16", "Ek", "121"), {"stores 2 121,00 21 %, +0,8 %"}},
    };
    for (const auto& row : rows) EXPECT_EQ(Fates({row.line}), row.fates) << row.line.price;
    PriceLine cut = In("2026-11-13", "Ek", "121");
    cut.tooLong = true;
    EXPECT_EQ(Fates({cut}),
              Strings{"refused - 121 Sparas inte: raden har fler rutor än rubrikerna"});
}

TEST(ImportPlan, KnowsWhatIsThereAlready) {
    EXPECT_EQ(Fates({In("2026-11-12", "Asp", "112,30", "1")}),
              Strings{"there 1 112,30 Finns redan"});
    EXPECT_EQ(Fates({In("2026-11-12", "Ek", "120,4")}), Strings{"there 2 120,40 Finns redan"});
    EXPECT_EQ(Fates({In("2026-11-12", "Ek", "120,10")}), Strings{"stores 2 120,10 20 %"})
        << "the same percentage, and another latest price";
    EXPECT_EQ(Fates({In("2026-11-12", "Ek", "122")}), Strings{"stores 2 122,00 22 %"});
}

TEST(ImportPlan, IsForAllHoldingsOfAFundUnlessOneIsNamed) {
    EXPECT_EQ(Fates({In("2026-11-13", "asp", "113")}),
              (Strings{"stores 1 113,00 13 %, +0,9 %", "stores 3 113,00 13 %"}));
    EXPECT_EQ(Fates({In("2026-11-13", "asp", "113", "3")}), Strings{"stores 3 113,00 13 %"});
    EXPECT_EQ(Fates({In("2026-11-13", "Ek", "121", "1")}), Strings{"stores 2 121,00 21 %, +0,8 %"})
        << "another fund has that number in this file";
}

TEST(ImportPlan, StoresADayOnceAndShowsWhatIsRefusedFirst) {
    EXPECT_EQ(
        Fates({In("2026-11-13", "Ek", "121"), In("2026-11-13", "Ek", "121,00"),
               In("2026-11-13", "Ek", "122"), In("2026-11-12", "Ek", "120,40"),
               In("2026-11-11", "Ek", "301")}),
        (Strings{"refused 2 122,00 Sparas inte: fonden har en annan kurs den dagen ovan",
                 "asks 2 301,00 Stämmer det? mer än 200 % ökning", "stores 2 121,00 21 %, +0,8 %",
                 "there 2 121,00 Finns redan", "there 2 120,40 Finns redan"}));
}

TEST(ImportPlan, SaysHowManyOfEach) {
    EXPECT_EQ(ImportText({.stores = 8, .refused = 2, .there = 12, .without = 1}),
              "Enter sparar 8 kurser. 2 rader sparas inte. 12 är redan lagrade. 1 rad har ingen "
              "kurs. Esc ångrar.");
    EXPECT_EQ(ImportText({.stores = 1, .refused = 1, .there = 1, .without = 2}),
              "Enter sparar 1 kurs. 1 rad sparas inte. 1 är redan lagrad. 2 rader har ingen kurs. "
              "Esc ångrar.");
    EXPECT_EQ(ImportText({.there = 3}), "Inget att spara. 3 är redan lagrade. Esc lämnar sidan.");
    const auto holdings = Holdings();
    const std::vector<PriceLine> lines = {In("2026-11-13", "Ek", "301"), In("x", "Ek", "1"),
                                          In("2026-11-13", "Asp", "")};
    const ImportCounts counts = CountOf(ImportPlan(lines, holdings, kToday));
    EXPECT_EQ(counts.stores, 1);
    EXPECT_EQ(counts.asks, 1);
    EXPECT_EQ(counts.refused, 1);
    EXPECT_EQ(counts.without, 1);
}

TEST(ImportPlan, ShowsTheFileWhereNoHoldingIsKnown) {
    const auto holdings = Holdings();
    const auto plan = ImportPlan(std::vector<PriceLine>{In("13/11", "Al", "12")}, holdings, kToday);
    EXPECT_EQ(ImportCells(plan.front(), holdings),
              (Strings{"1", "13/11", "Al", "", "12", "Sparas inte: inget datum med helt årtal"}));
    const auto known =
        ImportPlan(std::vector<PriceLine>{In("13/11 2026", "468024", "121")}, holdings, kToday);
    EXPECT_EQ(ImportCells(known.front(), holdings),
              (Strings{"1", "2026-11-13", "Ek", "PPM", "121,00", "21 %, +0,8 %"}));
}

}  // namespace
