#pragma once
// The columns of the holdings grid: the fields they show, and what may be typed and pasted there.

#include "fundfile/schema.h"

#include <cstddef>
#include <string>
#include <vector>

struct GridColumn;

namespace holdingcolumns {

/// Counted from 0; they are the record's from position 1 on.
enum Column : int { Fond, FondNr, BokfortDatum, Fondandelar, KursKr, VardeKr, Andel };

std::vector<GridColumn> All();

}  // namespace holdingcolumns

/// The name of the field at `position`, one of schema::holding's.
inline std::string HoldingField(std::size_t position) {
    return std::string(schema::holding::kNames[position]);
}
