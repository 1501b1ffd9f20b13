#include "base/csv.h"

#include "base/codepage.h"
#include "base/text.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

constexpr char kQuote = '"';
constexpr std::string_view kFormulaSigns = "=+-@\t\r";
constexpr char kTextSign = '\'';

bool IsLineEnd(char letter) {
    return letter == '\n' || letter == '\r';
}

/// Takes one cell, and what ends it, off the text.
class Reader {
  public:
    Reader(std::string_view text, char separator) : text_(text), separator_(separator) {}

    std::vector<CsvLine> Rows() {
        std::vector<CsvLine> rows;
        while (at_ < text_.size()) {
            CsvLine row{line_, {}};
            do {
                row.cells.push_back(Cell());
            } while (TakeSeparator());
            TakeLineEnd();
            const bool blank = std::all_of(row.cells.begin(), row.cells.end(),
                                           [](const std::string& cell) { return cell.empty(); });
            if (!blank) rows.push_back(std::move(row));
        }
        return rows;
    }

  private:
    bool AtEnd() const { return at_ >= text_.size(); }

    std::string Cell() {
        while (!AtEnd() && text_[at_] == ' ') ++at_;
        std::string cell;
        if (!AtEnd() && text_[at_] == kQuote) cell = Quoted();
        const std::size_t begin = at_;
        while (!AtEnd() && text_[at_] != separator_ && !IsLineEnd(text_[at_])) ++at_;
        return cell + Trim(text_.substr(begin, at_ - begin));
    }

    std::string Quoted() {
        std::string cell;
        for (++at_; !AtEnd(); ++at_) {
            if (text_[at_] == '\n') ++line_;
            if (text_[at_] != kQuote) {
                cell += text_[at_];
                continue;
            }
            ++at_;
            if (AtEnd() || text_[at_] != kQuote) break;
            cell += kQuote;
        }
        return cell;
    }

    bool TakeSeparator() {
        if (AtEnd() || text_[at_] != separator_) return false;
        ++at_;
        return true;
    }

    void TakeLineEnd() {
        if (AtEnd()) return;
        const bool both = text_[at_] == '\r' && at_ + 1 < text_.size() && text_[at_ + 1] == '\n';
        at_ += both ? 2 : 1;
        ++line_;
    }

    std::string_view text_;
    char separator_;
    std::size_t at_ = 0;
    std::int32_t line_ = 1;
};

/// Of them that have anything in them.
std::vector<std::string_view> FirstLines(std::string_view text) {
    constexpr std::size_t kLines = 20;
    std::vector<std::string_view> lines;
    while (!text.empty() && lines.size() < kLines) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if (end > 0) lines.push_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

}  // namespace

std::string DecodeForeignText(std::string_view bytes) {
    if (bytes.starts_with(kCsvMark)) bytes.remove_prefix(kCsvMark.size());
    // What is no UTF-8 does not come back as it was.
    const bool isUtf8 = ToUtf8(ToCodePoints(bytes)) == bytes;
    return isUtf8 ? std::string(bytes) : DecodeCp1252(bytes);
}

char SeparatorOf(std::string_view utf8) {
    const std::vector<std::string_view> lines = FirstLines(utf8);
    for (const char separator : {';', '\t', ','}) {
        const auto count =
            std::count_if(lines.begin(), lines.end(), [separator](std::string_view line) {
                return line.find(separator) != std::string_view::npos;
            });
        if (count * 2 > std::ssize(lines)) return separator;
    }
    return ';';
}

std::vector<CsvLine> ReadCsv(std::string_view utf8) {
    return Reader(utf8, SeparatorOf(utf8)).Rows();
}

std::string HarmlessText(std::string_view text) {
    const bool runs = !text.empty() && kFormulaSigns.find(text.front()) != std::string_view::npos;
    return (runs ? std::string(1, kTextSign) : std::string()) + std::string(text);
}

std::string PlainCell(std::string_view cell) {
    const bool marked = cell.size() > 1 && cell.front() == kTextSign &&
                        kFormulaSigns.find(cell[1]) != std::string_view::npos;
    return std::string(marked ? cell.substr(1) : cell);
}

std::string CsvRow(const std::vector<std::string>& cells) {
    std::string row;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) row += ';';
        const bool blanks = !cell.empty() && (cell.front() == ' ' || cell.back() == ' ');
        if (!blanks && cell.find_first_of(";\"\r\n\t") == std::string::npos) {
            row += cell;
            continue;
        }
        row += kQuote;
        for (const char letter : cell) {
            row += letter;
            if (letter == kQuote) row += letter;
        }
        row += kQuote;
    }
    return row + "\r\n";
}
