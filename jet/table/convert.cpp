#include "jet/table/convert.h"

#include "jet/error.h"
#include "jet/storage/bytes.h"
#include "jet/table/decimal.h"
#include "jet/table/names.h"
#include "jet/table/rowcodec.h"

#include <charconv>
#include <chrono>
#include <limits>

namespace jet::detail {
namespace {

[[noreturn]] void Mismatch(const Value& value, const ColumnDesign& column) {
    throw Error{ErrorNumber::TypeMismatch,
                "column " + column.name + " cannot hold \"" + Excerpt(value.Text()) + "\""};
}

[[noreturn]] void TooLong(const ColumnDesign& column) {
    throw Error{ErrorNumber::FieldTooLong, "value too long for column " + column.name};
}

bool IsText(const Value& value) {
    return std::holds_alternative<std::string>(value.Held());
}

// The number as decimal text, so that a single's 0.1 becomes an exact tenth and not the double
// nearest to the single.
std::string PlainTextOf(const Value& value, const ColumnDesign& column) {
    if (const bool* truth = std::get_if<bool>(&value.Held())) return *truth ? "-1" : "0";
    if (const Date* date = std::get_if<Date>(&value.Held())) return ShortestText(date->serial);
    if (std::holds_alternative<Bytes>(value.Held()) || std::holds_alternative<Guid>(value.Held())) {
        Mismatch(value, column);
    }
    const auto plain = PlainNumber(value.Text());
    if (!plain) Mismatch(value, column);
    return *plain;
}

template <typename Whole>
Value ToWhole(const Value& value, const ColumnDesign& column) {
    const Value number = IsText(value) ? Value(DoubleOf(PlainTextOf(value, column))) : value;
    const std::int32_t whole = number.Integer();
    if (whole < std::numeric_limits<Whole>::min() || whole > std::numeric_limits<Whole>::max()) {
        throw Error{ErrorNumber::Overflow,
                    "column " + column.name + " cannot hold " + Excerpt(value.Text())};
    }
    return Value(static_cast<Whole>(whole));
}

Value ToSingle(const Value& value, const ColumnDesign& column) {
    if (std::holds_alternative<float>(value.Held())) return value;
    return Value(SingleOf(PlainTextOf(value, column)));
}

Value ToDouble(const Value& value, const ColumnDesign& column) {
    if (std::holds_alternative<double>(value.Held())) return value;
    return Value(DoubleOf(PlainTextOf(value, column)));
}

Value ToBoolean(const Value& value, const ColumnDesign& column) {
    if (value.IsNull()) return Value(false);
    if (IsText(value)) {
        const std::string folded = FoldName(value.Text());
        if (folded == "true") return Value(true);
        if (folded == "false") return Value(false);
    }
    if (std::holds_alternative<bool>(value.Held())) return value;
    return Value(DoubleOf(PlainTextOf(value, column)) != 0);
}

Value ToDate(const Value& value, const ColumnDesign& column) {
    if (std::holds_alternative<Date>(value.Held())) return value;
    if (IsText(value)) {
        if (const auto date = ParseDate(value.Text())) return Value(*date);
    }
    const Value date = Date{DoubleOf(PlainTextOf(value, column))};
    RequireInRange(date, column.name);
    return date;
}

Value ToNumericColumn(const Value& value, const ColumnDesign& column) {
    const Numeric number = ToNumeric(PlainTextOf(value, column), column.scale);
    if (column.precision != 0 && DigitCount(number) > column.precision) {
        throw Error{ErrorNumber::Overflow,
                    "column " + column.name + " cannot hold " + Excerpt(value.Text())};
    }
    return Value(number);
}

Value ToText(const Value& value, const ColumnDesign& column) {
    std::string text = value.Text();
    if (column.type == ColumnType::Text && Utf16Length(text) > column.size) TooLong(column);
    return Value(std::move(text));
}

Value ToBytes(const Value& value, const ColumnDesign& column) {
    const Bytes* bytes = std::get_if<Bytes>(&value.Held());
    if (bytes == nullptr) Mismatch(value, column);
    if (column.type == ColumnType::Binary && bytes->size() > column.size) TooLong(column);
    return value;
}

Value ToGuid(const Value& value, const ColumnDesign& column) {
    if (std::holds_alternative<Guid>(value.Held())) return value;
    if (IsText(value)) {
        if (const auto guid = ParseGuid(value.Text())) return Value(*guid);
    }
    Mismatch(value, column);
}

// Reads whole numbers and the signs between them from the front of a text.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool AtEnd() const { return rest_.empty(); }

    std::optional<int> Number(std::size_t fewest, std::size_t most) {
        std::size_t digits = 0;
        while (digits < rest_.size() && rest_[digits] >= '0' && rest_[digits] <= '9') ++digits;
        if (digits < fewest || digits > most) return std::nullopt;
        int value = 0;
        std::from_chars(rest_.data(), rest_.data() + digits, value);
        rest_.remove_prefix(digits);
        return value;
    }

    char Sign(std::string_view allowed) {
        if (rest_.empty() || allowed.find(rest_.front()) == std::string_view::npos) return 0;
        const char sign = rest_.front();
        rest_.remove_prefix(1);
        return sign;
    }

  private:
    std::string_view rest_;
};

std::optional<double> ParseTime(Scanner& scanner) {
    const auto hour = scanner.Number(1, 2);
    if (!hour || !scanner.Sign(":")) return std::nullopt;
    const auto minute = scanner.Number(2, 2);
    if (!minute) return std::nullopt;
    std::optional<int> second = 0;
    if (scanner.Sign(":")) second = scanner.Number(2, 2);
    if (!second || !scanner.AtEnd()) return std::nullopt;
    if (*hour > 23 || *minute > 59 || *second > 59) return std::nullopt;
    return (*hour * 3600 + *minute * 60 + *second) / 86400.0;
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

std::optional<Date> ParseDate(std::string_view text) {
    text = Trimmed(text);
    const bool shortYear = text.size() > 2 && !(text[2] >= '0' && text[2] <= '9');
    Scanner scanner(text);
    const auto year = shortYear ? scanner.Number(2, 2) : scanner.Number(4, 4);
    const char separator = scanner.Sign("-/");
    if (!year || separator == 0) return std::nullopt;
    const auto month = scanner.Number(1, 2);
    if (!month || scanner.Sign("-/") != separator) return std::nullopt;
    const auto dayOfMonth = scanner.Number(1, 2);
    if (!dayOfMonth) return std::nullopt;

    constexpr int kFirstOfThisCentury = 29;  // "29" is 2029, "30" is 1930
    const int century = !shortYear ? 0 : (*year <= kFirstOfThisCentury ? 2000 : 1900);
    using namespace std::chrono;
    const year_month_day civil{std::chrono::year{*year + century},
                               std::chrono::month{static_cast<unsigned>(*month)},
                               day{static_cast<unsigned>(*dayOfMonth)}};
    if (!civil.ok() || civil.year() < std::chrono::year{100}) return std::nullopt;
    const auto days = (sys_days{civil} - sys_days{std::chrono::year{1899} / December / 30}).count();
    double serial = static_cast<double>(days);
    if (scanner.AtEnd()) return Date{serial};

    if (!scanner.Sign(" ")) return std::nullopt;
    const auto time = ParseTime(scanner);
    if (!time) return std::nullopt;
    // The fraction counts forward from midnight also where the day number is negative.
    serial = serial < 0 ? serial - *time : serial + *time;
    return Date{serial};
}

std::optional<Guid> ParseGuid(std::string_view text) {
    text = Trimmed(text);
    if (text.starts_with('{') && text.ends_with('}')) text = text.substr(1, text.size() - 2);
    constexpr std::size_t kLength = 36;
    if (text.size() != kLength) return std::nullopt;
    Guid guid;
    std::size_t at = 0;
    for (std::size_t i = 0; i < guid.bytes.size(); ++i) {
        if (i == 4 || i == 6 || i == 8 || i == 10) {
            if (text[at++] != '-') return std::nullopt;
        }
        const char* digits = text.data() + at;
        const auto [end, problem] = std::from_chars(digits, digits + 2, guid.bytes[i], 16);
        if (problem != std::errc{} || end != digits + 2) return std::nullopt;
        at += 2;
    }
    return guid;
}

std::size_t Utf16Length(std::string_view utf8) {
    std::size_t units = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<std::uint8_t>(c);
        if ((byte & 0xC0) != 0x80) ++units;  // a character begins
        if (byte >= 0xF0) ++units;           // and takes a pair of units
    }
    return units;
}

Value ConvertTo(const Value& value, const ColumnDesign& column) {
    if (value.IsNull() && column.type != ColumnType::Boolean) return value;
    RequireInRange(value, column.name);
    switch (column.type) {
        case ColumnType::Boolean:
            return ToBoolean(value, column);
        case ColumnType::Byte:
            return ToWhole<std::uint8_t>(value, column);
        case ColumnType::Integer:
            return ToWhole<std::int16_t>(value, column);
        case ColumnType::Long:
            return ToWhole<std::int32_t>(value, column);
        case ColumnType::Currency:
            return Value(ToCurrency(PlainTextOf(value, column)));
        case ColumnType::Single:
            return ToSingle(value, column);
        case ColumnType::Double:
            return ToDouble(value, column);
        case ColumnType::Date:
            return ToDate(value, column);
        case ColumnType::Numeric:
            return ToNumericColumn(value, column);
        case ColumnType::Text:
        case ColumnType::Memo:
            return ToText(value, column);
        case ColumnType::Binary:
        case ColumnType::Ole:
            return ToBytes(value, column);
        case ColumnType::Guid:
            return ToGuid(value, column);
        case ColumnType::LargeBinary:
            break;
    }
    throw Error{ErrorNumber::NotSupported,
                "column " + column.name + " has a type that is never written"};
}

}  // namespace jet::detail
