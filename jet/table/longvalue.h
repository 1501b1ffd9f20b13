#pragma once
// Memo and OLE values: the 12-byte descriptor in the row and the pieces on pages of their own.

#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"

#include <cstdint>
#include <vector>

namespace jet::detail {

/// The whole value that a stored descriptor (with inline data) leads to.
std::vector<std::uint8_t> ReadLongValue(const PageFile& file, ByteView descriptor);
/// At most the first `limit` bytes of it.
std::vector<std::uint8_t> ReadLongValue(const PageFile& file, ByteView descriptor,
                                        std::size_t limit);
/// Its length in bytes as stated, unchecked.
std::uint32_t LongValueLength(ByteView descriptor);

/// Where the pieces of a value are that are not in the row itself, in order. Throws NotADatabase
/// when they are not there, or are not as long together as the value.
std::vector<RowPointer> PiecesOf(const PageFile& file, ByteView descriptor);

/// Stores a value and returns the bytes that go into the row.
std::vector<std::uint8_t> WriteLongValue(PageFile& file, const TableDef& def,
                                         const ColumnDef& column, ByteView value);
/// Frees the pieces of a stored value; a descriptor that leads to nothing sound frees nothing.
void FreeLongValue(PageFile& file, const TableDef& def, const ColumnDef& column,
                   ByteView descriptor);

}  // namespace jet::detail
