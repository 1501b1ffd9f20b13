#pragma once
// The check before the first write into a table: that its pages, long values and indexes say the
// same as its rows, so that a write does not spread damage. Quick and without memory of its own;
// `Verify` finds more.

#include "jet/index/tableindexes.h"
#include "jet/table/table.h"

namespace jet::detail {

/// Throws NotADatabase with what contradicts what: a page's free bytes, a row without its entry in
/// an index, an entry with another key than its row's, or without a row.
void RequireSound(const TableStore& table, const TableIndexes& indexes);

}  // namespace jet::detail
