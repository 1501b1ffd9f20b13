#pragma once
// A row's bytes <-> its columns.

#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"
#include "jet/table/textcodec.h"
#include "jet/value.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace jet::detail {

/// Offsets of a single byte count on from the last multiple of this that a jump byte tells.
inline constexpr std::size_t kBytesPerJump = 256;

/// Bytes of the mask with one bit for each column.
inline std::size_t MaskSize(std::size_t columns) {
    return (columns + 7) / 8;
}

/// A stored row, taken apart on demand; allocates nothing. Lives as long as the bytes it looks at.
class RowView {
  public:
    /// Checks the parts' places; throws NotADatabase naming the page of `where`.
    RowView(const Layout& layout, const TableDef& def, ByteView row, RowPointer where);

    RowPointer Where() const { return where_; }
    /// Null, or not in this row because it was written before the column was added. A Boolean is
    /// never null.
    bool IsNull(const ColumnDef& column) const;
    /// A Boolean column's value: the bit itself.
    bool Bit(const ColumnDef& column) const;
    /// The column's stored bytes, empty for null and for Booleans.
    ByteView Raw(const ColumnDef& column) const;
    /// A fixed column's, of any type but Boolean: null without bytes.
    std::optional<ByteView> RawFixed(const ColumnDef& column) const;

  private:
    /// One of the row's own numbers, of one or two bytes; the place has been checked.
    static std::size_t Entry(ByteView row, std::size_t place, std::size_t unit) {
        return unit == 1 ? row[place] : row[place] | static_cast<std::size_t>(row[place + 1]) << 8U;
    }
    ByteView RawVariable(const ColumnDef& column) const;
    std::size_t VariableOffset(std::size_t entry) const;

    const Layout* layout_;
    ByteView row_;
    RowPointer where_;
    std::size_t columnCount_ = 0, maskStart_ = 0, variableCount_ = 0;
    std::size_t fixedEnd_ =
        0;  ///< where the variable parts' tail begins, the fixed area ends before it
    std::size_t entries_ = 0;    ///< place of variable entry 0; the others stand before it
    std::size_t jumps_ = 0;      ///< number of jump bytes that count
    std::size_t jumpStart_ = 0;  ///< place of jump byte 0; the others stand before it
};

TextForm TextFormOf(const PageFile& file);

/// One column's value. Memo and OLE are read from their pages.
/// A type that is none of ours gives Bytes.
Value DecodeColumn(const PageFile& file, const ColumnDef& column, const RowView& row);
/// The value of stored bytes that are not null.
Value DecodeValue(const PageFile& file, const ColumnDef& column, ByteView raw);

/// A whole-number or floating column's value without any Value: for reading many rows fast. Nothing
/// for null; throws NotADatabase when the bytes are too few, TypeMismatch for another type.
std::optional<std::int32_t> DecodeLong(const ColumnDef& column, const RowView& row);

/// What goes into a row for one column: null, a Boolean's bit, or stored bytes.
struct StoredColumn {
    bool notNull = false;  ///< for a Boolean: its value
    std::vector<std::uint8_t> bytes;
};

/// Throws Overflow for NaN, infinities and dates outside the years 100 to 9999:
/// no column holds them.
void RequireInRange(const Value& value, std::string_view column);

/// Stored bytes of a value, which must have the column's own type (Convert sees to that). Memo and
/// OLE are written to their pages. Throws FieldTooLong, TypeMismatch.
StoredColumn EncodeValue(PageFile& file, const TableDef& def, const ColumnDef& column,
                         const Value& value);

/// A row from its columns, one for each of `def.columns`. Throws FieldTooLong when it is too long
/// for a page.
std::vector<std::uint8_t> BuildRow(const Layout& layout, const TableDef& def,
                                   std::span<const StoredColumn> columns);

// Inside here is what reading many rows spends its time on; so it stands where it can be inlined.

inline RowView::RowView(const Layout& layout, const TableDef& def, ByteView row, RowPointer where)
    : layout_(&layout), row_(row), where_(where) {
    const std::size_t unit = layout.rowCountSize;
    CheckRange(row.size(), 0, unit, where.page);
    columnCount_ = Entry(row, 0, unit);
    if (columnCount_ > def.maxColumns) {
        ThrowDamaged(where.page, where.row, "a row of more columns than the table");
    }
    const std::size_t mask = MaskSize(columnCount_);
    CheckRange(row.size(), unit, mask, where.page);
    maskStart_ = row.size() - mask;
    fixedEnd_ = maskStart_;
    // A row that was written before the table got a variable column has none of the parts below.
    if (def.variableCount == 0 || columnCount_ <= def.firstVariableColumn) return;

    const std::size_t jumps = layout.jumpTable ? (row.size() - 1) / kBytesPerJump : 0;
    const std::size_t fixedParts = unit + unit + jumps;  // one entry (the end), the count, jumps
    if (maskStart_ < unit + fixedParts) ThrowOutside(where.page, 0, fixedParts, row.size());
    variableCount_ = Entry(row, maskStart_ - unit, unit);
    if (variableCount_ * unit > maskStart_ - unit - fixedParts) {
        ThrowDamaged(where.page, where.row, "a row of more variable columns than fit");
    }
    entries_ = maskStart_ - 2 * unit - jumps;
    fixedEnd_ = entries_ - variableCount_ * unit;
    jumpStart_ = maskStart_ - unit - 1;
    const bool lastIsDummy = fixedEnd_ / kBytesPerJump < jumps;
    jumps_ = lastIsDummy ? jumps - 1 : jumps;
}

inline bool RowView::IsNull(const ColumnDef& column) const {
    if (column.Type() == ColumnType::Boolean) return false;
    if (column.number >= columnCount_) return true;
    if (!column.Fixed() && column.variableNumber >= variableCount_) return true;
    return (row_[maskStart_ + column.number / 8U] >> (column.number % 8U) & 1) == 0;
}

inline bool RowView::Bit(const ColumnDef& column) const {
    if (column.number >= columnCount_) return false;
    return (row_[maskStart_ + column.number / 8U] >> (column.number % 8U) & 1) != 0;
}

inline std::optional<ByteView> RowView::RawFixed(const ColumnDef& column) const {
    if (!Bit(column)) return std::nullopt;
    const std::size_t start = layout_->rowCountSize + column.fixedOffset;
    CheckRange(fixedEnd_, start, column.length, where_.page);
    return row_.subspan(start, column.length);
}

inline ByteView RowView::Raw(const ColumnDef& column) const {
    if (column.Type() == ColumnType::Boolean || IsNull(column)) return {};
    return column.Fixed() ? *RawFixed(column) : RawVariable(column);
}

inline std::optional<std::int32_t> DecodeLong(const ColumnDef& column, const RowView& row) {
    if (column.Fixed() && column.Type() == ColumnType::Long) [[likely]] {
        const std::optional<ByteView> raw = row.RawFixed(column);
        return raw ? std::optional(I32(*raw, 0, row.Where().page)) : std::nullopt;
    }
    if (row.IsNull(column)) return std::nullopt;
    const ByteView raw = row.Raw(column);
    switch (column.Type()) {
        case ColumnType::Byte:
            return U8(raw, 0, row.Where().page);
        case ColumnType::Integer:
            return I16(raw, 0, row.Where().page);
        case ColumnType::Long:
            return I32(raw, 0, row.Where().page);
        default:
            throw Error{ErrorNumber::TypeMismatch,
                        "column " + column.name + ": not a column of whole numbers"};
    }
}

}  // namespace jet::detail
