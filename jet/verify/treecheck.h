#pragma once
// The shape of one index tree: its pages, the links between its leaves, its map.

#include "jet/storage/pagefile.h"
#include "jet/table/tabledef.h"
#include "jet/verify/report.h"

#include <cstddef>
#include <string>

namespace jet::detail {

/// Walks the nodes and tells the report what is wrong; the order of all entries is checked by the
/// cursors. False when the tree is not fit to be walked.
bool CheckTree(PageFile& file, Report& report, const TableDef& def, std::size_t realIndex,
               const std::string& name);

}  // namespace jet::detail
