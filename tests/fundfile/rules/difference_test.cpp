// What a safety copy and the file of today do not share.

#include "fundfile/rules/difference.h"

#include <gtest/gtest.h>
#include <string>

namespace {

HoldingRow Row(std::int32_t kontoId, const std::string& fond, double shares = 10) {
    HoldingRow row;
    row.kontoId = kontoId;
    row.fond = fond;
    row.fondandelar = shares;
    return row;
}

TEST(Difference, IsNoneBetweenEqualFiles) {
    const FundContent both{{Row(1, "Asp")}, {{{1, 46000}, {0, 3}}}};
    EXPECT_EQ(DifferenceOf(both, both), Difference{});
    EXPECT_EQ(DifferenceText({}), "Lika som filen är nu");
    EXPECT_EQ(DifferenceOf({}, {}), Difference{});
}

TEST(Difference, NamesHoldingsThatCameWentAndChanged) {
    const FundContent copy{{Row(1, "Asp"), Row(2, "Björk"), Row(3, "Ceder")}, {}};
    const FundContent now{{Row(3, "Ceder", 11), Row(4, "Ek"), Row(1, "Asp")}, {}};
    const Difference found = DifferenceOf(copy, now);
    EXPECT_EQ(found, (Difference{{"Ek"}, {"Björk"}, {"Ceder"}, 0, 0, 0}));
    EXPECT_EQ(DifferenceText(found),
              "Innehav som saknas i kopian: 1 - Ek\n"
              "Innehav som bara finns i kopian: 1 - Björk\n"
              "Innehav som ändrats sedan dess: 1 - Ceder");
}

TEST(Difference, CountsPointsOfEachDay) {
    const FundContent copy{{}, {{{1, 10}, {5}}, {{1, 11}, {6}}, {{2, 10}, {7, 8}}, {{2, 11}, {1}}}};
    const FundContent now{{}, {{{1, 10}, {9}}, {{2, 10}, {7}}, {{2, 11}, {1}}, {{3, 10}, {2, 2}}}};
    const Difference found = DifferenceOf(copy, now);
    EXPECT_EQ(found, (Difference{{}, {}, {}, 2, 2, 1}));
    EXPECT_EQ(DifferenceText(found),
              "Punkter som saknas i kopian: 2\n"
              "Punkter som bara finns i kopian: 2\n"
              "Punkter med annat värde: 1");
}

TEST(Difference, NamesSixHoldingsAtMost) {
    Difference many;
    for (const char* name : {"A", "B", "C", "D", "E", "F", "G"}) many.changed.emplace_back(name);
    EXPECT_EQ(DifferenceText(many),
              "Innehav som ändrats sedan dess: 7 - A, B, C, D, E, F med flera");
}

}  // namespace
