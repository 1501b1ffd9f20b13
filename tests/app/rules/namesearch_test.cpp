#include "app/rules/namesearch.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace {

const std::vector<std::string> kLines = {" 1. Aktie Sverige", " 2. Granbarr", " 8. Granvassa",
                                         "10. Östersjön", "12. 175 Största"};

std::optional<std::size_t> Found(std::vector<std::string> letters, std::size_t start) {
    NameSearch search;
    std::uint64_t time = 5000;
    for (const std::string& letter : letters) search.Type(letter, time += 300);
    return search.Find(kLines, start);
}

TEST(NameSearch, FindsAFundByItsNameNotByItsNumber) {
    EXPECT_EQ(Found({"A"}, 3), 0U);
    EXPECT_EQ(Found({"g"}, 0), 1U);
    EXPECT_EQ(Found({"ö"}, 0), 3U);
    EXPECT_EQ(Found({"8"}, 0), std::nullopt);
    EXPECT_EQ(Found({"x"}, 0), std::nullopt);
}

TEST(NameSearch, LettersOneAfterAnotherAreOneName) {
    EXPECT_EQ(Found({"g", "r", "a", "n", "v"}, 1), 2U);
    EXPECT_EQ(Found({"G", "R", "A"}, 1), 1U) << "the line one stands on";
    EXPECT_EQ(Found({"g", "r", "x"}, 1), std::nullopt);
}

TEST(NameSearch, OneLetterAgainAndAgainGoesThroughTheNames) {
    EXPECT_EQ(Found({"g"}, 2), 2U);
    EXPECT_EQ(Found({"g", "g"}, 3), 1U);
    NameSearch search;
    search.Type("g", 5000);
    EXPECT_FALSE(search.MayStay());
    search.Type("g", 5300);
    EXPECT_FALSE(search.MayStay());
    search.Type("r", 5600);
    EXPECT_TRUE(search.MayStay());
}

TEST(NameSearch, AfterAPauseANewNameBegins) {
    NameSearch search;
    search.Type("g", 5000);
    search.Type("a", 7000);
    EXPECT_EQ(search.Find(kLines, 1), 0U);
    EXPECT_FALSE(search.MayStay());
}

TEST(NameSearch, FindsNothingInAnEmptyList) {
    NameSearch search;
    search.Type("g", 5000);
    EXPECT_EQ(search.Find({}, 0), std::nullopt);
}

}  // namespace
