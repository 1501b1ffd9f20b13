#pragma once
// Tables as text, one line a row: what spreadsheets call CSV. Knows no files and no meanings.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct CsvLine {
    std::int32_t number = 0;  ///< of the line where the row begins, counted from 1
    std::vector<std::string> cells;
    bool operator==(const CsvLine&) const = default;
};

/// The text of a file that other programs wrote: UTF-8 with or without its mark, else windows-1252.
std::string DecodeForeignText(std::string_view bytes);

/// Rows between semicolons, tabs or commas: the first of these that the first lines have. A quoted
/// cell may hold separators, line ends and doubled quotes. Blank lines are left out, and blanks
/// around cells.
std::vector<CsvLine> ReadCsv(std::string_view utf8);

/// What stands between the cells of the rows as they were read.
char SeparatorOf(std::string_view utf8);

/// A text that a spreadsheet must not run: one that begins as a formula gets an apostrophe before
/// it.
std::string HarmlessText(std::string_view text);
/// The text before HarmlessText.
std::string PlainCell(std::string_view cell);

/// A row with semicolons and CR LF, as spreadsheets with a decimal comma read it; quoted where it
/// must be.
std::string CsvRow(const std::vector<std::string>& cells);
/// What such a file begins with, so that every spreadsheet knows its letters.
inline constexpr std::string_view kCsvMark = "\xEF\xBB\xBF";
