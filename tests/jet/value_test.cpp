#include "jet/value.h"

#include "jet/error.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace jet {
namespace {

template <typename Work>
ErrorNumber FailureOf(Work work) {
    try {
        work();
    } catch (const Error& error) {
        return error.Number();
    }
    return ErrorNumber::None;
}

TEST(ValueText, ShowsEveryTypePlainly) {
    const std::vector<std::pair<Value, std::string>> rows = {
        {Value(), ""},
        {Value(true), "True"},
        {Value(false), "False"},
        {Value(std::uint8_t{200}), "200"},
        {Value(std::int16_t{-300}), "-300"},
        {Value(std::int32_t{-2147483647 - 1}), "-2147483648"},
        {Value(Currency{125000}), "12.5"},
        {Value(Currency{-1}), "-0.0001"},
        {Value(Currency{120000}), "12"},
        {Value(Currency{std::numeric_limits<std::int64_t>::min()}), "-922337203685477.5808"},
        {Value("Åsa's fond "), "Åsa's fond "},
        {Value(Bytes{0x00, 0xAB, 0x10}), "0x00AB10"},
        {Value(Numeric{true, {0, 0, 0, 12345}, 2}), "-123.45"},
        {Value(Numeric{false, {0, 0, 0, 5}, 3}), "0.005"},
        {Value(Numeric{false, {0, 0, 1, 0}, 0}), "4294967296"},
        {Value(Numeric{false, {0, 0, 0, 1000}, 3}), "1"},
    };
    for (const auto& [value, text] : rows) EXPECT_EQ(value.Text(), text);
}

TEST(ValueText, OfASingleHasNoDigitsOfItsDouble) {
    EXPECT_EQ(Value(0.1f).Text(), "0.1");
    EXPECT_EQ(Value(195.55f).Text(), "195.55");
    EXPECT_EQ(Value(1000000.0f).Text(), "1000000");
    EXPECT_EQ(Value(16777216.0f).Text(), "16777216");
    EXPECT_EQ(Value(1e-7f).Text(), "0.0000001");
}

TEST(ValueText, OfADoubleReadsBackToTheSame) {
    EXPECT_EQ(Value(0.1).Text(), "0.1");
    EXPECT_EQ(Value(-0.0).Text(), "-0");
    EXPECT_EQ(Value(1.0 / 3).Text(), "0.3333333333333333");
    EXPECT_EQ(Value(1e15).Text(), "1000000000000000");
    EXPECT_EQ(Value(1.5e20).Text(), "1.5e+20");
    EXPECT_EQ(Value(2.5e-9).Text(), "2.5e-09");
}

TEST(ValueText, OfWhatIsNoNumberIsEmpty) {
    EXPECT_EQ(Value(std::numeric_limits<double>::infinity()).Text(), "");
    EXPECT_EQ(Value(std::numeric_limits<float>::quiet_NaN()).Text(), "");
    EXPECT_EQ(Value(Date{std::numeric_limits<double>::quiet_NaN()}).Text(), "");
}

TEST(ValueText, OfADateHasATimeOnlyWhenThereIsOne) {
    EXPECT_EQ(Value(Date{0}).Text(), "1899-12-30");
    EXPECT_EQ(Value(Date{36526}).Text(), "2000-01-01");
    EXPECT_EQ(Value(Date{36526.25}).Text(), "2000-01-01 06:00:00");
    EXPECT_EQ(Value(Date{2958465}).Text(), "9999-12-31");
}

TEST(ValueText, OfADateBeforeDayZeroCountsItsTimeForward) {
    EXPECT_EQ(Value(Date{-1.25}).Text(), "1899-12-29 06:00:00");
    EXPECT_EQ(Value(Date{-1}).Text(), "1899-12-29");
}

TEST(ValueText, OfADateRoundsToTheNearestSecond) {
    EXPECT_EQ(Value(Date{36526 + 59.6 / 86400}).Text(), "2000-01-01 00:01:00");
    EXPECT_EQ(Value(Date{36526 + 86399.7 / 86400}).Text(), "2000-01-02");
}

TEST(ValueText, OfADateOutsideTheCalendarIsEmpty) {
    EXPECT_EQ(Value(Date{2958466}).Text(), "");
    EXPECT_EQ(Value(Date{-700000}).Text(), "");
}

TEST(ValueText, OfAGuidIsInBraces) {
    Guid guid;
    for (std::size_t i = 0; i < 16; ++i) guid.bytes[i] = static_cast<std::uint8_t>(i * 17);
    EXPECT_EQ(Value(guid).Text(), "{00112233-4455-6677-8899-AABBCCDDEEFF}");
}

TEST(ValueNumber, TakesNumbersDatesTruthAndTextsThatAreNumbers) {
    EXPECT_EQ(Value(std::int16_t{7}).Number(), 7.0);
    EXPECT_EQ(Value(0.5f).Number(), 0.5);
    EXPECT_EQ(Value(true).Number(), -1.0);
    EXPECT_EQ(Value(Date{36526.5}).Number(), 36526.5);
    EXPECT_EQ(Value(Currency{25}).Number(), 0.0025);
    EXPECT_EQ(Value(Numeric{true, {0, 0, 0, 125}, 2}).Number(), -1.25);
    EXPECT_EQ(Value("12.5").Number(), 12.5);
    EXPECT_EQ(Value(" 12,5 ").Number(), 12.5);
    EXPECT_EQ(Value("+3").Number(), 3.0);
    EXPECT_EQ(Value("-1e3").Number(), -1000.0);
    EXPECT_EQ(Value("1e-400").Number(), 0.0);
}

TEST(ValueNumber, RefusesTextsThatOnlyBeginAsNumbers) {
    for (const char* text :
         {"", " ", "12 kr", "x", "1.2.3", "1,000,000", "inf", "nan", "0x10", "-", "."}) {
        EXPECT_EQ(FailureOf([&] { (void)Value(text).Number(); }), ErrorNumber::TypeMismatch)
            << text;
    }
}

TEST(ValueNumber, OfNullIsAnInvalidUseOfNull) {
    EXPECT_EQ(FailureOf([] { (void)Value().Number(); }), ErrorNumber::InvalidUseOfNull);
    EXPECT_EQ(FailureOf([] { (void)Value().Integer(); }), ErrorNumber::InvalidUseOfNull);
}

TEST(ValueNumber, OfBytesAndGuidsDoesNotExist) {
    EXPECT_EQ(FailureOf([] { (void)Value(Bytes{1}).Number(); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(FailureOf([] { (void)Value(Guid{}).Number(); }), ErrorNumber::TypeMismatch);
}

TEST(ValueInteger, RoundsHalvesToEven) {
    const std::vector<std::pair<double, std::int32_t>> rows = {
        {0.5, 0}, {1.5, 2}, {2.5, 2}, {-0.5, 0}, {-1.5, -2}, {-2.5, -2}, {2.500001, 3}, {2.4, 2}};
    for (const auto& [number, whole] : rows) EXPECT_EQ(Value(number).Integer(), whole) << number;
    EXPECT_EQ(Value(Currency{25000}).Integer(), 2);
    EXPECT_EQ(Value("3,5").Integer(), 4);
}

TEST(ValueInteger, OutsideItsRangeIsAnOverflow) {
    EXPECT_EQ(Value(2147483647.4).Integer(), 2147483647);
    for (const double number : {2147483647.5, -2147483649.0, 1e300}) {
        EXPECT_EQ(FailureOf([&] { (void)Value(number).Integer(); }), ErrorNumber::Overflow);
    }
}

}  // namespace
}  // namespace jet
