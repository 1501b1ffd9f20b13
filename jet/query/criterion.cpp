#include "jet/query/criterion.h"

#include "jet/error.h"
#include "jet/storage/bytes.h"
#include "jet/table/convert.h"
#include "jet/table/decimal.h"
#include "jet/table/names.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <functional>
#include <limits>

namespace jet::detail {
namespace {

RowKey NumericKey(std::uint64_t number) {
    return {number, {}};
}

std::uint64_t WholeKey(std::int64_t number) {
    return static_cast<std::uint64_t>(number);
}

std::optional<std::uint64_t> RealKey(double number) {
    if (std::isnan(number)) return std::nullopt;
    return std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
}

// A number too great for a double is no number that a query can name.
std::optional<std::uint64_t> TextNumberKey(std::string_view text) {
    const auto plain = PlainNumber(text);
    if (!plain) return std::nullopt;
    try {
        return RealKey(DoubleOf(*plain));
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::optional<std::uint64_t> NumberKey(const Value& value, KeyKind kind) {
    if (value.IsNull()) return std::nullopt;
    if (kind == KeyKind::TextNumber) return TextNumberKey(value.Text());
    if (kind == KeyKind::Real) return RealKey(value.Number());
    if (const Currency* amount = std::get_if<Currency>(&value.Held())) {
        return WholeKey(amount->tenThousandths);
    }
    return WholeKey(value.Integer());
}

RowKey TextualKey(std::string text) {
    const std::size_t hash = std::hash<std::string>{}(text);
    return {hash, std::move(text)};
}

// "-0012.50" -> "-12.5"
std::string CanonicalDecimal(std::string_view plain) {
    const bool negative = plain.starts_with('-');
    if (negative) plain.remove_prefix(1);
    std::string number = WithoutTrailingZeros(std::string(plain));
    number.erase(0, number.find_first_not_of('0') == std::string::npos
                        ? number.size()
                        : number.find_first_not_of('0'));
    if (number.empty() || number.front() == '.') number.insert(0, 1, '0');
    return negative && number != "0" ? "-" + number : number;
}

[[noreturn]] void Mismatch(const ColumnDef& column, const Literal& literal) {
    throw Error{ErrorNumber::TypeMismatch,
                "column " + column.name + " cannot be compared with " + Excerpt(literal.value)};
}

std::optional<KeyKind> KindOf(const ColumnDef& column) {
    switch (column.Type()) {
        case ColumnType::Boolean:
        case ColumnType::Byte:
        case ColumnType::Integer:
        case ColumnType::Long:
        case ColumnType::Currency:
            return KeyKind::Whole;
        case ColumnType::Single:
        case ColumnType::Double:
        case ColumnType::Date:
            return KeyKind::Real;
        case ColumnType::Numeric:
            return KeyKind::Decimal;
        case ColumnType::Text:
        case ColumnType::Memo:
            return KeyKind::Text;
        case ColumnType::Guid:
            return KeyKind::Guid;
        case ColumnType::Binary:
        case ColumnType::Ole:
        case ColumnType::LargeBinary:
            break;
    }
    return std::nullopt;
}

KeyKind KindFor(const ColumnDef& column, const Literal& literal) {
    const auto kind = KindOf(column);
    if (!kind) Mismatch(column, literal);
    return *kind == KeyKind::Text && !literal.isText ? KeyKind::TextNumber : *kind;
}

// The literal's number; a text literal must be one.
std::string PlainOf(const ColumnDef& column, const Literal& literal) {
    const auto plain = PlainNumber(literal.value);
    if (!plain) Mismatch(column, literal);
    return *plain;
}

std::optional<std::uint64_t> WholeLiteralKey(const ColumnDef& column, const Literal& literal) {
    const std::string plain = PlainOf(column, literal);
    const double number = DoubleOf(plain);
    if (column.Type() == ColumnType::Boolean) return WholeKey(number != 0 ? -1 : 0);
    if (column.Type() == ColumnType::Currency) {
        constexpr double kMaxCurrency = 922337203685477.5;
        if (std::abs(number) > kMaxCurrency) return std::nullopt;
        const Currency amount = ToCurrency(plain);
        const bool exact = CanonicalDecimal(FullText(amount)) == CanonicalDecimal(plain);
        return exact ? std::optional(WholeKey(amount.tenThousandths)) : std::nullopt;
    }
    const bool fits = std::abs(number) <= std::numeric_limits<std::int32_t>::max() + 1.0 &&
                      number == std::trunc(number);
    return fits ? std::optional(WholeKey(static_cast<std::int64_t>(number))) : std::nullopt;
}

std::optional<std::uint64_t> RealLiteralKey(const ColumnDef& column, const Literal& literal) {
    if (column.Type() == ColumnType::Date && literal.isText) {
        if (const auto date = ParseDate(literal.value)) return RealKey(date->serial);
    }
    const std::string plain = PlainOf(column, literal);
    // The single nearest to 12.34 is not the double nearest to it.
    if (column.Type() == ColumnType::Single) return RealKey(static_cast<double>(SingleOf(plain)));
    return RealKey(DoubleOf(plain));
}

std::optional<std::uint64_t> LiteralNumber(const ColumnDef& column, KeyKind kind,
                                           const Literal& literal) {
    if (kind == KeyKind::Whole) return WholeLiteralKey(column, literal);
    if (kind == KeyKind::Real) return RealLiteralKey(column, literal);
    return TextNumberKey(literal.value);
}

std::optional<RowKey> LiteralKey(const ColumnDef& column, KeyKind kind, const Literal& literal) {
    if (IsNumeric(kind)) {
        const auto number = LiteralNumber(column, kind, literal);
        return number ? std::optional(NumericKey(*number)) : std::nullopt;
    }
    if (kind == KeyKind::Decimal) return TextualKey(CanonicalDecimal(PlainOf(column, literal)));
    if (kind == KeyKind::Text) return TextualKey(TextKey(literal.value));
    const auto guid = ParseGuid(literal.value);
    if (!guid) Mismatch(column, literal);
    return TextualKey(Value(*guid).Text());
}

}  // namespace

std::string TextKey(std::string_view utf8) {
    const std::size_t last = utf8.find_last_not_of(' ');
    return FoldName(utf8.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

bool IsNumeric(KeyKind kind) {
    return kind == KeyKind::Whole || kind == KeyKind::Real || kind == KeyKind::TextNumber;
}

std::optional<KeyKind> NumericKind(const ColumnDef& column) {
    const auto kind = KindOf(column);
    return kind && IsNumeric(*kind) ? kind : std::nullopt;
}

std::uint64_t OrderOf(KeyKind kind, std::uint64_t numberKey) {
    constexpr std::uint64_t kSign = std::uint64_t{1} << 63;
    const bool negativeReal = kind != KeyKind::Whole && (numberKey & kSign) != 0;
    const std::uint64_t order = negativeReal ? ~numberKey : numberKey ^ kSign;
    // 0 is left to rows without a value; the smallest amount of all shares its place
    // with the next one.
    return std::max<std::uint64_t>(order, 1);
}

std::optional<std::uint64_t> NumberKeyOf(const PageFile& file, const ColumnDef& column,
                                         KeyKind kind, const RowView& row) {
    if (column.Type() == ColumnType::Long) {
        const auto number = DecodeLong(column, row);
        return number ? std::optional(WholeKey(*number)) : std::nullopt;
    }
    return NumberKey(DecodeColumn(file, column, row), kind);
}

std::optional<RowKey> KeyOf(const PageFile& file, const ColumnDef& column, KeyKind kind,
                            const RowView& row) {
    if (IsNumeric(kind)) {
        const auto number = NumberKeyOf(file, column, kind, row);
        return number ? std::optional(NumericKey(*number)) : std::nullopt;
    }
    const Value value = DecodeColumn(file, column, row);
    if (value.IsNull()) return std::nullopt;
    if (kind == KeyKind::Decimal) return TextualKey(CanonicalDecimal(value.Text()));
    if (kind == KeyKind::Text) return TextualKey(TextKey(value.Text()));
    return TextualKey(value.Text());
}

Criterion::Criterion(const ColumnDef& column, const Literal& literal)
    : column_(column), kind_(KindFor(column, literal)), key_(LiteralKey(column, kind_, literal)) {}

bool Criterion::Holds(const PageFile& file, const RowView& row) const {
    return key_ && KeyOf(file, column_, kind_, row) == key_;
}

}  // namespace jet::detail
