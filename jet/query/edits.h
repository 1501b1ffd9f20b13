#pragma once
// Rows inserted, updated and deleted as the file asks for: values keep the rules of their columns,
// and no enforced relation breaks: a reference leads to a row, and the rows that refer to a changed
// or deleted one follow it or forbid the change.

#include "jet/query/engine.h"
#include "jet/query/opentable.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace jet::detail {

// Each stands inside Engine::Statement, which takes back all of it when one throws: RelatedRecords
// (3200: other rows refer to this one, and the relation does not let them follow),
// RelatedRowMissing (3201: it refers to a row that is not there), RequiredField, ZeroLength,
// ValidationRule; NotSupported for a relation that cannot be followed and a rule that cannot be
// evaluated, before anything has changed.
//
// A reference with a null in any of its columns refers to nothing. Keys are equal when the index of
// the table that is looked into says so: letter case and blanks at the end of a text do not count.

RowPointer InsertRow(Engine& engine, OpenTable& table, std::vector<Value> values);
void UpdateRow(Engine& engine, OpenTable& table, RowPointer row,
               std::span<const std::optional<Value>> values);
/// Packed pointers. Throws RecordDeleted when one of them is gone.
void DeleteRows(Engine& engine, OpenTable& table, std::span<const std::uint32_t> rows);

}  // namespace jet::detail
