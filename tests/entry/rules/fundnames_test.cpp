#include "entry/rules/fundnames.h"

#include <gtest/gtest.h>
#include <vector>

namespace {

using Places = std::vector<std::size_t>;

OpenHolding Holding(const char* number, const char* name) {
    OpenHolding holding;
    holding.fondNr = number;
    holding.fond = name;
    return holding;
}

TEST(FundNames, FindHoldingsByNameAndNumber) {
    const std::vector<OpenHolding> holdings = {Holding("249 995", "Asp"),
                                               Holding("999 999", "Björk"),
                                               Holding("249 995", "Asp"),
                                               Holding("111 222", "En"),
                                               Holding("111 222", "Gran"),
                                               Holding("", "Ek"),
                                               Holding("999 999", "Ett mycket långt fondna..")};
    const FundNames funds(holdings);
    EXPECT_EQ(funds.With("asp"), (Places{0, 2}));
    EXPECT_EQ(funds.With("249995"), (Places{0, 2}));
    EXPECT_EQ(funds.With("BJÖRK"), Places{1});
    EXPECT_EQ(funds.With("Ett mycket långt fondnamn"), Places{6});
    EXPECT_TRUE(funds.With("").empty());
    EXPECT_TRUE(funds.With("Okänd").empty());
    EXPECT_EQ(funds.With("111 222", "gran"), Places{4}) << "the name tells them apart";
    EXPECT_EQ(funds.With("111 222", "another name"), (Places{3, 4}));
    EXPECT_EQ(funds.With("999 999", "Björk"), Places{1}) << "it stands for no number";
    EXPECT_TRUE(funds.With("999 999", "").empty());
    EXPECT_EQ(funds.With("", "Ek"), Places{5});
    EXPECT_EQ(funds.With("555 555", "Ek"), Places{5});
}

}  // namespace
