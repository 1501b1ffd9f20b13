#include "reports/rules/overview.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Cells = std::vector<std::string>;

OverviewSource Source(std::int32_t kontoId, std::string_view account, std::string_view value) {
    OverviewSource source;
    HoldingRow& row = source.row;
    row.kontoId = kontoId;
    row.fond = "Fond " + std::to_string(kontoId);
    row.fondNr = "249 995";
    row.namn = account;
    row.senasteDag = 46325;
    row.senasteKurs = "Senaste : 110,00";
    row.procent = "10 %";
    row.kursVarde = value;
    source.totals = {"249 995", "100", "1000", "10 %", std::string(value), "Senaste : 110,00"};
    source.points = {{46325, 10}, {46024, 0}, {46320, 12}};
    return source;
}

TEST(Overview, ShowsAHoldingInItsColumns) {
    const std::vector<OverviewSource> sources = {Source(1, "PPM ", "1100"),
                                                 Source(2, "PPM", "3300")};
    const std::vector<OverviewLine> lines = OverviewOf(sources);
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(OverviewCells(lines[0]), (Cells{"1", "Fond 1", "PPM", "110,00", "2026-10-30", "-2",
                                              "10 %", "1100,00", "25,0 %"}));
    EXPECT_EQ(OverviewCells(lines[1]).back(), "75,0 %");
}

TEST(Overview, LeavesEmptyWhatIsNotKnown) {
    OverviewSource source = Source(7, "PPM", "");
    source.row.senasteKurs = "0";
    source.row.procent = "%";
    source.points = {{46024, 0}};
    EXPECT_EQ(OverviewCells(OverviewOf(std::vector{source})[0]),
              (Cells{"7", "Fond 7", "PPM", "", "", "", "", "", ""}));
}

OverviewSource Summary(std::int32_t kontoId) {
    OverviewSource source = Source(kontoId, "PPM", "-");
    source.row.fondNr = "999 999";
    source.row.senasteKurs = "2026-10-30:1234,5";
    source.totals = {"999 999", "1000", "1000", "12 %", "-", "2026-10-30:1234,5"};
    return source;
}

TEST(Overview, ASummaryRowIsWorthWhatItsAccountIs) {
    const auto lines = OverviewOf(std::vector{Summary(1), Source(2, "PPM", "617.25")});
    EXPECT_EQ(lines[0].value, 1234.5);
    EXPECT_EQ(lines[0].latest, 1234.5);
    EXPECT_EQ(lines[0].share, 100);
    EXPECT_EQ(lines[1].share, 50);
}

TEST(Overview, ASummaryRowBelowOthersHasNoValueOfItsOwn) {
    const auto lines = OverviewOf(std::vector{Source(1, "PPM", "900"), Summary(2)});
    EXPECT_EQ(lines[0].share, 100);
    EXPECT_EQ(lines[1].value, std::nullopt);
    EXPECT_EQ(lines[1].share, std::nullopt);
}

std::vector<std::int32_t> Order(const std::vector<OverviewLine>& lines, int column,
                                bool descending) {
    std::vector<std::int32_t> order;
    for (const OverviewLine& line : Sorted(lines, column, descending))
        order.push_back(line.kontoId);
    return order;
}

TEST(Overview, IsSortedByEveryColumnWithWhatIsMissingLast) {
    std::vector<OverviewLine> lines(4);
    lines[0] = {4, "bok", "A", 1, 1, 1, 1, 1, 1};
    lines[1] = {3, "Al", "B", 3, 3, 3, 3, 3, 3};
    lines[2] = {2, "Ceder", "B", {}, {}, {}, {}, {}, {}};
    lines[3] = {1, "Ek", "C", 3, 3, 3, 3, 3, 3};
    using Numbers = std::vector<std::int32_t>;
    EXPECT_EQ(Order(lines, 0, false), (Numbers{1, 2, 3, 4}));
    EXPECT_EQ(Order(lines, 0, true), (Numbers{4, 3, 2, 1}));
    EXPECT_EQ(Order(lines, 1, false), (Numbers{3, 4, 2, 1}));
    EXPECT_EQ(Order(lines, 1, true), (Numbers{1, 2, 4, 3}));
    EXPECT_EQ(Order(lines, 2, false), (Numbers{4, 2, 3, 1}));
    for (const int column : {3, 4, 5, 6, 7, 8}) {
        EXPECT_EQ(Order(lines, column, false), (Numbers{4, 1, 3, 2})) << column;
        EXPECT_EQ(Order(lines, column, true), (Numbers{1, 3, 4, 2})) << column;
    }
}

TEST(OverviewSums, AreThoseOfTheTotalsPanelAndOfAllAccounts) {
    const std::vector<OverviewSource> sources = {Source(1, "PPM", "1100"), Source(2, "Eget", "500"),
                                                 Source(3, "PPM ", "900.5")};
    const auto sums = OverviewSums(sources);
    ASSERT_EQ(sums.size(), 3U);
    EXPECT_EQ(sums[0], (Cells{"", "Summa PPM", "", "", "", "", "10 %", "2000,50", ""}));
    EXPECT_EQ(sums[1], (Cells{"", "Summa Eget", "", "", "", "", "10 %", "500,00", ""}));
    EXPECT_EQ(sums[2], (Cells{"", "Summa alla konton", "", "", "", "", "10 %", "2500,50", ""}));
}

TEST(OverviewSums, OfOneAccountStandAlone) {
    const std::vector<OverviewSource> sources = {Source(1, "PPM", "1100")};
    EXPECT_EQ(OverviewSums(sources).size(), 1U);
}

TEST(OverviewSums, ASummaryRowSpeaksForItsAccount) {
    const auto sums = OverviewSums(std::vector{Summary(1), Source(2, "PPM", "900")});
    EXPECT_EQ(sums[0], (Cells{"", "Summa PPM", "", "", "", "", "12 %", "1234,50", ""}));
}

}  // namespace
