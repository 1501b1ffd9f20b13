#include "jet/table/convert.h"

#include "jet/error.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace jet::detail {
namespace {

ColumnDesign Of(ColumnType type, std::uint16_t size = 0) {
    ColumnDesign column;
    column.name = "c";
    column.type = type;
    column.size = size;
    return column;
}

ColumnDesign NumericOf(std::uint8_t precision, std::uint8_t scale) {
    ColumnDesign column = Of(ColumnType::Numeric);
    column.precision = precision;
    column.scale = scale;
    return column;
}

ErrorNumber FailureOf(const Value& value, const ColumnDesign& column) {
    try {
        ConvertTo(value, column);
    } catch (const Error& error) {
        return error.Number();
    }
    return ErrorNumber::None;
}

struct Conversion {
    Value given;
    ColumnDesign column;
    Value stored;
};

TEST(Convert, GivesTheColumnsOwnType) {
    const std::vector<Conversion> rows = {
        {Value(std::int32_t{5}), Of(ColumnType::Byte), Value(std::uint8_t{5})},
        {Value(2.5), Of(ColumnType::Integer), Value(std::int16_t{2})},
        {Value("46000"), Of(ColumnType::Long), Value(std::int32_t{46000})},
        {Value(" 3,5 "), Of(ColumnType::Long), Value(std::int32_t{4})},
        {Value(true), Of(ColumnType::Long), Value(std::int32_t{-1})},
        {Value("12,50"), Of(ColumnType::Currency), Value(Currency{125000})},
        {Value(0.1f), Of(ColumnType::Currency), Value(Currency{1000})},
        {Value("0.00005"), Of(ColumnType::Currency), Value(Currency{0})},
        {Value("0.00015"), Of(ColumnType::Currency), Value(Currency{2})},
        {Value("1e3"), Of(ColumnType::Currency), Value(Currency{10000000})},
        {Value("195,55"), Of(ColumnType::Single), Value(195.55f)},
        {Value(195.55), Of(ColumnType::Single), Value(195.55f)},
        {Value(0.1f), Of(ColumnType::Double), Value(0.1)},
        {Value(std::int32_t{7}), Of(ColumnType::Double), Value(7.0)},
        {Value(std::int32_t{36526}), Of(ColumnType::Date), Value(Date{36526})},
        {Value("2000-01-01"), Of(ColumnType::Date), Value(Date{36526})},
        {Value("36526,5"), Of(ColumnType::Date), Value(Date{36526.5})},
        {Value(std::int32_t{1}), Of(ColumnType::Boolean), Value(true)},
        {Value("false"), Of(ColumnType::Boolean), Value(false)},
        {Value(std::int32_t{12}), Of(ColumnType::Text, 5), Value("12")},
        {Value(0.5f), Of(ColumnType::Memo), Value("0.5")},
        {Value("123,455"), NumericOf(18, 2), Value(Numeric{false, {0, 0, 0, 12346}, 2})},
        {Value("-0,001"), NumericOf(18, 2), Value(Numeric{false, {0, 0, 0, 0}, 2})},
        {Value(Bytes{1, 2}), Of(ColumnType::Binary, 2), Value(Bytes{1, 2})},
        {Value("{00112233-4455-6677-8899-AABBCCDDEEFF}"), Of(ColumnType::Guid),
         Value(Guid{{0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xAA, 0xBB, 0xCC,
                     0xDD, 0xEE, 0xFF}})},
    };
    for (const Conversion& row : rows) {
        EXPECT_EQ(ConvertTo(row.given, row.column), row.stored) << row.given.Text();
    }
}

TEST(Convert, KeepsNullButForTruth) {
    for (const ColumnType type :
         {ColumnType::Long, ColumnType::Text, ColumnType::Date, ColumnType::Ole}) {
        EXPECT_TRUE(ConvertTo(Value(), Of(type)).IsNull());
    }
    EXPECT_EQ(ConvertTo(Value(), Of(ColumnType::Boolean)), Value(false));
}

TEST(Convert, RefusesWhatIsNothingOfThatKind) {
    for (const ColumnType type :
         {ColumnType::Byte, ColumnType::Long, ColumnType::Currency, ColumnType::Single,
          ColumnType::Double, ColumnType::Date, ColumnType::Boolean, ColumnType::Guid,
          ColumnType::Numeric, ColumnType::Binary, ColumnType::Ole}) {
        EXPECT_EQ(FailureOf(Value("kronor"), Of(type, 20)), ErrorNumber::TypeMismatch);
        EXPECT_EQ(FailureOf(Value(""), Of(type, 20)), ErrorNumber::TypeMismatch);
    }
    EXPECT_EQ(FailureOf(Value(Bytes{1}), Of(ColumnType::Double)), ErrorNumber::TypeMismatch);
}

TEST(Convert, RefusesNumbersThatDoNotFit) {
    EXPECT_EQ(FailureOf(Value(std::int32_t{256}), Of(ColumnType::Byte)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value(std::int32_t{-1}), Of(ColumnType::Byte)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value(32767.5), Of(ColumnType::Integer)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value("2147483648"), Of(ColumnType::Long)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value("922337203685477.5808"), Of(ColumnType::Currency)),
              ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value(1e39), Of(ColumnType::Single)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value("1e999"), Of(ColumnType::Double)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value(3e6), Of(ColumnType::Date)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value("1000"), NumericOf(4, 2)), ErrorNumber::Overflow);
    EXPECT_EQ(FailureOf(Value("1e28"), NumericOf(28, 0)), ErrorNumber::Overflow);
}

TEST(Convert, CountsCharactersAndNotBytes) {
    EXPECT_EQ(ConvertTo(Value("åäö"), Of(ColumnType::Text, 3)), Value("åäö"));
    EXPECT_EQ(FailureOf(Value("åäöx"), Of(ColumnType::Text, 3)), ErrorNumber::FieldTooLong);
    EXPECT_EQ(FailureOf(Value(Bytes{1, 2, 3}), Of(ColumnType::Binary, 2)),
              ErrorNumber::FieldTooLong);
}

TEST(Utf16Length, CountsAPairForCharactersBeyondTheFirstPlane) {
    EXPECT_EQ(Utf16Length("aå€"), 3U);
    EXPECT_EQ(Utf16Length("😀"), 2U);
}

TEST(DateText, IsReadInItsThreeSpellings) {
    for (const char* text : {"2000-12-31", "00-12-31", "00/12/31", "2000/12/31", " 2000-12-31 "}) {
        const auto date = ParseDate(text);
        ASSERT_TRUE(date) << text;
        EXPECT_EQ(date->serial, 36891) << text;
    }
}

TEST(DateText, OfTwoDigitsIsOneOf1930To2029) {
    EXPECT_EQ(ParseDate("29-01-01"), ParseDate("2029-01-01"));
    EXPECT_EQ(ParseDate("30-01-01"), ParseDate("1930-01-01"));
}

TEST(DateText, MayHaveATime) {
    EXPECT_EQ(ParseDate("2000-01-01 06:00")->serial, 36526.25);
    EXPECT_EQ(ParseDate("1899-12-29 06:00:00")->serial, -1.25);
}

TEST(DateText, OfNoDayIsNone) {
    for (const char* text :
         {"", "2000", "2000-13-01", "2001-02-29", "2000-12-31x", "2000-12/31", "31-12-2000",
          "2000-12-31 24:00", "2000-12-31 10", "20001231", "0099-01-01", "-01-01-01"}) {
        EXPECT_FALSE(ParseDate(text)) << text;
    }
}

TEST(GuidText, MustBeWhole) {
    EXPECT_TRUE(ParseGuid("00112233-4455-6677-8899-aabbccddeeff"));
    for (const char* text :
         {"", "{}", "{00112233-4455-6677-8899-AABBCCDDEEF}",
          "{00112233-4455-6677-8899-AABBCCDDEEFG}", "{0011223344556677-8899-AABBCCDDEEFF0}"}) {
        EXPECT_FALSE(ParseGuid(text)) << text;
    }
}

}  // namespace
}  // namespace jet::detail
