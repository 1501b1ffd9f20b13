#include "entry/rules/pricefile.h"

#include "base/csv.h"
#include "base/daynumber.h"
#include "base/pastedtext.h"
#include "base/text.h"
#include "entry/rules/pricecheck.h"
#include "entry/rules/texts.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <utility>

namespace {

constexpr std::size_t kLooked = 200;  // lines that tell what a column holds
constexpr std::string_view kDigits = "0123456789";

using Column = std::optional<std::size_t>;

struct Columns {
    Column day, kontoId, fondNr, fond, price;
    bool Has(std::size_t at) const {
        return day == at || kontoId == at || fondNr == at || fond == at || price == at;
    }
};

bool IsAmong(std::string_view word, std::span<const std::string_view> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

/// "Kurs (kr)" is "kurs".
std::string HeadingWord(std::string_view heading) {
    std::string word = LowerCase(heading);
    std::erase_if(word, [](char letter) {
        return std::string_view(" .-_()[]/%").find(letter) != std::string_view::npos;
    });
    for (const std::string_view unit : {"sek", "kr"}) {
        if (word.size() > unit.size() && word.ends_with(unit))
            word.resize(word.size() - unit.size());
    }
    return word;
}

Columns ByHeadings(const CsvLine& first) {
    Columns columns;
    const auto take = [](Column& column, std::size_t at) {
        if (!column) column = at;
    };
    for (std::size_t at = 0; at < first.cells.size(); ++at) {
        const std::string word = HeadingWord(first.cells[at]);
        if (IsAmong(word, texts::DayHeadings)) take(columns.day, at);
        if (IsAmong(word, texts::KontoIdHeadings)) take(columns.kontoId, at);
        if (IsAmong(word, texts::FondNrHeadings)) take(columns.fondNr, at);
        if (IsAmong(word, texts::FondHeadings)) take(columns.fond, at);
        if (IsAmong(word, texts::PriceHeadings)) take(columns.price, at);
    }
    return columns;
}

bool IsPrice(std::string_view cell) {
    if (ReadForeignDay(cell)) return false;
    const std::optional<std::string> number = PastedNumber(cell);
    return number && ReadPrice(*number);
}

/// What a column holds, by those of its cells that are no headings.
class Looks {
  public:
    Looks(std::span<const CsvLine> lines, const FundNames& funds) : lines_(lines), funds_(funds) {}

    void Complete(Columns& columns) {
        if (!columns.day) columns.day = Best(columns, IsDay);
        if (!columns.fondNr && !columns.fond) {
            columns.fondNr = Best(columns, [this](const std::string& cell) {
                return !funds_.WithNumber(PlainCell(cell)).empty();
            });
            columns.fond = Best(columns, [this](const std::string& cell) {
                return !funds_.WithName(PlainCell(cell)).empty();
            });
        }
        if (!columns.price) columns.price = Only(columns, IsPrice);
        if (!columns.fondNr && !columns.fond) columns.fond = Best(columns, IsWord);
    }

  private:
    static bool IsDay(const std::string& cell) { return ReadForeignDay(cell).has_value(); }
    static bool IsWord(const std::string& cell) { return !cell.empty() && !IsPrice(cell); }

    template <typename Kind>
    std::size_t Count(std::size_t at, const Kind& isKind) const {
        return static_cast<std::size_t>(std::count_if(
            lines_.begin(), lines_.end(),
            [&](const CsvLine& line) { return at < line.cells.size() && isKind(line.cells[at]); }));
    }
    std::size_t Width() const {
        std::size_t width = 0;
        for (const CsvLine& line : lines_) width = std::max(width, line.cells.size());
        return width;
    }
    template <typename Kind>
    Column Best(const Columns& taken, const Kind& isKind) const {
        Column best;
        std::size_t most = 0;
        for (std::size_t at = 0; at < Width(); ++at) {
            const std::size_t count = taken.Has(at) ? 0 : Count(at, isKind);
            if (count > most) best = at;
            most = std::max(most, count);
        }
        return best;
    }
    /// Between two columns of numbers nobody can choose.
    template <typename Kind>
    Column Only(const Columns& taken, const Kind& isKind) const {
        Column only;
        for (std::size_t at = 0; at < Width(); ++at) {
            if (taken.Has(at) || Count(at, isKind) == 0) continue;
            if (only) return std::nullopt;
            only = at;
        }
        return only;
    }

    std::span<const CsvLine> lines_;
    const FundNames& funds_;
};

std::string CellAt(const CsvLine& line, Column column) {
    return column && *column < line.cells.size() ? PlainCell(line.cells[*column]) : "";
}

/// Numbers of one to four digits between other signs.
std::vector<std::string> NumbersIn(std::string_view text) {
    std::vector<std::string> numbers;
    while (!text.empty()) {
        const std::size_t digits = std::min(text.find_first_not_of(kDigits), text.size());
        const std::size_t signs = digits < text.size() ? 1 : 0;
        if (digits == 0 || digits > 4) return {};
        if (signs > 0 && std::string_view("-/. ").find(text[digits]) == std::string_view::npos)
            return {};
        numbers.emplace_back(text.substr(0, digits));
        text.remove_prefix(digits + signs);
        if (signs > 0 && text.empty()) return {};
    }
    return numbers;
}

/// Without a time of day.
std::string_view DayPart(std::string_view text) {
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos) return text;
    const std::size_t end = text.substr(0, colon).find_last_of("T ");
    return end == std::string_view::npos ? std::string_view() : text.substr(0, end);
}

bool IsHeading(const CsvLine& first, const Columns& columns, const Columns& named) {
    const bool hasNames = named.day || named.price || named.fond || named.fondNr;
    return (hasNames || !IsPrice(CellAt(first, columns.price))) &&
           !ReadForeignDay(CellAt(first, columns.day));
}

}  // namespace

std::optional<std::int32_t> ReadForeignDay(std::string_view text) {
    constexpr std::size_t kYearDigits = 4, kAllDigits = 8;
    const std::string whole = Trim(DayPart(Trim(text)));
    if (whole.size() == kAllDigits && whole.find_first_not_of(kDigits) == std::string::npos) {
        return ParseDate(whole.substr(0, 4) + "-" + whole.substr(4, 2) + "-" + whole.substr(6));
    }
    std::vector<std::string> parts = NumbersIn(whole);
    if (parts.size() != 3) return std::nullopt;
    if (parts.back().size() == kYearDigits) std::swap(parts.front(), parts.back());
    if (parts[0].size() != kYearDigits || parts[1].size() > 2 || parts[2].size() > 2) {
        return std::nullopt;
    }
    return ParseDate(Join(parts, "-"));
}

std::optional<std::vector<PriceLine>> ReadPriceFile(std::string_view utf8, const FundNames& funds) {
    const std::vector<CsvLine> rows = ReadCsv(utf8);
    if (rows.empty()) return std::nullopt;
    const Columns named = ByHeadings(rows.front());
    Columns columns = named;
    Looks(std::span(rows).first(std::min(rows.size(), kLooked)), funds).Complete(columns);
    if (!columns.day || !columns.price) return std::nullopt;
    const bool heading = IsHeading(rows.front(), columns, named);
    std::vector<PriceLine> lines;
    for (const CsvLine& row : std::span(rows).subspan(heading ? 1 : 0)) {
        lines.push_back({row.number, CellAt(row, columns.day), CellAt(row, columns.kontoId),
                         CellAt(row, columns.fondNr), CellAt(row, columns.fond),
                         CellAt(row, columns.price),
                         heading && row.cells.size() > rows.front().cells.size()});
    }
    return lines;
}
