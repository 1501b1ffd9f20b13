#pragma once
// Whether an index and its table say the same, by sums: the quick half of the check before the
// first write.

#include "jet/index/tableindexes.h"
#include "jet/table/table.h"

#include <cstddef>

namespace jet::detail {

/// Whether the index has an entry with the row's key for each row, and no other. Both are walked in
/// their own order, which is the order of their pages, and a number for each row and key is added
/// up on either side; so no row is looked up from its entry. False when the sums differ, or some
/// key cannot be computed: who wants to know what is wrong looks closer. Entries out of order, or
/// pages that are damaged, throw NotADatabase.
bool EntriesAddUp(const TableStore& table, const TableIndexes& indexes, std::size_t index);

}  // namespace jet::detail
