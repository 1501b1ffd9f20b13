#pragma once
// What a new table is designed as, checked, as the definition that the file gets.

#include "jet/design.h"
#include "jet/table/tabledef.h"

#include <cstddef>
#include <span>

namespace jet::detail {

inline constexpr std::size_t kMaxTextLength = 255, kMaxBinarySize = 510;

/// The definition in Jet 4, not yet placed in a file. Throws InvalidProcedureCall for a design that
/// the format cannot hold.
TableDef DefinitionOf(const TableDesign& design);

/// Throws InvalidProcedureCall where a name is none, or two tables have one, the system's included.
void CheckTableNames(std::span<const TableDesign> tables);

}  // namespace jet::detail
