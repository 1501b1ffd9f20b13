#pragma once
// A row's bytes <-> its columns.

#include "jet/detail/bytes.h"
#include "jet/detail/pagefile.h"
#include "jet/detail/tabledef.h"
#include "jet/detail/textcodec.h"
#include "jet/value.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace jet::detail {

/// A stored row, taken apart on demand; allocates nothing. Lives as long as the bytes it looks at.
class RowView {
  public:
    /// Checks the parts' places; throws NotADatabase naming the page of `where`.
    RowView(const Layout& layout, const TableDef& def, ByteView row, RowPointer where);

    RowPointer Where() const { return where_; }
    ByteView All() const { return row_; }
    std::size_t ColumnCount() const { return columnCount_; }
    /// Null, or not in this row because it was written before the column was added. A Boolean is
    /// never null.
    bool IsNull(const ColumnDef& column) const;
    /// A Boolean column's value: the bit itself.
    bool Bit(const ColumnDef& column) const;
    /// The column's stored bytes, empty for null and for Booleans.
    ByteView Raw(const ColumnDef& column) const;

  private:
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

/// One column's value. Memo and OLE are read from their pages. A type that is none of ours gives
/// Bytes.
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

/// Stored bytes of a value, which must have the column's own type (Convert sees to that). Memo and
/// OLE are written to their pages. Throws FieldTooLong, TypeMismatch.
StoredColumn EncodeValue(PageFile& file, const TableDef& def, const ColumnDef& column,
                         const Value& value);

/// A row from its columns, one for each of `def.columns`. Throws FieldTooLong when it is too long
/// for a page.
std::vector<std::uint8_t> BuildRow(const Layout& layout, const TableDef& def,
                                   std::span<const StoredColumn> columns);

}  // namespace jet::detail
