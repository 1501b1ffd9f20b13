#include "jet/detail/lookup.h"

#include <algorithm>

namespace jet::detail {

Lookup::Lookup(const TableStore& table, std::size_t position, KeyKind kind)
    : table_(&table), position_(position), kind_(kind) {
    table.Scan([&](RowPointer where, const RowView& row) {
        if (const auto number = NumberOf(row)) rows_[*number].push_back(where.Packed());
    });
}

std::span<const std::uint32_t> Lookup::Find(const RowKey& key) const {
    const auto found = rows_.find(key.number);
    if (found == rows_.end()) return {};
    return found->second;
}

void Lookup::Add(const RowView& row) {
    const auto number = NumberOf(row);
    if (!number) return;
    std::vector<std::uint32_t>& rows = rows_[*number];
    const std::uint32_t where = row.Where().Packed();
    rows.insert(std::upper_bound(rows.begin(), rows.end(), where), where);
}

void Lookup::Remove(const RowView& row) {
    const auto number = NumberOf(row);
    if (!number) return;
    const auto found = rows_.find(*number);
    if (found == rows_.end()) return;
    std::vector<std::uint32_t>& rows = found->second;
    const auto [first, last] = std::equal_range(rows.begin(), rows.end(), row.Where().Packed());
    rows.erase(first, last);
    if (rows.empty()) rows_.erase(found);
}

std::optional<std::uint64_t> Lookup::NumberOf(const RowView& row) const {
    const ColumnDef& column = table_->Def().columns[position_];
    if (IsNumeric(kind_)) return NumberKeyOf(table_->File(), column, kind_, row);
    const auto key = KeyOf(table_->File(), column, kind_, row);
    return key ? std::optional(key->number) : std::nullopt;
}

}  // namespace jet::detail
