#include "jet/verify/soundness.h"

#include "jet/error.h"
#include "jet/index/indexsums.h"
#include "jet/table/longvalue.h"

#include <algorithm>
#include <unordered_set>

namespace jet::detail {
namespace {

[[noreturn]] void Damaged(const TableStore& table, const std::string& what) {
    throw Error{ErrorNumber::NotADatabase, "table " + table.Def().name + " is damaged: " + what};
}

std::string RowText(RowPointer row) {
    return "page " + Decimal(row.page) + " row " + Decimal(row.row);
}

void CheckPages(const TableStore& table) {
    for (const std::uint32_t number : table.DataPages()) {
        const DataPage page(table.File(), number);
        if (page.StoredFreeBytes() != page.FreeBytes()) {
            Damaged(table, "free bytes of page " + Decimal(number));
        }
    }
}

// A value whose pieces are another's as well came from a file that lost pages and had their numbers
// given out again: to change one would change the other.
void CheckLongValues(const TableStore& table) {
    std::unordered_set<std::uint32_t> seen;
    for (const ColumnDef& column : table.Def().columns) {
        if (!column.IsLongValue()) continue;
        table.Scan([&](RowPointer where, const RowView& row) {
            if (row.IsNull(column)) return;
            for (const RowPointer piece : PiecesOf(table.File(), row.Raw(column))) {
                if (seen.insert(piece.Packed()).second) continue;
                Damaged(table,
                        "two values of " + column.name + " share a piece: " + RowText(where));
            }
        });
    }
}

std::uint64_t EntriesDue(const TableStore& table, const TableIndexes& indexes, std::size_t index) {
    const bool leavesRowsOut = table.Def().realIndexes[index].IgnoreNulls();
    std::uint64_t due = 0;
    Bytes key;
    table.Scan([&](RowPointer, const RowView& row) {
        const bool absent =
            leavesRowsOut && indexes.KeyFromRow(index, row, key) == TableIndexes::KeyState::Absent;
        if (!absent) ++due;
    });
    return due;
}

// As many different entries as rows, each of a row that is there and has this key: then every row
// has its entry.
void CheckIndex(const TableStore& table, const TableIndexes& indexes, std::size_t index) {
    if (EntriesAddUp(table, indexes, index)) return;
    using KeyState = TableIndexes::KeyState;
    const std::uint64_t due = EntriesDue(table, indexes, index);
    std::uint64_t entries = 0;
    const std::string name = "index " + Decimal(index) + ": ";
    Bytes expected;
    for (TreeCursor cursor = indexes.Tree(index).First(); cursor.Valid(); cursor.Next()) {
        const RowPointer row = cursor.Row();
        if (!table.Exists(row)) Damaged(table, name + "no row for the entry of " + RowText(row));
        const KeyState state = indexes.KeyFromRow(index, table.Read(row), expected);
        const ByteView key = cursor.Key();
        if (state == KeyState::Known &&
            !std::equal(expected.begin(), expected.end(), key.begin(), key.end())) {
            Damaged(table, name + "another key than the row's at " + RowText(row));
        }
        ++entries;
    }
    if (entries != due) {
        Damaged(table, name + Decimal(entries) + " entries for " + Decimal(due) + " rows");
    }
}

}  // namespace

void RequireSound(const TableStore& table, const TableIndexes& indexes) {
    CheckPages(table);
    CheckLongValues(table);
    for (std::size_t i = 0; i < table.Def().realIndexes.size(); ++i) CheckIndex(table, indexes, i);
}

}  // namespace jet::detail
