#pragma once
// One table of a file that is checked: definition, pages, rows, long values, indexes.

#include "jet/catalog/catalog.h"
#include "jet/storage/pagefile.h"
#include "jet/verify/report.h"

#include <cstdint>

namespace jet::detail {

/// Tells the report what is wrong. `longValueBudget` is how many bytes all long values of the file
/// together may still have. Throws NotADatabase where the definition cannot be read.
void CheckTable(PageFile& file, Report& report, const CatalogTable& table,
                std::uint64_t& longValueBudget);

}  // namespace jet::detail
