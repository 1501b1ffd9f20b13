#include "jet/detail/soundness.h"

#include "base/error.h"

#include <algorithm>

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

// As many different entries as rows, each of a row that is there and has this key: then every row
// has its entry.
void CheckIndex(const TableStore& table, const TableIndexes& indexes, std::size_t index) {
    std::uint64_t rows = 0;
    table.Scan([&](RowPointer, const RowView& row) {
        if (indexes.KeyFromRow(index, row).present) ++rows;
    });

    std::uint64_t entries = 0;
    const std::string name = "index " + Decimal(index) + ": ";
    for (TreeCursor cursor = indexes.Tree(index).First(); cursor.Valid(); cursor.Next()) {
        const RowPointer row = cursor.Row();
        if (!table.Exists(row)) Damaged(table, name + "no row for the entry of " + RowText(row));
        const auto expected = indexes.KeyFromRow(index, table.Read(row)).key;
        const ByteView key = cursor.Key();
        if (expected && !std::equal(expected->begin(), expected->end(), key.begin(), key.end())) {
            Damaged(table, name + "another key than the row's at " + RowText(row));
        }
        ++entries;
    }
    if (entries != rows) {
        Damaged(table, name + Decimal(entries) + " entries for " + Decimal(rows) + " rows");
    }
}

}  // namespace

void RequireSound(const TableStore& table, const TableIndexes& indexes) {
    CheckPages(table);
    for (std::size_t i = 0; i < table.Def().realIndexes.size(); ++i) CheckIndex(table, indexes, i);
}

}  // namespace jet::detail
