#include "app/rules/mnemonics.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using Captions = std::vector<std::string>;

TEST(Mnemonics, FirstLetterOfAWordIsTakenWhereItIsFree) {
    EXPECT_EQ(WithMnemonics({"Ny Fondfil", "Öppna", "Nytt Namn", "ofta"}),
              (Captions{"&Ny Fondfil", "&Öppna", "N&ytt Namn", "&ofta"}));
}

TEST(Mnemonics, WordsAfterTheFirstComeBeforeTheLettersInside) {
    EXPECT_EQ(WithMnemonics({"Visa Vecka", "Visa Månad"}),
              (Captions{"&Visa Vecka", "Visa &Månad"}));
}

TEST(Mnemonics, CaseDoesNotMakeALetterFree) {
    EXPECT_EQ(WithMnemonics({"å", "Å b"}), (Captions{"&å", "Å &b"}));
}

TEST(Mnemonics, MarkedCaptionsKeepTheirLetterAndTakeIt) {
    EXPECT_EQ(WithMnemonics({"Arkiv", "B&a"}), (Captions{"A&rkiv", "B&a"}));
}

TEST(Mnemonics, CaptionWithoutAFreeLetterStays) {
    EXPECT_EQ(WithMnemonics({"a", "a", "", "12"}), (Captions{"&a", "a", "", "12"}));
}

TEST(Mnemonics, OfANumberedCaptionIsItsNumber) {
    EXPECT_EQ(WithMnemonics({"Nej", "1  Ny", "2  ", "3 a", "&4  d", "12  a"}),
              (Captions{"&Nej", "&1  Ny", "&2  ", "3 &a", "&4  d", "12  a"}));
    EXPECT_EQ(WithoutMnemonic("&1  A&&B"), "1  A&&B");
}

TEST(Mnemonics, AreNoneWhereTwoMarksStandForOne) {
    EXPECT_EQ(WithMnemonics({"A&&B"}), (Captions{"&A&&B"}));
    EXPECT_EQ(WithMnemonics({"A&&B&c", "C"}), (Captions{"A&&B&c", "C"}));
    EXPECT_EQ(WithoutMnemonic("&A&&B"), "A&&B");
    EXPECT_EQ(WithoutMnemonic("A&&&B"), "A&&B");
}

TEST(Mnemonics, CanBeTakenAwayAgain) {
    EXPECT_EQ(WithoutMnemonic("&Öppna"), "Öppna");
    EXPECT_EQ(WithoutMnemonic("Öppna"), "Öppna");
}
