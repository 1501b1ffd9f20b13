#include "jet/query/lookup.h"

#include <algorithm>

namespace jet::detail {

Lookup::Lookup(const TableStore& table, std::size_t position, KeyKind kind)
    : table_(&table), position_(position), kind_(kind) {
    table.Scan([&](RowPointer where, const RowView& row) {
        if (const auto number = NumberOf(row)) groups_[*number].rows.push_back(where.Packed());
    });
}

std::vector<std::uint32_t> Lookup::Find(const RowKey& key, const Ordering& order) {
    const auto found = groups_.find(key.number);
    if (found == groups_.end()) return {};
    Group& group = found->second;
    if (group.order && group.order->SameAs(order)) return group.rows;
    std::vector<std::uint32_t> rows = group.rows;
    if (group.order) std::sort(rows.begin(), rows.end());
    order.Sort(rows);
    if (order.CanCompare()) {
        group.order = Shared(order);
        group.rows = rows;
    }
    return rows;
}

std::shared_ptr<const Ordering> Lookup::Shared(const Ordering& order) {
    for (const auto& known : orders_) {
        if (known->SameAs(order)) return known;
    }
    return orders_.emplace_back(std::make_shared<const Ordering>(order));
}

void Lookup::Add(const RowView& row) {
    const auto number = NumberOf(row);
    if (!number) return;
    Group& group = groups_[*number];
    const auto before = [&](std::uint32_t a, std::uint32_t b) { return group.Before(a, b); };
    const std::uint32_t where = row.Where().Packed();
    group.rows.insert(std::upper_bound(group.rows.begin(), group.rows.end(), where, before), where);
}

void Lookup::Remove(const RowView& row) {
    const auto number = NumberOf(row);
    if (!number) return;
    const auto found = groups_.find(*number);
    if (found == groups_.end()) return;
    Group& group = found->second;
    const auto before = [&](std::uint32_t a, std::uint32_t b) { return group.Before(a, b); };
    const auto [first, last] =
        std::equal_range(group.rows.begin(), group.rows.end(), row.Where().Packed(), before);
    group.rows.erase(first, last);
    if (group.rows.empty()) groups_.erase(found);
}

void Lookup::Remove(std::span<const std::uint32_t> rows) {
    constexpr std::size_t kFew = 8;
    if (rows.size() <= kFew) {
        for (const std::uint32_t row : rows) Remove(table_->Read(RowPointer::FromPacked(row)));
        return;
    }
    std::vector<std::uint32_t> sorted(rows.begin(), rows.end());
    if (!std::is_sorted(sorted.begin(), sorted.end())) std::sort(sorted.begin(), sorted.end());
    std::vector<std::uint64_t> numbers;
    for (const std::uint32_t row : sorted) {
        const auto number = NumberOf(table_->Read(RowPointer::FromPacked(row)));
        if (number && (numbers.empty() || numbers.back() != *number)) numbers.push_back(*number);
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    for (const std::uint64_t number : numbers) {
        const auto found = groups_.find(number);
        if (found == groups_.end()) continue;
        auto next = sorted.cbegin();  // rows mostly come in the same order here and there
        std::erase_if(found->second.rows, [&](std::uint32_t row) {
            if (next == sorted.cend() || *next != row) {
                next = std::lower_bound(sorted.cbegin(), sorted.cend(), row);
            }
            const bool gone = next != sorted.cend() && *next == row;
            if (gone) ++next;
            return gone;
        });
        if (found->second.rows.empty()) groups_.erase(found);
    }
}

bool Lookup::DependsOn(std::span<const std::optional<Value>> values) const {
    return values[position_] || std::any_of(orders_.begin(), orders_.end(), [&](const auto& order) {
               return order->Uses([&](std::size_t column) { return values[column].has_value(); });
           });
}

std::optional<std::uint64_t> Lookup::NumberOf(const RowView& row) const {
    const ColumnDef& column = table_->Def().columns[position_];
    if (IsNumeric(kind_)) return NumberKeyOf(table_->File(), column, kind_, row);
    const auto key = KeyOf(table_->File(), column, kind_, row);
    return key ? std::optional(key->number) : std::nullopt;
}

}  // namespace jet::detail
