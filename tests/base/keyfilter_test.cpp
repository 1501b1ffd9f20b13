#include "base/keyfilter.h"

#include "base/indexed.h"

#include <gtest/gtest.h>
#include <string>

namespace {

constexpr char32_t kDropped = 0;

std::u32string AllPassing(const KeyFilter& filter) {
    std::u32string passing;
    for (char32_t c = 1; c < 256; ++c) {
        if (filter(c).value_or(kDropped) == c) passing += c;
    }
    return passing;
}

TEST(KeyFilter, OfThePriceTakesDigitsAndComma) {
    EXPECT_EQ(AllPassing(kPriceKeys), U",0123456789");
    EXPECT_EQ(kPriceKeys(U'.'), U',');
    EXPECT_EQ(kPriceKeys(U'-'), std::nullopt);
    EXPECT_EQ(kPriceKeys(U'a'), std::nullopt);
    EXPECT_EQ(kPriceKeys(U'å'), std::nullopt);
}

TEST(KeyFilter, OfTheGridTakesBlankAndMinusToo) {
    EXPECT_EQ(AllPassing(kGridKeys), U" ,-0123456789");
    EXPECT_EQ(kGridKeys(U'.'), U',');
    EXPECT_EQ(kGridKeys(U'x'), std::nullopt);
}

TEST(KeyFilter, OfTheAccountFieldsKeepsThePoint) {
    EXPECT_EQ(AllPassing(kAccountKeys), U",-.0123456789");
    EXPECT_EQ(kAccountKeys(U'.'), U'.');
    EXPECT_EQ(kAccountKeys(U' '), std::nullopt);
}

TEST(KeyFilter, OfNewSharesTakesTheMinus) {
    EXPECT_EQ(AllPassing(kNewSharesKeys), U",-0123456789");
    EXPECT_EQ(kNewSharesKeys(U'.'), U',');
}

TEST(KeyFilter, OfThePercentCalculatorDropsTheMinus) {
    EXPECT_EQ(AllPassing(kPercentKeys), U",0123456789");
    EXPECT_EQ(kPercentKeys(U'.'), U',');
    EXPECT_EQ(kPercentKeys(U'-'), std::nullopt);
}

TEST(Indexed, CountsFromItsFirstElement) {
    Indexed<int, 1, 6> labels;
    EXPECT_EQ(labels.size(), 6U);
    labels[1] = 10;
    labels[6] = 60;
    EXPECT_EQ(*labels.begin(), 10);
    EXPECT_EQ(labels[6], 60);
    EXPECT_EQ(labels[2], 0);
}

TEST(Indexed, RefusesAnIndexOutside) {
    Indexed<int, 1, 6> labels;
    for (const int index : {0, 7, -1}) {
        Skipping skip;
        skip([&] { labels[index] = 1; });
        EXPECT_EQ(skip.Number(), ErrorNumber::SubscriptOutOfRange) << index;
    }
    const Indexed<int, 0, 9> data;
    EXPECT_EQ(data[0], 0);
    EXPECT_EQ(data[9], 0);
    EXPECT_THROW(static_cast<void>(data[10]), Error);
}

}  // namespace
