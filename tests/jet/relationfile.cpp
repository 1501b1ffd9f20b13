#include "relationfile.h"

#include "jet/catalog/catalog.h"
#include "jet/index/tableindexes.h"
#include "jet/table/tabledef.h"
#include "jet/table/tabledefbytes.h"

#include <gtest/gtest.h>

namespace jet::test {
namespace {

using namespace detail;

std::uint32_t PageOf(PageFile& file, const std::string& table) {
    return Catalog(file).FindTable(table)->page;
}

/// The index on the column, under a new name and number.
LogicalIndex EntryFor(const TableDef& def, const std::string& column, const std::string& name) {
    LogicalIndex entry;
    entry.name = name;
    entry.kind = IndexKind::Foreign;
    entry.number = static_cast<std::uint32_t>(def.logicalIndexes.size());
    for (std::uint32_t real = 0; real < def.realIndexes.size(); ++real) {
        const std::size_t first = def.realIndexes[real].columns.front().position;
        if (def.columns[first].name == column) entry.real = real;
    }
    return entry;
}

void Write(PageFile& file, const TableDef& def) {
    WriteTableDef(file, def.page, BuildTableDef(file.Format(), file.Header().codePage, def));
}

}  // namespace

void CreateRelatable(const std::filesystem::path& path) {
    std::vector<TableDesign> tables;
    for (const char* name : {"A", "B"}) {
        IndexDesign key{"PrimaryKey", {{"Id"}}}, ref{"Ref", {{"Ref"}}}, text{"Namn", {{"Namn"}}};
        key.primary = true;
        text.unique = tables.size() == 1;
        tables.push_back(
            {name,
             {{"Id", ColumnType::Long}, {"Ref", ColumnType::Long}, {"Namn", ColumnType::Text, 40}},
             {key, ref, text}});
    }
    Database::Create(path, tables, Date{46000});
}

void Relate(const std::filesystem::path& path, const RelationDesign& relation, Ends ends) {
    const auto file = PageFile::Open(path);
    const std::uint32_t from = PageOf(*file, relation.table), to = PageOf(*file, relation.other);
    TableDef def = ReadTableDef(*file, from);
    LogicalIndex referencing = EntryFor(def, relation.columns.front(), relation.name);
    referencing.side = 2;
    referencing.otherTable = to;
    if (ends != Ends::ReferencedAlone) {
        def.logicalIndexes.push_back(referencing);
        Write(*file, def);
    }
    TableDef otherDef = ReadTableDef(*file, to);
    LogicalIndex referenced =
        EntryFor(otherDef, relation.otherColumns.front(), ".r" + relation.name);
    referenced.side = 1;
    referenced.otherTable = from;
    referenced.otherIndex = referencing.number;
    referenced.cascadeUpdates = relation.cascadeUpdates;
    referenced.cascadeDeletes = relation.cascadeDeletes;
    if (ends != Ends::ReferencingAlone) {
        otherDef.logicalIndexes.push_back(referenced);
        Write(*file, otherDef);
    }
    if (ends != Ends::ReferencedAlone) {
        def = ReadTableDef(*file, from);
        LogicalIndex& entry = def.logicalIndexes[referencing.number];
        entry.otherIndex = referenced.number;
        entry.cascadeUpdates = relation.cascadeUpdates;
        entry.cascadeDeletes = relation.cascadeDeletes;
        Write(*file, def);
    }
    file->SaveAs(path);
}

void ListRelation(const std::filesystem::path& path, const RelationDesign& relation) {
    const auto file = PageFile::Open(path);
    TableStore store(*file, PageOf(*file, "MSysRelationships"));
    TableIndexes indexes(store);
    std::vector<Value> values(store.Def().columns.size());
    const auto set = [&](std::string_view column, Value value) {
        values[store.Def().PositionOf(column).value()] = std::move(value);
    };
    set("szRelationship", relation.name);
    set("grbit", std::int32_t{0});
    set("ccolumn", std::int32_t{1});
    set("icolumn", std::int32_t{0});
    set("szObject", relation.table);
    set("szColumn", relation.columns.front());
    set("szReferencedObject", relation.other);
    set("szReferencedColumn", relation.otherColumns.front());
    const IndexPlan plan = indexes.PlanInsert(values);
    indexes.Apply(plan, store.Insert(values));
    file->SaveAs(path);
}

}  // namespace jet::test
