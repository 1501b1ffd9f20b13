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
