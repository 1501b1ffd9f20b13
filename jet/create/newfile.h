#pragma once
// A new file (Jet 4) with empty tables: header, system tables, catalog rows. The bytes depend on
// the designs and the date alone.

#include "jet/design.h"
#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"
#include "jet/value.h"

#include <memory>
#include <span>

namespace jet::detail {

/// The file in memory, for SaveAs. `created` is what the catalog says of every object. Throws
/// InvalidProcedureCall for a design that the format cannot hold.
std::unique_ptr<PageFile> NewFile(std::span<const TableDesign> tables, Date created);

}  // namespace jet::detail
