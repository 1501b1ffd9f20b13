#include "jet/query/opentable.h"

#include "jet/error.h"
#include "jet/verify/soundness.h"

#include <algorithm>

namespace jet::detail {
namespace {

ColumnDesign DesignOf(const PageFile& file, const ColumnDef& column) {
    ColumnDesign design;
    design.name = column.name;
    design.type = column.Type();
    design.autonumber = column.Autonumber();
    if (design.type == ColumnType::Text) {
        design.size = static_cast<std::uint16_t>(column.length / file.Format().textUnit);
    }
    if (design.type == ColumnType::Binary) design.size = column.length;
    if (design.type == ColumnType::Numeric) {
        design.precision = column.precision;
        design.scale = column.scale;
    }
    return design;
}

IndexDesign DesignOf(const TableDef& def, const LogicalIndex& logical) {
    const RealIndex& real = def.realIndexes[logical.real];
    IndexDesign design;
    design.name = logical.name;
    for (const IndexColumnDef& column : real.columns) {
        design.columns.push_back({def.columns[column.position].name, column.descending});
    }
    design.primary = logical.kind == IndexKind::Primary;
    design.foreign = logical.kind == IndexKind::Foreign;
    design.unique = real.Unique();
    design.ignoreNulls = real.IgnoreNulls();
    design.required = real.Required();
    return design;
}

/// The same text, as well as it can be told without the sort order; for others equality.
bool LooksEqual(const Value& one, const Value& other) {
    const auto* text = std::get_if<std::string>(&one.Held());
    const auto* otherText = std::get_if<std::string>(&other.Held());
    if (text == nullptr || otherText == nullptr) return one == other;
    return TextKey(*text) == TextKey(*otherText);
}

}  // namespace

TableDesign DesignOf(const PageFile& file, const TableDef& def, const std::string& name) {
    TableDesign design;
    design.name = name;
    for (const ColumnDef& column : def.columns) design.columns.push_back(DesignOf(file, column));
    for (const LogicalIndex& index : def.logicalIndexes) {
        design.indexes.push_back(DesignOf(def, index));
    }
    return design;
}

OpenTable::OpenTable(PageFile& file, const std::string& name, std::uint32_t page)
    : store_(file, page), indexes_(store_), design_(DesignOf(file, store_.Def(), name)) {
    store_.EditDef().name = name;
}

std::vector<std::uint32_t> OpenTable::Rows(std::span<const Condition> conditions) {
    return Rows(conditions, Ordering(store_, {}));
}

std::vector<std::uint32_t> OpenTable::Rows(std::span<const Condition> conditions,
                                           const Ordering& order) {
    const bool certain = conditions.size() == 1 && IsNumeric(conditions.front().criterion.Kind());
    if (certain) {
        const auto& key = conditions.front().criterion.Key();
        if (!key) return {};
        return LookupFor(conditions.front()).Find(*key, order);
    }
    std::vector<std::uint32_t> rows = MatchingRows(conditions);
    order.Sort(rows);
    return rows;
}

/// In stored order.
std::vector<std::uint32_t> OpenTable::MatchingRows(std::span<const Condition> conditions) {
    std::vector<std::uint32_t> rows;
    if (conditions.empty()) {
        store_.Scan([&](RowPointer where, const RowView&) { rows.push_back(where.Packed()); });
        return rows;
    }
    const Condition& first = conditions.front();
    if (!first.criterion.Key()) return rows;
    const Ordering stored(store_, {});
    for (const std::uint32_t row : LookupFor(first).Find(*first.criterion.Key(), stored)) {
        const RowView view = store_.Read(RowPointer::FromPacked(row));
        const bool all = std::all_of(conditions.begin(), conditions.end(), [&](const Condition& c) {
            return c.criterion.Holds(store_.File(), view);
        });
        if (all) rows.push_back(row);
    }
    return rows;
}

std::vector<OrderColumn> OpenTable::NaturalOrder() const {
    std::vector<OrderColumn> order;
    const LogicalIndex* key = Def().PrimaryKey();
    if (key == nullptr) return order;
    for (const IndexColumnDef& column : Def().realIndexes[key->real].columns) {
        order.push_back({column.position, column.descending});
    }
    return order;
}

std::vector<std::uint32_t> OpenTable::RowsWithKey(std::size_t realIndex,
                                                  std::span<const Value> values) {
    RequireSoundOnce();
    std::vector<std::uint32_t> rows;
    if (const auto key = EncodeKey(values, indexes_.Columns(realIndex))) {
        TreeCursor at = indexes_.Tree(realIndex).From(*key);
        for (; at.Valid() && std::ranges::equal(at.Key(), *key); at.Next()) {
            rows.push_back(at.Row().Packed());
        }
        return rows;
    }
    const auto& parts = Def().realIndexes[realIndex].columns;
    store_.Scan([&](RowPointer where, const RowView& row) {
        for (std::size_t i = 0; i < parts.size(); ++i) {
            const ColumnDef& column = Def().columns[parts[i].position];
            if (!LooksEqual(DecodeColumn(store_.File(), column, row), values[i])) return;
        }
        rows.push_back(where.Packed());
    });
    return rows;
}

RowPointer OpenTable::Insert(std::vector<Value> values) {
    RequireSoundOnce();
    store_.FillAutonumbers(values);
    const IndexPlan plan = indexes_.PlanInsert(values);
    const RowPointer row = store_.Insert(values);
    indexes_.Apply(plan, row);
    ++version_;
    const RowView view = store_.Read(row);
    for (auto& [column, lookup] : lookups_) lookup.Add(view);
    return row;
}

void OpenTable::Update(RowPointer row, std::span<const std::optional<Value>> values) {
    RequireSoundOnce();
    const IndexPlan plan = indexes_.PlanUpdate(row, values);
    ++version_;
    const RowView before = store_.Read(row);
    for (auto& [column, lookup] : lookups_) {
        if (lookup.DependsOn(values)) lookup.Remove(before);
    }
    store_.Update(row, values);
    indexes_.Apply(plan, row);
    const RowView after = store_.Read(row);
    for (auto& [column, lookup] : lookups_) {
        if (lookup.DependsOn(values)) lookup.Add(after);
    }
}

void OpenTable::Delete(std::span<const std::uint32_t> rows) {
    RequireSoundOnce();
    for (const std::uint32_t row : rows)
        store_.Read(RowPointer::FromPacked(row));  // throws if gone
    ++version_;
    indexes_.Erase(rows);
    for (auto& [column, lookup] : lookups_) lookup.Remove(rows);
    store_.Delete(rows);
}

void OpenTable::AfterRollback() noexcept {
    store_.Reload();
    lookups_.clear();
    ++version_;
}

Lookup& OpenTable::LookupFor(const Condition& condition) {
    const std::pair key{condition.position, condition.criterion.Kind()};
    const auto found = lookups_.find(key);
    if (found != lookups_.end()) return found->second;
    LookWhileReading();
    return lookups_.emplace(key, Lookup(store_, key.first, key.second)).first->second;
}

/// The first search reads all rows anyway, and whoever waits for it is not in the middle of storing
/// something. What it finds wrong is for who writes: reading goes on.
void OpenTable::LookWhileReading() {
    if (lookedAt_ || store_.File().ReadOnly()) return;
    lookedAt_ = true;
    try {
        RequireSoundOnce();
    } catch (const Error&) {
        return;
    }
}

void OpenTable::RequireSoundOnce() {
    if (sound_) return;
    RequireSound(store_, indexes_);
    sound_ = true;
}

}  // namespace jet::detail
