#include "jet/table/textcodec.h"

#include "jet/error.h"
#include "jet/table/names.h"

#include <gtest/gtest.h>

namespace {

using namespace jet::detail;
using jet::Error;
using Stored = std::vector<std::uint8_t>;

constexpr TextForm kWide{2, 1252}, kNarrow{1, 1252};

TEST(TextCodec, CompressesThreeCharactersAndMore) {
    EXPECT_EQ(EncodeCompressed(kWide, "abc"), (Stored{0xFF, 0xFE, 'a', 'b', 'c'}));
    EXPECT_EQ(EncodeCompressed(kWide, "åäö"), (Stored{0xFF, 0xFE, 0xE5, 0xE4, 0xF6}));
    EXPECT_EQ(EncodeCompressed(kWide, "ab"), (Stored{'a', 0, 'b', 0}));
    EXPECT_EQ(EncodeCompressed(kWide, ""), Stored{});
}

TEST(TextCodec, LeavesTextWithCharactersAboveTheFirst256Plain) {
    EXPECT_EQ(EncodeCompressed(kWide, "ab€"), (Stored{'a', 0, 'b', 0, 0xAC, 0x20}));
}

TEST(TextCodec, ReadsBothFormsWhateverTheColumn) {
    EXPECT_EQ(DecodeText(kWide, Stored{0xFF, 0xFE, 0xE5, 'b'}), "åb");
    EXPECT_EQ(DecodeText(kWide, Stored{0xE5, 0, 'b', 0}), "åb");
}

TEST(TextCodec, FollowsTheSwitchesOfCompressedText) {
    const Stored switching{0xFF, 0xFE, 'a', 0, 0xAC, 0x20, 0, 'b'};
    EXPECT_EQ(DecodeText(kWide, switching), "a€b");
}

TEST(TextCodec, DropsHalfACharacterAtTheEnd) {
    EXPECT_EQ(DecodeText(kWide, Stored{'a', 0, 'b'}), "a");
}

TEST(TextCodec, ShowsALoneSurrogateAsReplacement) {
    EXPECT_EQ(DecodeText(kWide, Stored{0x00, 0xD8, 'b', 0}),
              "\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(DecodeText(kWide, Stored{'a', 0, 0x00, 0xDC}), "a\xEF\xBF\xBD");
}

TEST(TextCodec, KeepsCharactersBeyondTheBasicPlane) {
    const std::string face = "\xF0\x9F\x98\x80";
    EXPECT_EQ(DecodeText(kWide, EncodeText(kWide, face)), face);
    EXPECT_EQ(StoredLength(kWide, EncodeText(kWide, face)), 2u);
}

TEST(TextCodec, RefusesAByteOrderMarkInFront) {
    EXPECT_THROW(EncodeText(kWide,
                            "\xEF\xBB\xBF"
                            "a"),
                 Error);
    EXPECT_EQ(EncodeText(kWide, "a\xEF\xBB\xBF").size(), 4u);
}

TEST(TextCodec, RefusesBrokenUtf8) {
    for (const char* broken :
         {"\xC3", "\x80", "\xE5\xE4", "\xF5\x80\x80\x80", "\xED\xA0\x80", "\xC0\x80"}) {
        EXPECT_THROW(EncodeText(kWide, broken), Error) << broken;
    }
}

TEST(TextCodec, EveryByteOfTheCodePageSurvives) {
    for (unsigned byte = 1; byte < 256; ++byte) {
        const Stored stored{static_cast<std::uint8_t>(byte)};
        EXPECT_EQ(EncodeText(kNarrow, DecodeText(kNarrow, stored)), stored) << byte;
    }
}

TEST(TextCodec, RefusesACharacterOutsideTheCodePage) {
    EXPECT_THROW(EncodeText(kNarrow, "Ω"), Error);
    EXPECT_EQ(EncodeText(kNarrow, "€"), Stored{0x80});
}

TEST(TextCodec, ReadsAndWritesTheFilesOwnCodePage) {
    struct Case {
        std::uint16_t codePage;
        const char* text;
        Stored stored;
    };
    const std::vector<Case> cases{{1250, "Żółw", {0xAF, 0xF3, 0xB3, 0x77}},
                                  {1251, "Фонд", {0xD4, 0xEE, 0xED, 0xE4}},
                                  {1253, "Ω€", {0xD9, 0x80}},
                                  {1254, "ığş", {0xFD, 0xF0, 0xFE}},
                                  {1255, "שלום", {0xF9, 0xEC, 0xE5, 0xED}},
                                  {1257, "ąž", {0xE0, 0xFE}},
                                  {1258, "đơ", {0xF0, 0xF5}},
                                  {874, "กข", {0xA1, 0xA2}}};
    for (const auto& [codePage, text, stored] : cases) {
        const TextForm form{1, codePage};
        EXPECT_EQ(DecodeText(form, stored), text) << codePage;
        EXPECT_EQ(EncodeText(form, text), stored) << codePage;
        EXPECT_THROW(EncodeText(form, "日"), Error) << codePage;
    }
}

TEST(TextCodec, EveryByteOfEveryCodePageSurvives) {
    for (const std::uint16_t codePage : {874, 1250, 1251, 1253, 1254, 1255, 1256, 1257, 1258}) {
        for (unsigned byte = 1; byte < 256; ++byte) {
            const TextForm form{1, codePage};
            const Stored stored{static_cast<std::uint8_t>(byte)};
            EXPECT_EQ(EncodeText(form, DecodeText(form, stored)), stored)
                << codePage << " " << byte;
        }
    }
}

TEST(TextCodec, WritesOnlyAsciiInACodePageItDoesNotKnow) {
    const TextForm japanese{1, 932};
    EXPECT_EQ(EncodeText(japanese, "abc").size(), 3u);
    EXPECT_THROW(EncodeText(japanese, "å"), Error);
    EXPECT_EQ(DecodeText(japanese, Stored{0xE5}), "å");
}

TEST(Names, CompareWithoutLetterCase) {
    EXPECT_TRUE(SameName("Fondandelar", "FONDANDELAR"));
    EXPECT_TRUE(SameName("VärdeKr", "VÄRDEKR"));
    EXPECT_TRUE(SameName("Ångström Ÿ", "ångström ÿ"));
    EXPECT_FALSE(SameName("VärdeKr", "VardeKr"));
    EXPECT_FALSE(SameName("a", "ab"));
}

}  // namespace
