// Writes the fuzzer's starting files: as few pages as a file can have, each with another part of
// the format, in both versions. Whole files of other programs have thirty pages and more before
// the first row, and a fuzzer then spends its time there.
//
//   makeseeds FOLDER

#include "jet/catalog/catalog.h"
#include "jet/index/btree.h"
#include "jet/index/indexpage.h"
#include "jet/index/tableindexes.h"
#include "jet/storage/datapage.h"
#include "jet/storage/header.h"
#include "jet/storage/usagemap.h"
#include "jet/table/table.h"
#include "jet/table/tabledef.h"
#include "jet/table/tabledefbytes.h"
#include "jet/table/textcodec.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using namespace jet;
using namespace jet::detail;

constexpr std::uint16_t kCodePage = 1252, kOtherCollation = 1053;
constexpr std::int16_t kTableObject = 1, kQueryObject = 5, kLinkedObject = 6;

struct Column {
    std::string name;
    ColumnType type = ColumnType::Long;
    std::uint16_t length = 4;
    std::uint8_t flags = 0;
    std::uint16_t collation = kGeneralCollation;
};

struct Index {
    std::vector<std::size_t> columns;
    IndexKind kind = IndexKind::Normal;
    std::uint8_t flags = 0;
    bool descending = false;
};

bool IsVariable(ColumnType type) {
    return type == ColumnType::Text || type == ColumnType::Binary || type == ColumnType::Memo ||
           type == ColumnType::Ole;
}

std::vector<ColumnDef> ColumnsOf(const std::vector<Column>& wanted) {
    std::vector<ColumnDef> columns;
    std::uint16_t fixedEnd = 0, variables = 0;
    for (const Column& from : wanted) {
        ColumnDef& column = columns.emplace_back();
        column.name = from.name;
        column.typeCode = static_cast<std::uint8_t>(from.type);
        column.number = column.ordinal = static_cast<std::uint16_t>(columns.size() - 1);
        column.length = from.length;
        column.collation = from.collation;
        column.codePage = kCodePage;
        column.variableNumber = variables;
        column.extra = column.IsText() ? kExtraCompressed : std::uint8_t{0};
        column.flags = static_cast<std::uint8_t>(from.flags | kColumnUpdatable);
        if (IsVariable(from.type)) {
            ++variables;
            continue;
        }
        column.flags |= kColumnFixed;
        column.fixedOffset = fixedEnd;
        if (from.type != ColumnType::Boolean) {
            fixedEnd = static_cast<std::uint16_t>(fixedEnd + from.length);
        }
    }
    return columns;
}

/// A file under construction. It has a list of objects,
/// but no other system table until one is asked for.
class Seed {
  public:
    Seed(const Layout& layout, std::uint16_t codePage)
        : layout_(layout), file_(PageFile::New(layout)) {
        for (int page = 0; page < 3; ++page) file_->AppendPage();
        WriteHeader(codePage);
        WriteGlobalMap();
        PlaceTable(kSystemObjectsPage, ObjectColumns(), {}, kSystemTable);
        constexpr std::uint32_t kSystemObject = 0x80000000;
        AddObject(kSystemObjectsPage, "MSysObjects", kTableObject, kSystemObject);
    }

    const Layout& Format() const { return layout_; }
    PageFile& File() { return *file_; }

    std::uint32_t AddTable(const std::string& name, const std::vector<Column>& columns,
                           const std::vector<Index>& indexes) {
        const std::uint32_t page = AllocatePage(*file_);
        PlaceTable(page, columns, indexes, kUserTable);
        lastTable_ = AddObject(page, name, kTableObject, 0);
        return page;
    }

    RowPointer AddObject(std::uint32_t id, const std::string& name, std::int16_t type,
                         std::uint32_t flags) {
        return Add(kSystemObjectsPage, {static_cast<std::int32_t>(id), name, type,
                                        static_cast<std::int32_t>(flags), Value()});
    }

    /// Gives the table that was added last its properties.
    void SetProperties(Bytes properties) {
        constexpr std::size_t kProperties = 4;
        Change(kSystemObjectsPage, lastTable_, kProperties, std::move(properties));
    }

    RowPointer Add(std::uint32_t page, std::vector<Value> values) {
        TableStore store(*file_, page);
        TableIndexes indexes(store);
        store.FillAutonumbers(values);
        const IndexPlan plan = indexes.PlanInsert(values);
        const RowPointer row = store.Insert(values);
        indexes.Apply(plan, row);
        return row;
    }

    /// Gives one column of a row another value.
    void Change(std::uint32_t page, RowPointer row, std::size_t column, Value value) {
        TableStore store(*file_, page);
        TableIndexes indexes(store);
        std::vector<std::optional<Value>> values(store.Def().columns.size());
        values[column] = std::move(value);
        const IndexPlan plan = indexes.PlanUpdate(row, values);
        store.Update(row, values);
        indexes.Apply(plan, row);
    }

    void Delete(std::uint32_t page, RowPointer row) {
        TableStore store(*file_, page);
        TableIndexes indexes(store);
        const std::uint32_t packed = row.Packed();
        indexes.Erase(std::span(&packed, 1));
        store.Delete(row);
    }

  private:
    static std::vector<Column> ObjectColumns() {
        return {{"Id"},
                {"Name", ColumnType::Text, 128},
                {"Type", ColumnType::Integer, 2},
                {"Flags"},
                {"LvProp", ColumnType::Ole, 0}};
    }

    void WriteHeader(std::uint16_t codePage) {
        const ByteSpan page = file_->EditPage(0);
        constexpr std::string_view kSignature = "Standard Jet DB";
        PutU32(page, 0, 0x00000100);
        std::copy(kSignature.begin(), kSignature.end(), page.begin() + 4);
        PutU32(page, 0x14, layout_.formatByte);
        PutU32(page, 0x18, RowPointer{1, 0}.Packed());
        PutU32(page, 0x1C, RowPointer{1, 1}.Packed());
        PutU32(page, 0x20, kSystemObjectsPage);
        PutU16(page, 0x3C, codePage);
        PutU16(page, layout_.collation, kGeneralCollation);
        MaskHeader(layout_, page);
    }

    void WriteGlobalMap() {
        FormatDataPage(*file_, 1, 1);
        std::vector<std::uint8_t> map(layout_.inlineMapRow, 0xFF);
        std::fill_n(map.begin(), 5, std::uint8_t{0});
        map[5] = 0xF8;  // the first three pages are used
        AddRow(*file_, 1, map);
        AddRow(*file_, 1, EmptyInlineMap(layout_));
    }

    /// Maps are handed out from shared pages.
    RowPointer NextMap() {
        constexpr std::uint8_t kMapsOfPage = 12;
        if (mapPage_ == 0 || nextMap_ == kMapsOfPage) {
            mapPage_ = AllocateMapPage(*file_, kMapsOfPage);
            nextMap_ = 0;
        }
        return {mapPage_, nextMap_++};
    }

    void PlaceTable(std::uint32_t page, const std::vector<Column>& columns,
                    const std::vector<Index>& indexes, std::uint8_t type) {
        TableDef def;
        def.page = page;
        def.type = type;
        def.columns = ColumnsOf(columns);
        def.maxColumns = static_cast<std::uint16_t>(columns.size());
        def.variableCount = static_cast<std::uint16_t>(
            std::count_if(def.columns.begin(), def.columns.end(),
                          [](const ColumnDef& column) { return !column.Fixed(); }));
        def.ownedMap = NextMap();
        def.freeMap = NextMap();
        for (const Index& index : indexes) PlaceIndex(def, index);
        for (const ColumnDef& column : def.columns) {
            if (column.IsLongValue()) {
                def.longValueMaps.push_back({column.number, NextMap(), NextMap()});
            }
        }
        WriteTableDef(*file_, page, BuildTableDef(layout_, kCodePage, def));
    }

    void PlaceIndex(TableDef& def, const Index& wanted) {
        RealIndex index;
        for (const std::size_t position : wanted.columns) {
            index.columns.push_back({def.columns[position].number, position, wanted.descending});
        }
        index.flags = wanted.flags;
        index.map = NextMap();
        index.root = AllocatePage(*file_);
        IndexPage::EmptyLeaf(def.page).Write(*file_, index.root);
        UsageMap(*file_, index.map).Add(index.root);
        LogicalIndex logical;
        logical.number = logical.real = static_cast<std::uint32_t>(def.realIndexes.size());
        logical.name = "i" + Decimal(logical.number);
        logical.kind = wanted.kind;
        if (wanted.kind == IndexKind::Foreign) {
            logical.side = 1;
            logical.otherTable = def.page;
            logical.otherIndex = 0;
        }
        def.logicalIndexes.push_back(std::move(logical));
        def.realIndexes.push_back(std::move(index));
    }

    const Layout& layout_;
    std::unique_ptr<PageFile> file_;
    RowPointer lastTable_;
    std::uint32_t mapPage_ = 0;
    std::uint8_t nextMap_ = 0;
};

// --- what the files hold
// ------------------------------------------------------------------------------------

void Numbers(Seed& seed) {
    const std::uint32_t page =
        seed.AddTable("T",
                      {{"Id", ColumnType::Long, 4, kColumnAutonumber},
                       {"Flag", ColumnType::Boolean, 1},
                       {"B", ColumnType::Byte, 1},
                       {"I", ColumnType::Integer, 2},
                       {"C", ColumnType::Currency, 8},
                       {"S", ColumnType::Single, 4},
                       {"D", ColumnType::Double, 8},
                       {"When", ColumnType::Date, 8}},
                      {{{0}, IndexKind::Primary, kIndexUnique | kIndexRequired},
                       {{3, 4}, IndexKind::Normal, 0, true},
                       {{5, 6, 7, 1, 2}, IndexKind::Normal, kIndexIgnoreNulls}});
    for (int i = 0; i < 4; ++i) {
        std::vector<Value> row{Value(),
                               i % 2 == 0,
                               static_cast<std::uint8_t>(200 + i),
                               static_cast<std::int16_t>(1 - i),
                               Currency{12345 - 10000 * i},
                               0.5F - static_cast<float>(i),
                               1.25 - i,
                               Date{36526.5 + i}};
        if (i == 3) std::fill(row.begin() + 2, row.end(), Value());
        seed.Add(page, row);
    }
}

void Texts(Seed& seed) {
    const auto length = static_cast<std::uint16_t>(50 * seed.Format().textUnit);
    const std::uint32_t page =
        seed.AddTable("T",
                      {{"A", ColumnType::Text, length},
                       {"B", ColumnType::Text, length, 0, kOtherCollation},
                       {"C", ColumnType::Text, length},
                       {"Id"}},
                      {{{0}, IndexKind::Primary, kIndexUnique | kIndexRequired},
                       {{1}, IndexKind::Normal, kIndexIgnoreNulls},
                       {{2, 3}, IndexKind::Normal, 0, true}});
    // The second index has entries by hand: this engine makes no keys of an order it does not know.
    const std::vector<std::string> texts{"Ångström", "a-b 'c", "été 12,5", "\xE2\x82\xAC x", ""};
    std::int32_t id = 0;
    for (const std::string& text : texts) {
        seed.Add(page, {text, Value(), id % 2 == 0 ? Value(text) : Value(), id});
        ++id;
    }
}

void UnknownOrder(Seed& seed) {
    const auto length = static_cast<std::uint16_t>(20 * seed.Format().textUnit);
    const std::uint32_t page =
        seed.AddTable("T", {{"A", ColumnType::Text, length, 0, kOtherCollation}, {"Id"}},
                      {{{0}, IndexKind::Normal, 0}});
    TableStore store(seed.File(), page);
    TableIndexes indexes(store);
    for (std::uint8_t i = 0; i < 4; ++i) {
        const RowPointer row =
            store.Insert(std::vector<Value>{std::string(1, static_cast<char>('a' + i)), i * 7});
        indexes.Tree(0).Insert(Bytes{0x7F, static_cast<std::uint8_t>(0x60 + 2 * i), 1, 0}, row);
    }
}

void LongValues(Seed& seed) {
    const std::uint32_t page = seed.AddTable(
        "T", {{"Id"}, {"M", ColumnType::Memo, 0}, {"O", ColumnType::Ole, 0}}, {{{0}}});
    const std::size_t pageSize = seed.Format().pageSize;
    for (const std::size_t size : {std::size_t{5}, std::size_t{300}, pageSize + 500}) {
        const auto id = static_cast<std::int32_t>(size);
        seed.Add(page, {id, std::string(size, 'm'), Value()});
        seed.Add(page, {-id, Value(), Bytes(size, 7)});
    }
}

void OtherTypes(Seed& seed) {
    const std::uint32_t page =
        seed.AddTable("T",
                      {{"G", ColumnType::Guid, 16, kColumnGuidAutonumber},
                       {"N", ColumnType::Numeric, 17},
                       {"B", ColumnType::Binary, 50}},
                      {{{0}, IndexKind::Primary, kIndexUnique | kIndexRequired},
                       {{1}, IndexKind::Normal, kIndexUnique},
                       {{2, 0}}});
    for (std::uint32_t i = 0; i < 3; ++i) {
        Guid guid;
        guid.bytes.fill(static_cast<std::uint8_t>(0x40 + i));
        seed.Add(page, {guid, Numeric{i == 1, {0, 0, 0, 1000 + i}, 0},
                        Bytes(std::size_t{7} * i, static_cast<std::uint8_t>(i))});
    }
}

/// Rows that outgrew their page, that came back, and that are gone.
void MovedRows(Seed& seed) {
    const auto length = static_cast<std::uint16_t>(250 * seed.Format().textUnit);
    const std::uint32_t page = seed.AddTable(
        "T", {{"Id"}, {"A", ColumnType::Text, length}, {"B", ColumnType::Text, length}}, {{{0}}});
    const std::string large(240, 'x');
    constexpr std::int32_t kRows = 6;
    std::vector<RowPointer> rows;
    rows.reserve(kRows);
    for (std::int32_t i = 0; i < kRows; ++i) rows.push_back(seed.Add(page, {i, large, "s"}));
    for (const std::size_t i : {0U, 1U, 2U, 3U}) seed.Change(page, rows[i], 2, large);
    seed.Change(page, rows[3], 1, "back");
    seed.Delete(page, rows[1]);
    seed.Delete(page, rows[5]);
}

/// An index of two levels: long keys fill a leaf with few rows.
void Tree(Seed& seed) {
    constexpr std::uint16_t kLength = 250;
    const std::uint32_t page =
        seed.AddTable("T", {{"Id", ColumnType::Integer, 2}, {"K", ColumnType::Binary, kLength}},
                      {{{1}, IndexKind::Normal, kIndexUnique}});
    const auto perLeaf = static_cast<std::int16_t>(seed.Format().IndexRoom() / (kLength + 40));
    const std::int32_t rows = 2 * perLeaf + 2;
    for (std::int32_t i = 0; i < rows; ++i) {
        Bytes key(kLength, static_cast<std::uint8_t>(i * 37));
        key.back() = static_cast<std::uint8_t>(i);
        seed.Add(page, {static_cast<std::int16_t>(i), key});
    }
}

/// A leaf so full that the next key splits it.
void FullLeaf(Seed& seed) {
    const auto length = static_cast<std::uint16_t>(100 * seed.Format().textUnit);
    const std::uint32_t page =
        seed.AddTable("T", {{"Id"}, {"K", ColumnType::Text, length}}, {{{1}}});
    const std::uint32_t root = ReadTableDef(seed.File(), page).realIndexes[0].root;
    constexpr std::size_t kLong = 90, kEntryBeside = 12;
    for (std::int32_t i = 0;; ++i) {
        const std::size_t room = IndexPage::StatedFreeBytes(seed.File(), root);
        if (room < kEntryBeside) return;
        const std::size_t size = std::min(kLong, room - kEntryBeside);
        // Keys that begin differently, for they share no bytes.
        seed.Add(page, {i, std::string(size, static_cast<char>('a' + i % 26))});
    }
}

/// Two leaves, of which the first has one entry, that of the first row.
void ThinLeaf(Seed& seed) {
    Tree(seed);
    const std::uint32_t page = Catalog(seed.File()).FindTable("T")->page;
    const auto second = [&] {
        TableStore store(seed.File(), page);
        TreeCursor at = TableIndexes(store).Tree(0).First();
        at.Next();
        return at.Row();
    };
    const std::uint32_t root = ReadTableDef(seed.File(), page).realIndexes[0].root;
    const std::uint32_t first = IndexPage::Read(seed.File(), root).Child(0);
    while (IndexPage::Read(seed.File(), first).Count() > 1) seed.Delete(page, second());
}

/// Short keys that begin alike, for the shared beginning of a page's entries,
/// and many of one value.
void EqualKeys(Seed& seed) {
    const std::uint32_t page = seed.AddTable("T", {{"Id"}, {"K"}}, {{{0}}, {{1}}});
    for (std::int32_t i = 0; i < 12; ++i) seed.Add(page, {i / 4, 70000 + i % 2});
}

/// A relation's entry at one end: the index numbers are those of the tables made below.
LogicalIndex RelationEntry(std::uint32_t number, std::uint8_t side, std::uint32_t otherTable,
                           std::uint32_t otherIndex, bool cascades) {
    LogicalIndex entry;
    entry.name = ".r" + Decimal(number);
    entry.number = number;
    entry.kind = IndexKind::Foreign;
    entry.real = side == 1 ? 0 : 1;
    entry.side = side;
    entry.otherTable = otherTable;
    entry.otherIndex = otherIndex;
    entry.cascadeUpdates = entry.cascadeDeletes = cascades;
    return entry;
}

/// A refers to B with cascades, B to itself without.
void Relations(Seed& seed) {
    std::vector<std::uint32_t> pages;
    for (const char* name : {"A", "B"}) {
        pages.push_back(seed.AddTable(name, {{"Id"}, {"Other"}},
                                      {{{0}, IndexKind::Primary, kIndexUnique | kIndexRequired},
                                       {{1}, IndexKind::Normal, kIndexIgnoreNulls}}));
    }
    const std::uint32_t a = pages[0], b = pages[1];
    const std::vector<std::vector<LogicalIndex>> entries = {
        {RelationEntry(2, 2, b, 2, true)},
        {RelationEntry(2, 1, a, 2, true), RelationEntry(3, 2, b, 4, false),
         RelationEntry(4, 1, b, 3, false)}};
    for (std::size_t i = 0; i < pages.size(); ++i) {
        TableDef def = ReadTableDef(seed.File(), pages[i]);
        def.logicalIndexes.insert(def.logicalIndexes.end(), entries[i].begin(), entries[i].end());
        WriteTableDef(seed.File(), pages[i], BuildTableDef(seed.Format(), kCodePage, def));
    }
    seed.Add(b, {1, Value()});
    seed.Add(b, {2, 1});
    seed.Add(a, {1, 2});
    seed.AddObject(0, "Away", kLinkedObject, 0);
}

void Queries(Seed& seed) {
    const std::uint32_t page = seed.AddTable("T", {{"Id"}, {"N", ColumnType::Text, 40}}, {{{0}}});
    for (std::int32_t i = 0; i < 3; ++i) seed.Add(page, {i, "n"});
    const std::uint32_t queries = seed.AddTable("MSysQueries",
                                                {{"ObjectId"},
                                                 {"Attribute", ColumnType::Byte, 1},
                                                 {"Order", ColumnType::Binary, 20},
                                                 {"Name1", ColumnType::Text, 100},
                                                 {"Expression", ColumnType::Text, 200},
                                                 {"Flag", ColumnType::Integer, 2}},
                                                {});
    const auto part = [&](std::int32_t query, std::uint8_t attribute, const std::string& name,
                          const std::string& expression, std::int16_t flag) {
        seed.Add(queries, {query, attribute, Bytes{0, attribute}, name, expression, flag});
    };
    constexpr std::uint8_t kKind = 1, kOptions = 3, kSource = 5, kOutput = 6, kWhere = 8,
                           kOrder = 11;
    seed.AddObject(0x1001, "Q", kQueryObject, 0);
    part(0x1001, kKind, "", "", 1);
    part(0x1001, kSource, "T", "", 0);
    part(0x1001, kOutput, "Number", "T.Id", 0);
    part(0x1001, kOutput, "", "[N]", 0);
    part(0x1001, kWhere, "", "((([T].[Id])=1) AND (T.N='n'))", 0);
    part(0x1001, kOrder, "D", "T.Id", 0);
    seed.AddObject(0x1002, "Q2", kQueryObject, 0);
    part(0x1002, kKind, "", "", 1);
    part(0x1002, kOptions, "", "", 1);
    part(0x1002, kSource, "Q", "", 0);
    part(0x1002, kWhere, "", "[Number]=1", 0);
}

/// Usage maps of the other form: a row of references to pages of bits.
void ReferenceMaps(Seed& seed) {
    const std::uint32_t page = seed.AddTable("T", {{"Id"}}, {{{0}}});
    for (std::int32_t i = 0; i < 3; ++i) seed.Add(page, {i});
    PageFile& file = seed.File();
    const TableDef def = ReadTableDef(file, page);
    for (const RowPointer map : {def.ownedMap, def.realIndexes[0].map, RowPointer{1, 0}}) {
        const bool global = map.page == 1;
        const std::vector<std::uint32_t> pages = UsageMap(file, map).Pages();
        const std::uint32_t bits = AllocatePage(file);
        const ByteSpan bytes = file.EditPage(bits);
        PutU32(bytes, 0, 0x00000100 | kMapPage);
        const auto put = [&](std::uint32_t set) {
            bytes[4 + set / 8] |= static_cast<std::uint8_t>(1U << (set % 8));
        };
        for (const std::uint32_t set : pages) put(set);
        if (global) {
            for (auto set = static_cast<std::uint32_t>(file.PageCount()); set < 400; ++set) {
                put(set);
            }
        }
        std::vector<std::uint8_t> row(RowAt(file, map).size(), 0);
        row[0] = 1;
        PutU32(row, 1, bits);
        ReplaceRow(file, map, row, 0);
    }
}

/// A map of free pages that ends where the file does, so that the next page lengthens it.
void ShortGlobalMap(Seed& seed) {
    const std::uint32_t page = seed.AddTable("T", {{"Id"}, {"M", ColumnType::Memo, 0}}, {{{0}}});
    seed.Add(page, {1, std::string(300, 'm')});
    PageFile& file = seed.File();
    constexpr std::size_t kBits = 5;
    std::vector<std::uint8_t> map(kBits + (file.PageCount() + 7) / 8, 0);
    while (file.PageCount() % 8 != 0) AllocatePage(file);
    ReplaceRow(file, {1, 0}, map, 0);
}

/// The same where the map has no room to grow, and becomes one of the other form.
void FullGlobalMap(Seed& seed) {
    ShortGlobalMap(seed);
    PageFile& file = seed.File();
    std::vector<std::uint8_t> map(RowAt(file, {1, 0}).begin(), RowAt(file, {1, 0}).end());
    ReplaceRow(file, {1, 1}, std::vector<std::uint8_t>(map.size(), 0), 0);
    const std::size_t free = DataPage(file, 1).FreeBytes();
    constexpr std::size_t kSlotAndSome = 4;
    AddRow(file, 1, std::vector<std::uint8_t>(free - kSlotAndSome, 0));
}

/// Many columns, some dropped since: rows of another shape than the definition's, and in the older
/// version offsets beyond a byte.
void ManyColumns(Seed& seed) {
    std::vector<Column> columns;
    for (int i = 0; i < 9; ++i) {
        columns.push_back({"t" + Decimal(static_cast<unsigned>(i)), ColumnType::Text, 200});
        columns.push_back({"n" + Decimal(static_cast<unsigned>(i))});
    }
    const std::uint32_t page = seed.AddTable("T", columns, {});
    std::vector<Value> row;
    for (int i = 0; i < 9; ++i) {
        row.emplace_back(std::string(static_cast<std::size_t>(60 - 5 * i), 'c'));
        row.emplace_back(i % 3 == 0 ? Value() : Value(i));
    }
    seed.Add(page, row);
    seed.Add(page, std::vector<Value>(row.size()));
    PageFile& file = seed.File();
    TableDef def = ReadTableDef(file, page);
    def.columns.erase(def.columns.begin() + 3);
    def.columns.erase(def.columns.begin() + 8);
    WriteTableDef(file, page, BuildTableDef(seed.Format(), kCodePage, def));
    std::erase(row, row[3]);
    TableStore(file, page).Insert(std::vector<Value>(def.columns.size()));
}

void TwoTables(Seed& seed) {
    for (const char* name : {"A", "B"}) {
        const std::uint32_t page = seed.AddTable(
            name, {{"Id", ColumnType::Long, 4, kColumnAutonumber}, {"M", ColumnType::Memo, 0}},
            {{{0}, IndexKind::Primary, kIndexUnique | kIndexRequired}});
        for (std::size_t i = 0; i < 3; ++i) seed.Add(page, {Value(), std::string(40 * i, 'm')});
    }
}

void NoTables(Seed&) {}

/// Properties of a table as a list of bytes: names, then what each column has of them.
class PropertyBytes {
  public:
    explicit PropertyBytes(const Seed& seed) : form_{seed.Format().textUnit, kCodePage} {
        constexpr std::string_view kMagic = "MR2";
        bytes_.assign(kMagic.begin(), kMagic.end());
        bytes_.push_back(0);
        Bytes names;
        for (const char* name : {"Required", "AllowZeroLength", "DefaultValue", "ValidationRule"}) {
            AddSized(names, EncodeText(form_, name));
        }
        AddChunk(0x80, names);
    }
    void AddColumn(const std::string& column, std::uint16_t name, std::uint8_t type,
                   const Bytes& value) {
        Bytes chunk;
        const Bytes owner = EncodeText(form_, column);
        AddNumber(chunk, owner.size() + 6, 4);
        AddSized(chunk, owner);
        AddNumber(chunk, value.size() + 8, 2);
        AddNumber(chunk, std::size_t{type} << 8U, 2);
        AddNumber(chunk, name, 2);
        AddSized(chunk, value);
        AddChunk(column.empty() ? 0 : 1, chunk);
    }
    void AddText(const std::string& column, std::uint16_t name, const std::string& text) {
        constexpr std::uint8_t kMemo = 12;
        AddColumn(column, name, kMemo, EncodeText(form_, text));
    }
    Bytes Take() { return std::move(bytes_); }

  private:
    static void AddNumber(Bytes& to, std::size_t number, std::size_t size) {
        to.resize(to.size() + size);
        PutLittleEndian(ByteSpan(to).last(size), 0, number, size);
    }
    static void AddSized(Bytes& to, const Bytes& part) {
        AddNumber(to, part.size(), 2);
        to.insert(to.end(), part.begin(), part.end());
    }
    void AddChunk(std::size_t kind, const Bytes& content) {
        AddNumber(bytes_, content.size() + 6, 4);
        AddNumber(bytes_, kind, 2);
        bytes_.insert(bytes_.end(), content.begin(), content.end());
    }

    TextForm form_;
    Bytes bytes_;
};

/// Required values, default values and rules, of columns and of the table.
void Defaults(Seed& seed) {
    const std::uint32_t page = seed.AddTable(
        "T", {{"Id"}, {"Dag", ColumnType::Date, 8}, {"Namn", ColumnType::Text, 40}}, {});
    PropertyBytes properties(seed);
    constexpr std::uint16_t kRequired = 0, kZeroLength = 1, kDefault = 2, kRule = 3;
    properties.AddColumn("Id", kRequired, 1, {1});
    properties.AddColumn("Namn", kZeroLength, 1, {0});
    properties.AddText("Id", kDefault, "=7");
    properties.AddText("Dag", kDefault, "Now()");
    properties.AddText("Id", kRule, ">0 And <>5 Or Is Null");
    properties.AddText("Namn", kRule, "In ('a','b') Or Not Between 'c' And 'd' Or [Id]>=-1");
    properties.AddText("", kRule, "([T].[Id] > 0) Or [Dag]<=#12/31/2000#");
    seed.SetProperties(properties.Take());
    seed.Add(page, {std::int32_t{1}, Date{36526}, "b"});
}

/// What is left when the last pages are cut off.
void WriteCut(const std::filesystem::path& whole, const std::filesystem::path& cut,
              std::size_t pageSize) {
    constexpr std::uintmax_t kPagesCut = 3;
    const std::uintmax_t size = std::filesystem::file_size(whole);
    if (size <= 2 * kPagesCut * pageSize) return;
    std::filesystem::copy_file(whole, cut, std::filesystem::copy_options::overwrite_existing);
    std::filesystem::resize_file(cut, size - kPagesCut * pageSize);
}

struct Kind {
    const char* name;
    void (*fill)(Seed&);
    std::uint16_t codePage = kCodePage;
};

constexpr Kind kKinds[] = {{"numbers", Numbers},
                           {"texts", Texts},
                           {"greektexts", Texts, 1253},
                           {"japanesetexts", Texts, 932},
                           {"unknownorder", UnknownOrder},
                           {"longvalues", LongValues},
                           {"othertypes", OtherTypes},
                           {"movedrows", MovedRows},
                           {"tree", Tree},
                           {"fullleaf", FullLeaf},
                           {"thinleaf", ThinLeaf},
                           {"equalkeys", EqualKeys},
                           {"relations", Relations},
                           {"queries", Queries},
                           {"referencemaps", ReferenceMaps},
                           {"shortglobalmap", ShortGlobalMap},
                           {"fullglobalmap", FullGlobalMap},
                           {"manycolumns", ManyColumns},
                           {"twotables", TwoTables},
                           {"defaults", Defaults},
                           {"notables", NoTables}};

}  // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fputs("usage: makeseeds FOLDER\n", stderr);
        return 2;
    }
    const std::filesystem::path folder = std::filesystem::absolute(arguments[1]);
    const char* at = "";
    try {
        for (const Kind& kind : kKinds) {
            at = kind.name;
            for (const Layout* layout : {&kJet3, &kJet4}) {
                Seed seed(*layout, kind.codePage);
                kind.fill(seed);
                const char* version = layout == &kJet3 ? "3" : "4";
                const std::string name = kind.name + std::string(version);
                seed.File().SaveAs(folder / (name + ".mdb"));
                WriteCut(folder / (name + ".mdb"), folder / (name + "cut.mdb"), layout->pageSize);
            }
        }
    } catch (const std::exception& error) {
        std::cerr << at << ": " << error.what() << "\n";
        return 1;
    }
    return 0;
}
