#include "jet/detail/opentable.h"

#include "base/error.h"
#include "jet/detail/soundness.h"

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

constexpr std::uint8_t kReferenced = 1, kReferencing = 2;

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

RowPointer OpenTable::Insert(std::vector<Value> values) {
    RequireSoundOnce();
    store_.FillAutonumbers(values);
    CheckRelations(kReferencing, [&](std::size_t position) { return !values[position].IsNull(); });
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
    const auto changes = [&](std::size_t position) {
        return values[position] && *values[position] != store_.Field(row, position);
    };
    CheckRelations(kReferencing, changes);
    CheckRelations(kReferenced, changes);
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
    if (!rows.empty()) CheckRelations(kReferenced, [](std::size_t) { return true; });
    ++version_;
    indexes_.Erase(rows);
    for (auto& [column, lookup] : lookups_) lookup.Remove(rows);
    store_.Delete(rows);
}

void OpenTable::AfterRollback() {
    store_.Reload();
    lookups_.clear();
    ++version_;
}

Lookup& OpenTable::LookupFor(const Condition& condition) {
    const std::pair key{condition.position, condition.criterion.Kind()};
    const auto found = lookups_.find(key);
    if (found != lookups_.end()) return found->second;
    return lookups_.emplace(key, Lookup(store_, key.first, key.second)).first->second;
}

void OpenTable::RequireSoundOnce() {
    if (sound_) return;
    RequireSound(store_, indexes_);
    sound_ = true;
}

// Relations between tables are not followed here, so what could break one is refused.
void OpenTable::CheckRelations(std::uint8_t side,
                               const std::function<bool(std::size_t)>& touches) const {
    for (const LogicalIndex& index : Def().logicalIndexes) {
        if (index.kind != IndexKind::Foreign || index.side != side) continue;
        const auto& columns = Def().realIndexes[index.real].columns;
        const bool touched =
            std::any_of(columns.begin(), columns.end(),
                        [&](const IndexColumnDef& c) { return touches(c.position); });
        if (touched) {
            throw Error{ErrorNumber::RelatedRecords, "table " + design_.name + ": relation " +
                                                         index.name + " is not enforced here"};
        }
    }
}

}  // namespace jet::detail
