#pragma once
// Whether a file has all that it says it has: pages that its tables use, and their rows. What was
// cut off, or has lost pages in its middle, is not written to: new pages would take the numbers of
// lost ones, which old rows still point to.

#include "jet/catalog/catalog.h"
#include "jet/loss.h"
#include "jet/table/table.h"

#include <optional>
#include <string>

namespace jet::detail {

/// Reads every table's maps and counts its rows: nothing of a sound file. Never throws for damage.
std::optional<Loss> FindLoss(PageFile& file, const Catalog& catalog);

/// A page behind the file's end that one of the table's own maps names, as one line; none = all
/// are there.
std::optional<std::string> PageBeyondEnd(const TableStore& table);

/// Whether a text or binary column is declared longer than the format allows.
bool IsTooLong(const Layout& layout, const ColumnDef& column);

}  // namespace jet::detail
