// A file of any bytes: open it, read everything, then insert, update and delete a row in each
// table. The engine may answer with Error; anything else (a crash, a hang, much memory) is a find.

#include "jet/error.h"
#include "jet/index/btree.h"
#include "jet/index/tableindexes.h"
#include "jet/query/edits.h"
#include "jet/query/engine.h"
#include "jet/query/keyset.h"
#include "jet/query/queryplan.h"
#include "jet/storage/pagefile.h"
#include "jet/table/table.h"
#include "jet/verify/verify.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace jet;
using namespace jet::detail;

/// Runs one step; an Error ends that step alone.
template <typename Step>
bool Try(Step&& step) {
    try {
        step();
        return true;
    } catch (const Error&) {
        return false;
    }
}

Value SampleValue(const ColumnDef& column, unsigned seed) {
    switch (column.Type()) {
        case ColumnType::Boolean:
            return seed % 2 == 0;
        case ColumnType::Byte:
            return static_cast<std::uint8_t>(seed);
        case ColumnType::Integer:
            return static_cast<std::int16_t>(seed);
        case ColumnType::Long:
            return static_cast<std::int32_t>(1000000 + seed);
        case ColumnType::Currency:
            return Currency{seed};
        case ColumnType::Single:
            return static_cast<float>(seed);
        case ColumnType::Double:
            return static_cast<double>(seed);
        case ColumnType::Date:
            return Date{static_cast<double>(seed)};
        case ColumnType::Text:
            return std::string(seed % 4, 'y') + "Åäö";
        case ColumnType::Memo:
            return std::string(seed % 3 * 1400 + 10, 'x');
        case ColumnType::Binary:
        case ColumnType::LargeBinary:
            return Bytes(seed % 9, 7);
        case ColumnType::Ole:
            return Bytes(std::size_t{1500} * (seed % 4), 9);
        case ColumnType::Guid:
            return Guid{};
        case ColumnType::Numeric:
            return Numeric{false, {0, 0, 0, seed}, column.scale};
    }
    return {};
}

void WalkBothWays(const BTree& tree) {
    for (TreeCursor at = tree.First(); at.Valid(); at.Next()) at.Row();
    for (TreeCursor at = tree.Last(); at.Valid(); at.Previous()) at.Row();
}

void ReadTable(Engine& engine, const std::string& name) {
    OpenTable& table = engine.Table(name);
    const TableDef& def = table.Def();
    table.Store().Scan([&](RowPointer, const RowView& row) {
        for (const ColumnDef& column : def.columns) {
            Try([&] { DecodeColumn(engine.File(), column, row); });
        }
    });
    Try([&] { table.Rows({}); });
    Try([&] { PlanSource(engine, name); });
    TableStore store(engine.File(), def.page);
    const TableIndexes indexes(store);
    for (std::size_t index = 0; index < def.realIndexes.size(); ++index) {
        Try([&] { WalkBothWays(indexes.Tree(index)); });
    }
}

/// What record sets do: rows in the order of a column, and the first with a value there.
void FindRowsBy(Engine& engine, const std::string& name, std::size_t column) {
    OpenTable& table = engine.Table(name);
    const auto& columns = table.Def().columns;
    const std::string field = "[" + columns[column].name + "]";
    const char* const literal = columns[column].IsText() ? "'yÅäö'" : "5";
    Keyset rows(PlanSource(engine, "SELECT * FROM [" + name + "] ORDER BY " + field));
    rows.Find(PlanCriterion(engine, table, field + " = " + literal));
    const std::string where = "] WHERE " + field + " = " + literal;
    const std::string order = " ORDER BY [" + columns.back().name + "] DESC, " + field;
    Keyset(PlanSource(engine, "SELECT * FROM [" + name + where + order)).Count();
    table.Rows(PlanDelete(engine, "DELETE FROM [" + name + where).conditions);
}

void FindRows(Engine& engine, const std::string& name) {
    constexpr std::size_t kMaxColumns = 3;
    const std::size_t columns = std::min(kMaxColumns, engine.Table(name).Def().columns.size());
    for (std::size_t i = 0; i < columns; ++i) Try([&] { FindRowsBy(engine, name, i); });
}

std::vector<std::uint32_t> FirstRows(const TableStore& store) {
    constexpr std::size_t kMaxRows = 8;
    std::vector<std::uint32_t> rows;
    Try([&] {
        store.Scan([&](RowPointer where, const RowView&) {
            rows.push_back(where.Packed());
            return rows.size() < kMaxRows;
        });
    });
    return rows;
}

std::optional<RowPointer> FirstRow(const TableStore& store) {
    const auto rows = FirstRows(store);
    if (rows.empty()) return std::nullopt;
    return RowPointer::FromPacked(rows.front());
}

/// Below the check that a table is sound: damaged tables too must not bring the engine down.
void WriteUnchecked(PageFile& file, std::uint32_t page) {
    TableStore store(file, page);
    TableIndexes indexes(store);
    const auto statement = [&](auto&& work) {
        const bool done = Try([&] {
            UndoScope scope(file);
            work();
            scope.Commit();
        });
        if (!done) store.Reload();
    };
    for (unsigned seed = 0; seed < 3; ++seed) {
        statement([&] {
            std::vector<Value> values;
            for (const ColumnDef& column : store.Def().columns) {
                values.push_back(column.Autonumber() ? Value() : SampleValue(column, seed));
            }
            store.FillAutonumbers(values);
            const IndexPlan plan = indexes.PlanInsert(values);
            indexes.Apply(plan, store.Insert(values));
        });
    }
    if (const auto row = FirstRow(store)) {
        statement([&] {
            std::vector<std::optional<Value>> values;
            for (const ColumnDef& column : store.Def().columns) {
                values.emplace_back(SampleValue(column, 7));
            }
            const IndexPlan plan = indexes.PlanUpdate(*row, values);
            store.Update(*row, values);
            indexes.Apply(plan, *row);
        });
    }
    if (const auto row = FirstRow(store)) {
        statement([&] {
            const std::uint32_t packed = row->Packed();
            indexes.Erase(std::span(&packed, 1));
            store.Delete(*row);
        });
    }
    statement([&] {
        const auto rows = FirstRows(store);
        indexes.Erase(rows);
        store.Delete(rows);
    });
}

void WriteChecked(Engine& engine, const std::string& name) {
    OpenTable& table = engine.Table(name);
    std::vector<Value> values;
    for (const ColumnDef& column : table.Def().columns) {
        values.push_back(column.Autonumber() ? Value() : SampleValue(column, 5));
    }
    Try([&] { engine.RulesOf(table); });
    Try([&] { engine.Statement([&] { return InsertRow(engine, table, values); }); });
    const auto rows = FirstRows(table.Store());
    if (rows.empty()) return;
    Try([&] {
        engine.Statement([&] {
            UpdateRow(engine, table, RowPointer::FromPacked(rows.front()),
                      std::vector<std::optional<Value>>(values.begin(), values.end()));
            return true;
        });
    });
    engine.Statement([&] {
        DeleteRows(engine, table, rows);
        return true;
    });
}

FileImage ImageOf(const std::uint8_t* data, std::size_t size) {
    FileImage image;
    image.Resize(size);
    for (std::size_t at = 0; at < size; at += FileImage::kChunkBytes) {
        std::memcpy(image.At(at), data + at, std::min(FileImage::kChunkBytes, size - at));
    }
    return image;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::unique_ptr<Engine> engine;
    if (!Try(
            [&] { engine = std::make_unique<Engine>(PageFile::FromImage(ImageOf(data, size))); })) {
        return 0;
    }
    Try([&] { Verify(engine->File()); });
    constexpr std::size_t kMaxTables = 8;
    const auto tables = engine->Objects().UserTables();
    for (std::size_t i = 0; i < tables.size() && i < kMaxTables; ++i) {
        Try([&] { ReadTable(*engine, tables[i].name); });
        Try([&] { FindRows(*engine, tables[i].name); });
    }
    for (const std::string& query : engine->Objects().QueryNames()) {
        Try([&] { Keyset(PlanSource(*engine, query)).Count(); });
    }
    for (std::size_t i = 0; i < tables.size() && i < 2; ++i) {
        Try([&] { WriteChecked(*engine, tables[i].name); });
    }
    Try([&] { engine->Objects().QueryTexts(); });
    // Below the checks, a file that lacks a part is written to as well.
    Try([&] {
        const auto file = PageFile::FromImage(ImageOf(data, size));
        for (std::size_t i = 0; i < tables.size() && i < 2; ++i) {
            Try([&] { WriteUnchecked(*file, tables[i].page); });
        }
    });
    return 0;
}
