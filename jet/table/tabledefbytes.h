#pragma once
// A table's definition as bytes, read and written.

#include "jet/storage/bytes.h"
#include "jet/storage/layout.h"
#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"

#include <cstdint>
#include <vector>

namespace jet::detail {

/// Reads and checks the definition that begins on `page`.
TableDef ReadTableDef(const PageFile& file, std::uint32_t page);

/// The definition as one string of bytes, the page header included; columns in the order of
/// `def.columns`. Next-page fields and the free bytes of the pages are left to WriteTableDef.
std::vector<std::uint8_t> BuildTableDef(const Layout& layout, std::uint16_t codePage,
                                        const TableDef& def);
/// Puts a built definition on `firstPage` and on as many further pages as it
/// needs (allocated here).
void WriteTableDef(PageFile& file, std::uint32_t firstPage, ByteView built);

}  // namespace jet::detail
