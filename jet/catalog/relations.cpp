#include "jet/catalog/relations.h"

#include "jet/error.h"
#include "jet/table/names.h"
#include "jet/table/table.h"
#include "jet/table/tabledefbytes.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>

namespace jet::detail {
namespace {

constexpr std::uint8_t kReferenced = 1, kReferencing = 2;
constexpr std::int32_t kNotEnforced = 0x02;

std::vector<std::size_t> AllPositions(const TableDef& def) {
    std::vector<std::size_t> positions(def.columns.size());
    std::iota(positions.begin(), positions.end(), std::size_t{0});
    return positions;
}

std::vector<std::size_t> PositionsOf(const TableDef& def, const LogicalIndex& logical) {
    std::vector<std::size_t> positions;
    for (const IndexColumnDef& column : def.realIndexes[logical.real].columns) {
        positions.push_back(column.position);
    }
    return positions;
}

bool SameTypes(const TableDef& one, const std::vector<std::size_t>& ofOne, const TableDef& other,
               const std::vector<std::size_t>& ofOther) {
    return std::equal(ofOne.begin(), ofOne.end(), ofOther.begin(), ofOther.end(),
                      [&](std::size_t a, std::size_t b) {
                          return one.columns[a].typeCode == other.columns[b].typeCode;
                      });
}

/// What the file's list of relations says of one.
struct Listed {
    std::string name, referencing, referenced;
    std::map<std::int32_t, std::pair<std::string, std::string>> columns;  ///< by their order
};

std::vector<Listed> ReadList(PageFile& file, const Catalog& catalog) {
    std::vector<Listed> list;
    const CatalogTable* entry = catalog.FindTable("MSysRelationships");
    if (entry == nullptr) return list;
    const TableStore table(file, entry->page);
    const SystemColumns columns(table);
    table.Scan([&](RowPointer, const RowView& row) {
        if ((columns.Number(row, "grbit").value_or(0) & kNotEnforced) != 0) return;
        const std::string name = columns.Text(row, "szRelationship");
        auto found = std::find_if(list.begin(), list.end(),
                                  [&](const Listed& known) { return known.name == name; });
        if (found == list.end()) {
            found = list.insert(
                list.end(),
                {name, columns.Text(row, "szObject"), columns.Text(row, "szReferencedObject"), {}});
        }
        found->columns.emplace(
            columns.Number(row, "icolumn").value_or(0),
            std::pair(columns.Text(row, "szColumn"), columns.Text(row, "szReferencedColumn")));
    });
    return list;
}

class Reader {
  public:
    Reader(PageFile& file, const Catalog& catalog) : file_(file), catalog_(catalog) {
        for (const CatalogTable& table : catalog.UserTables()) {
            TableDef def = ReadTableDef(file, table.page);
            def.name = table.name;
            defs_.push_back(std::move(def));
        }
    }

    std::vector<Relation> Read() {
        for (const TableDef& def : defs_) {
            for (const LogicalIndex& logical : def.logicalIndexes) {
                if (logical.kind == IndexKind::Foreign) AddFrom(def, logical);
            }
        }
        for (const Listed& listed : ReadList(file_, catalog_)) AddListed(listed);
        return std::move(relations_);
    }

  private:
    const TableDef* DefAt(std::uint32_t page) const {
        const auto found = std::find_if(defs_.begin(), defs_.end(),
                                        [&](const TableDef& def) { return def.page == page; });
        return found == defs_.end() ? nullptr : &*found;
    }
    const TableDef* DefOf(std::string_view name) const {
        const auto found = std::find_if(defs_.begin(), defs_.end(), [&](const TableDef& def) {
            return SameName(def.name, name);
        });
        return found == defs_.end() ? nullptr : &*found;
    }
    static RelationEnd End(const TableDef& def, const LogicalIndex& logical) {
        return {def.page, def.name, logical.real, PositionsOf(def, logical)};
    }
    static RelationEnd UnknownEnd(const TableDef* def) {
        if (def == nullptr) return {};
        return {def->page, def->name, 0, AllPositions(*def)};
    }

    /// The other table's entry for the same relation, which names this one in turn.
    static const LogicalIndex* Counterpart(const TableDef& def, const LogicalIndex& logical,
                                           const TableDef& other) {
        for (const LogicalIndex& candidate : other.logicalIndexes) {
            const bool same =
                candidate.kind == IndexKind::Foreign && candidate.number == logical.otherIndex &&
                candidate.otherTable == def.page && candidate.otherIndex == logical.number &&
                candidate.side + logical.side == kReferenced + kReferencing;
            if (same) return &candidate;
        }
        return nullptr;
    }

    void AddFrom(const TableDef& def, const LogicalIndex& logical) {
        const TableDef* other = DefAt(logical.otherTable);
        const LogicalIndex* counterpart =
            other == nullptr ? nullptr : Counterpart(def, logical, *other);
        // A whole relation is taken from the referencing side, and once.
        if (counterpart != nullptr && logical.side == kReferenced) return;
        Relation relation;
        relation.name = logical.name;
        relation.cascadeUpdates = logical.cascadeUpdates;
        relation.cascadeDeletes = logical.cascadeDeletes;
        RelationEnd& own = logical.side == kReferenced ? relation.referenced : relation.referencing;
        RelationEnd& far = logical.side == kReferenced ? relation.referencing : relation.referenced;
        own = End(def, logical);
        if (counterpart == nullptr) {
            far = UnknownEnd(other);
            relation.flaw = "the other table has no index for it";
        } else {
            far = End(*other, *counterpart);
            if (!SameTypes(def, own.positions, *other, far.positions)) {
                relation.flaw = "its columns have other types than those they refer to";
            }
        }
        relations_.push_back(std::move(relation));
    }

    void AddListed(const Listed& listed) {
        const TableDef* referencing = DefOf(listed.referencing);
        const TableDef* referenced = DefOf(listed.referenced);
        if (referencing == nullptr && referenced == nullptr) return;
        Relation relation;
        relation.name = listed.name;
        relation.referencing =
            ListedEnd(referencing, listed, [](const auto& c) { return c.first; });
        relation.referenced = ListedEnd(referenced, listed, [](const auto& c) { return c.second; });
        const bool known =
            std::any_of(relations_.begin(), relations_.end(), [&](const Relation& r) {
                return r.flaw.empty() && r.referencing.table == relation.referencing.table &&
                       r.referenced.table == relation.referenced.table && SameColumns(r, relation);
            });
        if (known) return;
        relation.flaw = "its tables have no index for it";
        relations_.push_back(std::move(relation));
    }

    /// Whatever the order in which the two name the pairs of columns.
    static bool SameColumns(const Relation& one, const Relation& other) {
        const auto pairs = [](const Relation& relation) {
            std::vector<std::pair<std::size_t, std::size_t>> columns;
            const auto& to = relation.referenced.positions;
            for (std::size_t i = 0; i < relation.referencing.positions.size(); ++i) {
                if (i < to.size()) columns.emplace_back(relation.referencing.positions[i], to[i]);
            }
            std::sort(columns.begin(), columns.end());
            return columns;
        };
        return pairs(one) == pairs(other);
    }

    template <typename Pick>
    static RelationEnd ListedEnd(const TableDef* def, const Listed& listed, Pick pick) {
        if (def == nullptr) return {};
        RelationEnd end{def->page, def->name, 0, {}};
        for (const auto& [order, names] : listed.columns) {
            const auto position = def->PositionOf(pick(names));
            if (!position) return UnknownEnd(def);
            end.positions.push_back(*position);
        }
        return end;
    }

    PageFile& file_;
    const Catalog& catalog_;
    std::vector<TableDef> defs_;
    std::vector<Relation> relations_;
};

}  // namespace

std::vector<Relation> ReadRelations(PageFile& file, const Catalog& catalog) {
    return Reader(file, catalog).Read();
}

}  // namespace jet::detail
