#include "jet/index/indexkey.h"

#include "jet/error.h"

#include <gtest/gtest.h>
#include <string>

namespace jet::detail {
namespace {

std::string Hex(const std::optional<Bytes>& bytes) {
    if (!bytes) return "unknown";
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (std::uint8_t byte : *bytes) {
        if (!text.empty()) text += ' ';
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

KeyColumn Ascending(ColumnType type) {
    return {type, false, TextOrder::Unknown};
}
KeyColumn Descending(ColumnType type) {
    return {type, true, TextOrder::Unknown};
}
KeyColumn Text97(bool descending = false) {
    return {ColumnType::Text, descending, TextOrder::General97};
}
KeyColumn Text4(bool descending = false) {
    return {ColumnType::Text, descending, TextOrder::General};
}

struct PlainCase {
    const char* name;
    Value value;
    KeyColumn column;
    const char* key;
};

void PrintTo(const PlainCase& tested, std::ostream* out) {
    *out << tested.name;
}

class PlainKey : public testing::TestWithParam<PlainCase> {};

TEST_P(PlainKey, HasTheBytesOfRealFiles) {
    const auto& [name, value, column, key] = GetParam();
    EXPECT_EQ(Hex(EncodeKey(value, column)), key) << name;
}

const Numeric kOneAndAHalf{false, {0, 0, 0, 15}, 1};
const Numeric kMinusOne{true, {0, 0, 0, 1}, 0};

INSTANTIATE_TEST_SUITE_P(
    Types, PlainKey,
    testing::Values(
        PlainCase{"long", std::int32_t{2}, Ascending(ColumnType::Long), "7F 80 00 00 02"},
        PlainCase{"negative long", std::int32_t{-1}, Ascending(ColumnType::Long), "7F 7F FF FF FF"},
        PlainCase{"large long", std::int32_t{16777217}, Ascending(ColumnType::Long),
                  "7F 81 00 00 01"},
        PlainCase{"long down", std::int32_t{20}, Descending(ColumnType::Long), "80 7F FF FF EB"},
        PlainCase{"integer", std::int16_t{-2}, Ascending(ColumnType::Integer), "7F 7F FE"},
        PlainCase{"integer down", std::int16_t{1}, Descending(ColumnType::Integer), "80 7F FE"},
        PlainCase{"byte", std::uint8_t{200}, Ascending(ColumnType::Byte), "7F C8"},
        PlainCase{"byte down", std::uint8_t{200}, Descending(ColumnType::Byte), "80 37"},
        PlainCase{"currency", Currency{-1}, Ascending(ColumnType::Currency),
                  "7F 7F FF FF FF FF FF FF FF"},
        PlainCase{"double", 35000.0, Ascending(ColumnType::Double), "7F C0 E1 17 00 00 00 00 00"},
        PlainCase{"date", Date{35000.0}, Ascending(ColumnType::Date), "7F C0 E1 17 00 00 00 00 00"},
        PlainCase{"negative double", -1.0, Ascending(ColumnType::Double),
                  "7F 40 0F FF FF FF FF FF FF"},
        PlainCase{"double down", -1.0, Descending(ColumnType::Double),
                  "80 BF F0 00 00 00 00 00 00"},
        PlainCase{"single", 1.0F, Ascending(ColumnType::Single), "7F BF 80 00 00"},
        PlainCase{"true", true, Ascending(ColumnType::Boolean), "7F 00"},
        PlainCase{"false", false, Ascending(ColumnType::Boolean), "7F FF"},
        PlainCase{"true down", true, Descending(ColumnType::Boolean), "80 FF"},
        PlainCase{"false down", false, Descending(ColumnType::Boolean), "80 00"},
        PlainCase{"null", Value(), Ascending(ColumnType::Long), "00"},
        PlainCase{"null down", Value(), Descending(ColumnType::Text), "FF"},
        PlainCase{"null text of any collation", Value(), Ascending(ColumnType::Text), "00"},
        PlainCase{"binary", Bytes{0, 0, 0, 1}, Ascending(ColumnType::Binary),
                  "7F 00 00 00 01 00 00 00 00 04"},
        PlainCase{"empty binary", Bytes{}, Ascending(ColumnType::Binary), "7F"},
        PlainCase{"full block", Bytes{1, 2, 3, 4, 5, 6, 7, 8}, Ascending(ColumnType::Binary),
                  "7F 01 02 03 04 05 06 07 08 08"},
        PlainCase{"two blocks", Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9}, Ascending(ColumnType::Binary),
                  "7F 01 02 03 04 05 06 07 08 09 09 00 00 00 00 00 00 00 01"},
        PlainCase{"two blocks down", Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9},
                  Descending(ColumnType::Binary),
                  "80 FE FD FC FB FA F9 F8 F7 09 F6 FF FF FF FF FF FF FF FE"},
        PlainCase{"guid", Guid{{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}},
                  Ascending(ColumnType::Guid),
                  "7F 01 02 03 04 05 06 07 08 09 09 0A 0B 0C 0D 0E 0F 10 08"},
        PlainCase{"numeric", kOneAndAHalf, Ascending(ColumnType::Numeric),
                  "7F FF 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 0F"},
        PlainCase{"negative numeric", kMinusOne, Ascending(ColumnType::Numeric),
                  "7F 00 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FE"},
        PlainCase{"numeric down", kOneAndAHalf, Descending(ColumnType::Numeric),
                  "80 FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF F0"},
        PlainCase{"negative numeric down", kMinusOne, Descending(ColumnType::Numeric),
                  "80 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01"}));

struct TextCase {
    const char* text;
    const char* key;
};

void PrintTo(const TextCase& tested, std::ostream* out) {
    *out << "\"" << tested.text << "\"";
}

class NewerTextKey : public testing::TestWithParam<TextCase> {};

TEST_P(NewerTextKey, HasTheBytesOfRealFiles) {
    EXPECT_EQ(Hex(EncodeKey(GetParam().text, Text4())), GetParam().key) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Jet4, NewerTextKey,
    testing::Values(
        TextCase{"Tables", "7F 6D 4A 4C 5E 51 6B 01 00"},
        TextCase{"only ascii chars", "7F 64 62 5E 76 07 4A 6B 4D 59 59 07 4D 57 4A 69 6B 01 00"},
        TextCase{"ääkkösiä", "7F 4A 4A 5C 5C 64 6B 59 4A 01 13 13 02 02 13 02 02 13 00"},
        TextCase{"ümlaut", "7F 6F 60 5E 4A 6F 6D 01 13 00"},
        TextCase{"O'Brien", "7F 64 4C 69 59 51 62 01 01 01 01 80 0B 06 80 00"},
        TextCase{"Älg-Öst", "7F 4A 5E 55 64 6B 6D 01 13 02 02 13 01 01 01 80 13 06 82 00"},
        TextCase{"249 995", "7F 3A 3E 48 07 48 48 40 01 00"}, TextCase{"", "7F 01 00"},
        TextCase{"   ", "7F 01 00"}, TextCase{"-", "7F 01 01 01 01 80 07 06 82 00"},
        TextCase{"åÅ", "7F 4A 4A 01 1A 1A 00"}, TextCase{"ß", "7F 6B 6B 01 00"},
        TextCase{"ßé", "7F 6B 6B 51 01 02 0E 00"}, TextCase{"€", "7F 35 A1 01 00"},
        TextCase{"™", "7F 6E 04 01 00"}, TextCase{"ª", "7F 4A 01 03 00"}));

class OlderTextKey : public testing::TestWithParam<TextCase> {};

TEST_P(OlderTextKey, HasTheBytesOfRealFiles) {
    EXPECT_EQ(Hex(EncodeKey(GetParam().text, Text97())), GetParam().key) << GetParam().text;
}

INSTANTIATE_TEST_SUITE_P(
    Jet3, OlderTextKey,
    testing::Values(
        TextCase{"Luleå", "7F 6D 78 6D 66 60 02 28 00"},
        TextCase{"Bräcke", "7F 61 75 60 62 6C 66 06 00"},
        TextCase{"Folk och fä HB", "7F 67 72 6D 6C 11 72 62 69 11 67 60 11 69 61 02 22 60"},
        TextCase{"Svensk Sjöföda AB",
                 "7F 76 7A 66 70 76 6C 11 76 6B 72 67 72 64 60 11 60 61 "
                 "02 22 22 66 00"},
        TextCase{"Plutzer Lebensmittelgroßmärkte AG",
                 "7F 73 6D 78 77 7E 66 75 11 6D 66 61 66 70 76 6F 6A 77 77 66 6D 68 75 72 76 76 6F "
                 "60 75 6C 77 66 11 60 68 02 22 22 22 22 22 60"},
        TextCase{"åäö", "7F 60 60 72 08 66 00"}, TextCase{"", "7F 00"}, TextCase{"a ", "7F 60 00"},
        TextCase{"-'", "7F 1E 18 00"}, TextCase{"Ø", "7F 81 00"}, TextCase{"€", "7F 10 00"}));

TEST(TextKey, IgnoresLetterCaseAndBlanksAtTheEnd) {
    for (const KeyColumn& column : {Text97(), Text4()}) {
        EXPECT_EQ(EncodeKey("Abc", column), EncodeKey("aBC  ", column));
    }
}

TEST(TextKey, DescendingTurnsTheOlderFormAndNothingMore) {
    EXPECT_EQ(Hex(EncodeKey("Luleå", Text97(true))), "80 92 87 92 99 9F FD D7 FF");
}

TEST(TextKey, DescendingTurnsTheNewerFormAndAddsAZero) {
    EXPECT_EQ(Hex(EncodeKey("Tables", Text4(true))), "80 92 B5 B3 A1 AE 94 FE FF 00");
}

TEST(TextKey, StopsAfter255Characters) {
    const std::string longest(255, 'x');
    for (const KeyColumn& column : {Text97(), Text4()}) {
        EXPECT_EQ(EncodeKey(longest, column), EncodeKey(longest + "yz", column));
    }
}

TEST(TextKey, OfAnUnknownCollationIsNotGuessed) {
    EXPECT_EQ(EncodeKey("abc", Ascending(ColumnType::Text)), std::nullopt);
}

TEST(TextKey, OfACharacterWithoutWeightIsNotGuessed) {
    EXPECT_EQ(EncodeKey("αβγ", Text4()), std::nullopt);
    EXPECT_EQ(EncodeKey("αβγ", Text97()), std::nullopt);
    EXPECT_EQ(EncodeKey("abγ", Text4()), std::nullopt);
}

TEST(TextKey, OfBytesThatAreNoTextIsNotGuessed) {
    for (const char* broken : {"\xC3", "\xFF", "a\xC3z", "\xE2\x82"}) {
        EXPECT_EQ(EncodeKey(broken, Text4()), std::nullopt);
        EXPECT_EQ(EncodeKey(broken, Text97()), std::nullopt);
    }
}

TEST(Key, OfSeveralColumnsIsTheirKeysInOrder) {
    const Value values[] = {std::int32_t{1}, "a", Value()};
    const KeyColumn columns[] = {Ascending(ColumnType::Long), Text4(),
                                 Descending(ColumnType::Double)};
    EXPECT_EQ(Hex(EncodeKey(values, columns)), "7F 80 00 00 01 7F 4A 01 00 FF");
}

TEST(Key, OfAnUnindexableTypeIsUnknown) {
    EXPECT_FALSE(Indexable(ColumnType::Ole));
    EXPECT_EQ(EncodeKey(Bytes{1}, Ascending(ColumnType::Ole)), std::nullopt);
}

TEST(Key, RefusesAValueOfAnotherType) {
    EXPECT_THROW(EncodeKey("1", Ascending(ColumnType::Long)), Error);
}

TEST(Key, OrdersNumbersAsNumbers) {
    const double values[] = {-1e300, -2.5, -1.0, -0.25, 0.0, 0.25, 1.0, 3.0, 1e300};
    for (std::size_t i = 1; i < std::size(values); ++i) {
        EXPECT_LT(EncodeKey(values[i - 1], Ascending(ColumnType::Double)),
                  EncodeKey(values[i], Ascending(ColumnType::Double)));
        EXPECT_GT(EncodeKey(values[i - 1], Descending(ColumnType::Double)),
                  EncodeKey(values[i], Descending(ColumnType::Double)));
    }
}

}  // namespace
}  // namespace jet::detail
