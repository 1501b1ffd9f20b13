#include "base/number.h"

#include "base/error.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

template <typename Statement>
ErrorNumber NumberOf(Statement&& statement) {
    Skipping skip;
    skip(statement);
    return skip.Number();
}

TEST(ParseSingle, ReadsWhatASaverTypes) {
    const struct {
        std::string_view text;
        float value;
    } rows[] = {
        {"12", 12.0F},
        {"12,5", 12.5F},
        {"12.5", 12.5F},
        {"0,1", 0.1F},
        {",5", 0.5F},
        {"5,", 5.0F},
        {"-3,25", -3.25F},
        {"+3", 3.0F},
        {"\xE2\x88\x92"
         "3,25",
         -3.25F},
        {"  12,5 ", 12.5F},
        {"\xC2\xA0"
         "12,5\xC2\xA0",
         12.5F},
        {"12,5\r\n", 12.5F},
        {"1 234,5", 1234.5F},
        {"1\xC2\xA0"
         "234\xC2\xA0"
         "567",
         1234567.0F},
        {"1\xE2\x80\xAF"
         "234",
         1234.0F},
        {"0", 0.0F},
        {"-0", 0.0F},
        {"007", 7.0F},
        {"1e3", 1000.0F},
        {"1,5E-1", 0.15F},
        {"123,456789123456789", 123.456789123456789F},
    };
    for (const auto& row : rows) EXPECT_EQ(ParseSingle(row.text), row.value) << row.text;
}

TEST(ParseSingle, RefusesWhatIsNoNumber) {
    for (const std::string_view text :
         {"",         " ",       ",",      ".",        "-",     "+",     "1,2,3", "1.2.3",
          "1.234,5",  "abc",     "12a",    "a12",      "12 kr", "--1",   "1-",    "inf",
          "-inf",     "nan",     "NaN",    "infinity", "0x10",  "1e",    "1 2",   "12 34",
          "1234 567", "1 234 5", "12,5 6", "1  234",   "1/2",   "12,5,", "½"}) {
        EXPECT_EQ(NumberOf([&] { ParseSingle(text); }), ErrorNumber::TypeMismatch) << text;
    }
}

TEST(ParseSingle, RefusesWhatIsTooLarge) {
    for (const std::string_view text :
         {"1e39", "-1e39", "999999999999999999999999999999999999999,5"}) {
        EXPECT_EQ(NumberOf([&] { ParseSingle(text); }), ErrorNumber::Overflow) << text;
    }
}

TEST(ParseSingle, TakesWhatIsTooSmallForZero) {
    EXPECT_EQ(ParseSingle("1e-60"), 0.0F);
    EXPECT_EQ(ParseSingle("0,00000000000000000000000000000000000000000000000000000001"), 0.0F);
}

TEST(ParseDouble, KeepsMoreDigitsThanASingle) {
    EXPECT_EQ(ParseDouble("1234567,891"), 1234567.891);
    EXPECT_EQ(NumberOf([] { ParseDouble("1e400"); }), ErrorNumber::Overflow);
}

TEST(ParseInteger, RoundsHalvesToTheEvenNeighbour) {
    const struct {
        std::string_view text;
        std::int32_t value;
    } rows[] = {
        {"7", 7},
        {"0,5", 0},
        {"1,5", 2},
        {"2,5", 2},
        {"3.5", 4},
        {"-0,5", 0},
        {"-1,5", -2},
        {"-2,5", -2},
        {"2,51", 3},
        {"2,49", 2},
        {" 12 ", 12},
        {"-10", -10},
        {"1 000", 1000},
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
        {"2147483647,4", 2147483647},
        {"-2147483648,5", -2147483647 - 1},
    };
    for (const auto& row : rows) EXPECT_EQ(ParseInteger(row.text), row.value) << row.text;
}

TEST(ParseInteger, RefusesWhatDoesNotFit) {
    for (const std::string_view text : {"2147483648", "2147483647,5", "-2147483649", "1e10"}) {
        EXPECT_EQ(NumberOf([&] { ParseInteger(text); }), ErrorNumber::Overflow) << text;
    }
    EXPECT_EQ(NumberOf([] { ParseInteger("x"); }), ErrorNumber::TypeMismatch);
    EXPECT_EQ(NumberOf([] { ParseInteger(""); }), ErrorNumber::TypeMismatch);
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatIsNoNumber) {
    const struct {
        std::string_view text;
        double value;
    } rows[] = {
        {"12 %", 12}, {"-7 %", -7}, {"12.5kr", 12.5},     {"12,5", 12},  {"  8", 8}, {"", 0},
        {"-", 0},     {"abc", 0},   {".5", 0.5},          {"-.5", -0.5}, {"5.", 5},  {"1.2.3", 1.2},
        {"+4", 4},    {"%", 0},     {"2006-02-24", 2006}, {"1 234", 1},
    };
    for (const auto& row : rows) EXPECT_EQ(LeadingNumber(row.text), row.value) << row.text;
}

TEST(PlainText, IsTheShortestTextThatReadsBack) {
    const struct {
        float value;
        std::string_view text;
    } rows[] = {
        {0.0F, "0"},          {-0.0F, "0"},
        {1.0F, "1"},          {0.1F, "0,1"},
        {-12.5F, "-12,5"},    {10234.5F, "10234,5"},
        {11020.0F, "11020"},  {123.4567F, "123,4567"},
        {1e7F, "10000000"},   {1e20F, "100000000000000000000"},
        {1e-5F, "0,00001"},   {16777216.0F, "16777216"},
        {0.30000001F, "0,3"},
    };
    for (const auto& row : rows) EXPECT_EQ(PlainText(row.value), row.text);
}

TEST(PlainText, NeverWidensASingle) {
    EXPECT_EQ(PlainText(12.34F), "12,34");
    EXPECT_EQ(PlainText(12.34), "12,34");
    EXPECT_EQ(PlainText(0.1 + 0.2), "0,30000000000000004");
}

TEST(PlainText, ReadsBackForEverySize) {
    for (float value = 1.1e-30F; value < 1e30F; value *= 7.3F) {
        EXPECT_EQ(ParseSingle(PlainText(value)), value);
        EXPECT_EQ(ParseSingle(PointText(-value)), -value);
    }
}

TEST(PlainText, OfWholeNumbers) {
    EXPECT_EQ(PlainText(-15), "-15");
    EXPECT_EQ(PlainText(std::numeric_limits<std::int32_t>::min()), "-2147483648");
    EXPECT_EQ(PlainText(std::int64_t{5000000000}), "5000000000");
}

TEST(PlainText, OfInfinityOrNaNIsAnError) {
    EXPECT_EQ(NumberOf([] { PlainText(std::numeric_limits<float>::infinity()); }),
              ErrorNumber::Overflow);
    EXPECT_EQ(NumberOf([] { PlainText(std::nan("")); }), ErrorNumber::Overflow);
    EXPECT_EQ(NumberOf([] { Fixed(std::nan(""), 2); }), ErrorNumber::Overflow);
}

TEST(PointText, HasADecimalPoint) {
    EXPECT_EQ(PointText(12.5F), "12.5");
    EXPECT_EQ(PointText(-0.25F), "-0.25");
    EXPECT_EQ(PointText(3.0F), "3");
}

TEST(WidenSingle, AddsNoDigits) {
    EXPECT_EQ(WidenSingle(284.01F), 284.01);
    EXPECT_EQ(WidenSingle(-0.1F), -0.1);
    EXPECT_EQ(WidenSingle(3.0F), 3.0);
}

TEST(Fixed, ShowsSoManyDecimals) {
    const struct {
        double value;
        int decimals;
        std::string_view text;
    } rows[] = {
        {12.5, 2, "12,50"},
        {0, 2, "0,00"},
        {0, 0, "0"},
        {1234.567, 2, "1234,57"},
        {10, 4, "10,0000"},
        {123.4567, 4, "123,4567"},
        {0.05, 2, "0,05"},
        {0.005, 2, "0,01"},
        {0.0049, 2, "0,00"},
        {-0.004, 2, "0,00"},
        {-0.005, 2, "-0,01"},
        {2.675, 2, "2,68"},
        {1.005, 2, "1,01"},
        {9.999, 2, "10,00"},
        {99.995, 2, "100,00"},
        {0.5, 0, "1"},
        {0.4, 0, "0"},
        {1e20, 2, "100000000000000000000,00"},
        {-1234.5, 2, "-1234,50"},
        {0.00001, 4, "0,0000"},
        {0.00005, 4, "0,0001"},
        {0.000004, 4, "0,0000"},
    };
    for (const auto& row : rows) EXPECT_EQ(Fixed(row.value, row.decimals), row.text) << row.value;
}

TEST(Fixed, OfASingleShowsNoNoise) {
    EXPECT_EQ(Fixed(12.34F, 4), "12,3400");
    EXPECT_EQ(Fixed(0.1F, 4), "0,1000");
    EXPECT_EQ(Fixed(1234.567F, 2), "1234,57");
}

TEST(RoundHalfEven, TakesTheEvenNeighbourOfAHalf) {
    const struct {
        double value;
        std::int32_t whole;
    } rows[] = {{0.5, 0},
                {1.5, 2},
                {2.5, 2},
                {-0.5, 0},
                {-1.5, -2},
                {-2.5, -2},
                {12.5, 12},
                {33.33, 33},
                {0.49, 0},
                {-0.51, -1},
                {2.0, 2},
                {-2.0, -2},
                {2147483647.4, 2147483647}};
    for (const auto& row : rows) {
        EXPECT_EQ(RoundHalfEven(row.value), row.whole) << row.value;
    }
    EXPECT_EQ(RoundHalfEven(12.5F), 12);
}

TEST(RoundHalfEven, OverflowsBeyond32Bits) {
    for (const double value : {2147483647.5, -2147483649.0, 1e300, -1e300,
                               static_cast<double>(INFINITY), static_cast<double>(NAN)}) {
        EXPECT_EQ(NumberOf([&] { RoundHalfEven(value); }), ErrorNumber::Overflow) << value;
    }
    EXPECT_EQ(RoundHalfEven(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

}  // namespace
