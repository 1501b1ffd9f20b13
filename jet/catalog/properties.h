#pragma once
// What a table's properties say about the values of its columns. They lie as one string of bytes in
// the table's row of the file's list of objects; most of them are other programs' business.

#include "jet/design.h"
#include "jet/storage/bytes.h"
#include "jet/table/tabledef.h"
#include "jet/table/textcodec.h"

namespace jet::detail {

/// Rules for each column of the table. Throws NotADatabase when the bytes contradict themselves; no
/// bytes are no rules.
TableRules ReadRules(ByteView properties, const TextForm& form, const TableDef& def);

}  // namespace jet::detail
