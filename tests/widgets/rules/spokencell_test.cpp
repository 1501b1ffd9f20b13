#include "widgets/rules/spokencell.h"

#include <gtest/gtest.h>

namespace {

TEST(SpokenCell, IsItsColumnAndItsText) {
    EXPECT_EQ(SpokenCell("Kurs Kr  ", "121,50"), "Kurs Kr: 121,50");
    EXPECT_EQ(SpokenCell("          Fond", " Asp "), "Fond: Asp");
    EXPECT_EQ(SpokenCell("Fond Nr", ""), "Fond Nr: tom");
    EXPECT_EQ(SpokenCell("", "Asp"), "Asp");
    EXPECT_EQ(SpokenCell("", " "), "tom");
}

TEST(SpokenCell, StandsInARowOfSoMany) {
    EXPECT_EQ(SpokenRow(0, 10), "rad 1 av 10");
    EXPECT_EQ(SpokenRow(9, 10), "rad 10 av 10");
    EXPECT_EQ(SpokenRow(10, 10), "ny rad");
    EXPECT_EQ(SpokenRow(0, 0), "ny rad");
}

TEST(SpokenCell, PartsThatAreEmptyAreNotSaid) {
    EXPECT_EQ(SpokenParts({"Asp", "", "rad 1 av 2", "låst"}), "Asp, rad 1 av 2, låst");
    EXPECT_EQ(SpokenParts({"", ""}), "");
}

}  // namespace
