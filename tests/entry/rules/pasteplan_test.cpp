#include "entry/rules/pasteplan.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::int32_t kToday = 46342;

OpenHolding Holding(std::string_view fond, std::string_view fondNr, double startPrice = 100) {
    OpenHolding holding;
    holding.fond = fond;
    holding.fondNr = fondNr;
    holding.startPrice = startPrice;
    holding.summary = {kToday - 3, "Senaste : 110,00", "10 %", "1100"};
    return holding;
}

const std::vector<OpenHolding> kHoldings = {
    Holding("Vimmels Asien", "249 995"), Holding("Lövås Ränta", "468 024"),
    Holding("Granvassa Europa Småbol..", "333 001"), Holding("Vimmels Asien", "249 995")};

std::vector<PastedPrice> Plan(std::string_view text,
                              std::vector<std::size_t> order = {0, 1, 2, 3}) {
    return PastePlan(text, kHoldings, {std::move(order), kToday});
}

TEST(IsPriceColumn, IsWhatOneFieldCouldNotTake) {
    for (const std::string_view column : {"1\n2", "1\r\n2\r\n", "Asien\t12", "\n1\n2"}) {
        EXPECT_TRUE(IsPriceColumn(column)) << column;
    }
    for (const std::string_view one : {"", "12", "12,5\r\n", " 12 kr", "\n\n"}) {
        EXPECT_FALSE(IsPriceColumn(one)) << one;
    }
}

TEST(PastePlan, JudgesEveryLineAsItsFieldWould) {
    const struct {
        std::string_view line;
        std::optional<std::size_t> holding;
        std::string_view name, price, verdict;
        bool stores, doubtful;
    } rows[] = {
        {"Lövås Ränta\t112,5", 1, "Lövås Ränta", "112,50", "12 %, +2,3 %", true, false},
        {"lövås ränta \t112.50 kr\tSEK", 1, "lövås ränta", "112,50", "12 %, +2,3 %", true, false},
        {"468024\t1 12", 1, "468024", "1 12", "Sparas inte: ingen kurs", false, true},
        {"468024\t110", 1, "468024", "110,00", "10 %, 0,0 %", true, false},
        {"Granvassa Europa Småbolag Index\t100", 2, "Granvassa Europa Småbolag Index", "100,00",
         "0 %, -9,1 %", true, false},
        {"Lövås Ränta\t11,25", 1, "Lövås Ränta", "11,25", "Stämmer det? -89 %, -89,8 %", true,
         true},
        {"Lövås Ränta\t301", 1, "Lövås Ränta", "301,00", "Stämmer det? mer än 200 % ökning", true,
         true},
        {"Lövås Ränta\t1101", 1, "Lövås Ränta", "1101,00", "Sparas inte: mer än 1000 % ökning",
         false, true},
        {"Lövås Ränta\t", 1, "Lövås Ränta", "", "Sparas inte: ingen kurs", false, true},
        {"Lövås Ränta\t0", 1, "Lövås Ränta", "0", "Sparas inte: ingen kurs", false, true},
        {"Fond\tKurs", std::nullopt, "Fond", "Kurs", "Sparas inte: ingen fond heter så", false,
         true},
    };
    for (const auto& row : rows) {
        const std::vector<PastedPrice> plan = Plan(row.line);
        ASSERT_EQ(plan.size(), 1U) << row.line;
        EXPECT_EQ(plan[0].holding, row.holding) << row.line;
        EXPECT_EQ(plan[0].name, row.name) << row.line;
        EXPECT_EQ(plan[0].price, row.price) << row.line;
        EXPECT_EQ(plan[0].verdict, row.verdict) << row.line;
        EXPECT_EQ(plan[0].stores, row.stores) << row.line;
        EXPECT_EQ(plan[0].doubtful, row.doubtful) << row.line;
    }
}

std::vector<std::optional<std::size_t>> HoldingsOf(const std::vector<PastedPrice>& plan) {
    std::vector<std::optional<std::size_t>> holdings;
    for (const PastedPrice& pasted : plan) holdings.push_back(pasted.holding);
    return holdings;
}

using Holdings = std::vector<std::optional<std::size_t>>;

TEST(PastePlan, GivesPricesWithoutNamesToTheHoldingsInTheirOrder) {
    EXPECT_EQ(HoldingsOf(Plan("101\r\n\r\n103\r\n", {2, 0, 1})), (Holdings{2, 1}))
        << "a blank line leaves a holding out";
    const std::vector<PastedPrice> plan = Plan("101\n102\n103", {1, 3});
    EXPECT_EQ(HoldingsOf(plan), (Holdings{1, 3, std::nullopt}));
    EXPECT_EQ(plan[2].verdict, "Sparas inte: ingen fond är kvar");
    EXPECT_EQ(plan[2].price, "103");
}

TEST(PastePlan, GivesANamedPriceToEveryHoldingOfTheFundOnce) {
    const std::vector<PastedPrice> plan = Plan("Vimmels Asien\t105\nVimmels Asien\t106");
    EXPECT_EQ(HoldingsOf(plan), (Holdings{0, 3, std::nullopt}));
    EXPECT_EQ(plan[1].price, "105,00");
    EXPECT_EQ(plan[2].verdict, "Sparas inte: fonden står redan ovan");
}

TEST(PastePlan, KnowsNoPercentageWithoutAStartPrice) {
    const std::vector<OpenHolding> holdings = {Holding("Asien", "1", 0)};
    const std::vector<PastedPrice> plan = PastePlan("Asien\t12", holdings, {{0}, kToday});
    EXPECT_EQ(plan.at(0).verdict, "Sparas inte: går inte att räkna om till procent");
}

TEST(PlanText, SaysWhatEnterAndEscDo) {
    PastedPrice stored, refused;
    stored.stores = true;
    using Prices = std::vector<PastedPrice>;
    EXPECT_EQ(PlanText(Prices{stored}), "Enter sparar 1 kurs. Esc ångrar.");
    EXPECT_EQ(PlanText(Prices{stored, refused, stored}),
              "Enter sparar 2 kurser. 1 rad sparas inte. Esc ångrar.");
    EXPECT_EQ(PlanText(Prices{refused, refused}), "2 rader sparas inte. Esc ångrar.");
}

}  // namespace
