#include "base/csv.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Cells = std::vector<std::string>;

TEST(Csv, IsReadBetweenTheSeparatorThatItsFirstLinesHave) {
    const struct {
        std::string_view text;
        char separator;
        Cells first;
    } rows[] = {
        {"a;b;c\n1;2;3", ';', {"a", "b", "c"}},
        {"a\tb, c\td\r\n", '\t', {"a", "b, c", "d"}},
        {"a,b,c\r", ',', {"a", "b", "c"}},
        {"2026-11-13;Asp;175,10\n2026-11-12;Asp;174,10", ';', {"2026-11-13", "Asp", "175,10"}},
        {"\n\n  a ;b\n", ';', {"a", "b"}},
        {"a", ';', {"a"}},
        {"\"a;\"\"b\"\"\r\nc\";d", ';', {"a;\"b\"\r\nc", "d"}},
        {"\"a\" b;c", ';', {"ab", "c"}},
        {"a\"b\";c", ';', {"a\"b\"", "c"}},
        {"\"never ends;\n;;\n", ';', {"never ends;\n;;\n"}},
        {";;x", ';', {"", "", "x"}},
    };
    for (const auto& row : rows) {
        const std::vector<CsvLine> lines = ReadCsv(row.text);
        EXPECT_EQ(SeparatorOf(row.text), row.separator) << row.text;
        ASSERT_FALSE(lines.empty()) << row.text;
        EXPECT_EQ(lines.front().cells, row.first) << row.text;
    }
    EXPECT_TRUE(ReadCsv("").empty());
    EXPECT_TRUE(ReadCsv("\n ; ;\n\r\n").empty());
}

TEST(Csv, RowsKnowTheirLines) {
    std::vector<std::int32_t> numbers;
    for (const CsvLine& line : ReadCsv("a;b\r\n\r\n\"c\nd\";e\nf;g"))
        numbers.push_back(line.number);
    EXPECT_EQ(numbers, (std::vector<std::int32_t>{1, 3, 5}));
}

TEST(Csv, WhatIsWrittenIsReadAgain) {
    const std::vector<Cells> rows = {{"a", "b;c", "d\"e\"", ""},
                                     {"en\r\nrad", " blanks ", "\t", "175,10"},
                                     {"å", "-1", "=2", "'x"}};
    std::string text(kCsvMark);
    for (const Cells& row : rows) text += CsvRow(row);
    const std::vector<CsvLine> read = ReadCsv(DecodeForeignText(text));
    ASSERT_EQ(read.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) EXPECT_EQ(read[i].cells, rows[i]);
    EXPECT_EQ(CsvRow({"a", "175,10", "b;c"}), "a;175,10;\"b;c\"\r\n");
}

TEST(Csv, TextsThatASpreadsheetWouldRunAreMarkedAndComeBack) {
    for (const char* text : {"=1+1", "+46", "-Asp", "@SUM(A1)", "\tx", "\rx"}) {
        EXPECT_EQ(HarmlessText(text), "'" + std::string(text));
        EXPECT_EQ(PlainCell(HarmlessText(text)), text);
    }
    for (const char* text : {"", "Asp", "249 995", "'", "'Asp", "a=1"}) {
        EXPECT_EQ(HarmlessText(text), text);
        EXPECT_EQ(PlainCell(text), text);
    }
}

TEST(Csv, LettersAreUtf8OrWindows1252) {
    EXPECT_EQ(DecodeForeignText("\xEF\xBB\xBF"
                                "å"),
              "å");
    EXPECT_EQ(DecodeForeignText("å"), "å");
    EXPECT_EQ(DecodeForeignText("\xE5\xE4\xF6 \x80"), "åäö €");
    EXPECT_EQ(DecodeForeignText(""), "");
}

}  // namespace
