#include "base/text.h"

#include "base/codepage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using ::testing::ElementsAre;

TEST(Text, IsCountedByCharacter) {
    EXPECT_EQ(Length(""), 0U);
    EXPECT_EQ(Length("Fond"), 4U);
    EXPECT_EQ(Length("åäö€"), 4U);
    EXPECT_EQ(Length("\xF0\x9F\x98\x80"), 1U);
}

TEST(Text, IsCutByCharacter) {
    EXPECT_EQ(Left("Räntefond", 2), "Rä");
    EXPECT_EQ(Left("Räntefond", 99), "Räntefond");
    EXPECT_EQ(Left("Räntefond", 0), "");
    EXPECT_EQ(Right("fondrå", 2), "rå");
    EXPECT_EQ(Right("rå", 5), "rå");
    EXPECT_EQ(Mid("Räntefond", 1, 3), "änt");
    EXPECT_EQ(Mid("Räntefond", 5), "fond");
    EXPECT_EQ(Mid("Ränta", 9), "");
}

TEST(Text, CountsAnInvalidByteAsOneCharacter) {
    EXPECT_EQ(Length("a\xFF"
                     "b"),
              3U);
    EXPECT_EQ(Length("\xC3"), 1U);
    EXPECT_EQ(Length("\xC0\xAF"), 2U);
    EXPECT_EQ(Length("\xED\xA0\x80"), 3U);
    EXPECT_EQ(Left("a\xFF"
                   "b",
                   2),
              "a\xFF");
    EXPECT_EQ(ToUtf8(ToCodePoints("a\xFF")), "a\xEF\xBF\xBD");
}

TEST(Split, GivesOnePieceMoreThanSeparators) {
    EXPECT_THAT(Split("15/-10", "/"), ElementsAre("15", "-10"));
    EXPECT_THAT(Split("", "/"), ElementsAre(""));
    EXPECT_THAT(Split("/", "/"), ElementsAre("", ""));
    EXPECT_THAT(Split("1.2.", "."), ElementsAre("1", "2", ""));
    EXPECT_THAT(Split("a¶b¶", "¶"), ElementsAre("a", "b", ""));
}

TEST(Join, PutsTheSeparatorBetween) {
    EXPECT_EQ(Join({"1", "2", "3"}, "."), "1.2.3");
    EXPECT_EQ(Join({"1"}, "."), "1");
    EXPECT_EQ(Join({}, "."), "");
}

TEST(Trim, TakesBlanksAtBothEndsOnly) {
    EXPECT_EQ(Trim("  Konto A  "), "Konto A");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
    EXPECT_EQ(Trim("\ta"), "\ta");
}

TEST(ProperCase, RaisesTheFirstLetterOfEveryWord) {
    EXPECT_EQ(ProperCase("måndag 16 november 2026"), "Måndag 16 November 2026");
    EXPECT_EQ(ProperCase("åsa ÄLG öSTEN"), "Åsa Älg Östen");
    EXPECT_EQ(ProperCase("éN x÷y"), "Én X÷y");
    EXPECT_EQ(ProperCase(""), "");
}

TEST(LowerCase, KnowsSwedishLetters) {
    EXPECT_EQ(LowerCase("ÅSA Älg ÖÉ × 12"), "åsa älg öé × 12");
}

TEST(CodePage, CarriesSwedishTextThereAndBack) {
    EXPECT_EQ(EncodeCp1252("Räksmörgås ¶ é"), "R\xE4ksm\xF6rg\xE5s \xB6 \xE9");
    EXPECT_EQ(DecodeCp1252("R\xE4ksm\xF6rg\xE5s"), "Räksmörgås");
    EXPECT_EQ(EncodeCp1252("€ – ”"), "\x80 \x96 \x94");
}

TEST(CodePage, CarriesEveryByteThereAndBack) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    EXPECT_EQ(EncodeCp1252(DecodeCp1252(bytes)), bytes);
}

TEST(CodePage, WritesAQuestionMarkForWhatItLacks) {
    EXPECT_EQ(EncodeCp1252("\xCE\xB1"), "?");
    EXPECT_EQ(EncodeCp1252("\xFF"), "?");
}

}  // namespace
