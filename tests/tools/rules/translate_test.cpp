#include "tools/rules/translate.h"

#include "base/error.h"

#include <gtest/gtest.h>
#include <string_view>

namespace {

TEST(Translated, TurnsDatesIntoDayNumbersAndBack) {
    const struct {
        std::string_view text, translated;
    } rows[] = {
        {"2006-02-24", "38772"},   {"38772", "2006-02-24"},   {"06-02-24", "38772"},
        {"06/2/24", "38772"},      {"0", "1899-12-30"},       {"1899-12-30", "0"},
        {"-1", "1899-12-29"},      {"38772,4", "2006-02-24"}, {"2000-12-31", "36891"},
        {" 36526 ", "2000-01-01"},
    };
    for (const auto& row : rows) EXPECT_EQ(Translated(row.text), row.translated) << row.text;
}

TEST(Translated, RoundsATimeOfDayToTheNearestDayAHalfToTheEvenOne) {
    const struct {
        std::string_view text, translated;
    } rows[] = {
        {"2006-02-24 11:59", "38772"},    {"2006-02-24 12:00", "38772"},
        {"2006-02-25 12:00", "38774"},    {"2006-02-24 12:00:01", "38773"},
        {" 06/2/24  23:59:59 ", "38773"}, {"2006-02-24 0:00", "38772"},
    };
    for (const auto& row : rows) EXPECT_EQ(Translated(row.text), row.translated) << row.text;
}

TEST(Translated, RefusesATimeThatIsNone) {
    for (const std::string_view text :
         {"2006-02-24 24:00", "2006-02-24 12", "2006-02-24 12:60", "2006-02-24 1:2:3:4",
          "2006-02-24 :30", "2006-02-24 -1:30", "12:00", "i dag 12:00"}) {
        Skipping skip;
        skip([&] { Translated(text); });
        EXPECT_EQ(skip.Number(), ErrorNumber::TypeMismatch) << text;
    }
}

TEST(Translated, RefusesWhatIsNeitherDateNorNumber) {
    for (const std::string_view text : {"", "abc", "2006-02-30", "24 februari"}) {
        Skipping skip;
        skip([&] { Translated(text); });
        EXPECT_EQ(skip.Number(), ErrorNumber::TypeMismatch) << text;
    }
}

TEST(Translated, RefusesANumberWithoutADate) {
    for (const std::string_view text : {"2958466", "99999999999"}) {
        Skipping skip;
        skip([&] { Translated(text); });
        EXPECT_EQ(skip.Number(), ErrorNumber::Overflow) << text;
    }
}

}  // namespace
