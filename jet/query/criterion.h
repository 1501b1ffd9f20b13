#pragma once
// "field = literal" for one column: which rows it holds for, and keys by which such rows can be
// found without looking at each.

#include "jet/query/sqlparser.h"
#include "jet/storage/pagefile.h"
#include "jet/table/rowcodec.h"
#include "jet/table/tabledef.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace jet::detail {

/// What a query compares when it compares values of a column.
enum class KeyKind : std::uint8_t {
    Whole,       ///< exact numbers of up to 64 bits: Boolean, Byte, Integer, Long, Currency
    Real,        ///< Single, Double, Date
    Decimal,     ///< Numeric
    Text,        ///< Text, Memo: without letter case and without blanks at the end
    TextNumber,  ///< the number that a text is; a text that is none has no key
    Guid,
};

/// What equal values have in common. Two values of different kinds are never compared.
struct RowKey {
    std::uint64_t number = 0;  ///< for the kinds that have a text: its hash
    std::string text;
    bool operator==(const RowKey&) const = default;
};

/// The key of a row's value in `column`; none for null and for what is not a number.
std::optional<RowKey> KeyOf(const PageFile& file, const ColumnDef& column, KeyKind kind,
                            const RowView& row);

/// Whether keys of this kind are numbers alone, which also have an order.
bool IsNumeric(KeyKind kind);
/// The same key for such a kind, without a text to carry: for many rows.
std::optional<std::uint64_t> NumberKeyOf(const PageFile& file, const ColumnDef& column,
                                         KeyKind kind, const RowView& row);
/// A number that is the greater, the greater the value with this key is. Never 0.
std::uint64_t OrderOf(KeyKind kind, std::uint64_t numberKey);
/// The kind of a column whose values are numbers with an order; none for the others.
std::optional<KeyKind> NumericKind(const ColumnDef& column);

/// A comparison made ready for one column.
class Criterion {
  public:
    /// Throws TypeMismatch when the literal cannot be compared with such a column.
    Criterion(const ColumnDef& column, const Literal& literal);

    KeyKind Kind() const { return kind_; }
    /// None when no value of the column can be equal to the literal, as 2.5 for whole numbers.
    const std::optional<RowKey>& Key() const { return key_; }
    bool Holds(const PageFile& file, const RowView& row) const;

  private:
    ColumnDef column_;
    KeyKind kind_;
    std::optional<RowKey> key_;
};

/// What two texts have in common when a query calls them equal: small letters,
/// no blanks at the end.
std::string TextKey(std::string_view utf8);

}  // namespace jet::detail
