#include "jet/create/newfile.h"

#include "jet/catalog/catalog.h"
#include "jet/create/designs.h"
#include "jet/create/systemtables.h"
#include "jet/index/indexpage.h"
#include "jet/index/tableindexes.h"
#include "jet/storage/datapage.h"
#include "jet/storage/usagemap.h"
#include "jet/table/table.h"
#include "jet/table/tabledefbytes.h"

#include <algorithm>
#include <bit>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace jet::detail {
namespace {

const Layout& kLayout = kJet4;
constexpr std::uint16_t kCodePage = 1252;
constexpr std::size_t kFixedPages = 6;  // header, maps, four system tables

// Owners are stored masked with a key that belongs to the header's date. Only pairs from real files
// are known to go together, so every new file carries this date,
// these accounts and this build number.
constexpr FileHeader kHeader{.collation = kGeneralCollation,
                             .codePage = kCodePage,
                             .buildNumber = 0x261C,
                             .created = std::bit_cast<double>(0x40E4AB3E3BD3853EULL)};
const Bytes kAdmin = {0x64, 0x8B}, kUsers = {0x65, 0x8B}, kCreator = {0x65, 0x8E},
            kEngine = {0x65, 0x89};

constexpr std::uint32_t kContainersParent = 0x0F000000, kDatabases = 0x0F000002,
                        kRelationships = 0x0F000003, kDatabaseObject = 0x10000000;
constexpr std::uint32_t kSystemObject = 0x80000000;
constexpr std::int16_t kTableType = 1, kDocumentType = 2, kContainerType = 3;

constexpr std::uint8_t kSystemColumn = 0x10, kSidColumn = 0x32;

// --- pages
// -------------------------------------------------------------------------------------------------

void WriteGlobalMap(PageFile& file) {
    constexpr std::size_t kBitmap = 5;
    FormatDataPage(file, 1, 1);
    Bytes map = EmptyInlineMap(kLayout);
    std::fill(map.begin() + kBitmap, map.end(), std::uint8_t{0xFF});
    map[kBitmap] = static_cast<std::uint8_t>(0xFF << kFixedPages);
    AddRow(file, 1, map);
    AddRow(file, 1, EmptyInlineMap(kLayout));
}

/// Hands out empty maps, page after page.
class MapPlaces {
  public:
    MapPlaces(PageFile& file, std::size_t count) : file_(file), left_(count) {}
    RowPointer Next() {
        if (next_ == onPage_) {
            const std::size_t most =
                kLayout.FreeInEmptyDataPage() / (kLayout.inlineMapRow + sizeof(std::uint16_t));
            onPage_ = std::min(left_, most);
            left_ -= onPage_;
            page_ = AllocateMapPage(file_, onPage_);
            next_ = 0;
        }
        return {page_, static_cast<std::uint8_t>(next_++)};
    }

  private:
    PageFile& file_;
    std::size_t left_, onPage_ = 0, next_ = 0;
    std::uint32_t page_ = 0;
};

void PlaceTable(PageFile& file, std::uint32_t page, TableDef& def) {
    def.page = page;
    for (const ColumnDef& column : def.columns) {
        if (column.IsLongValue()) def.longValueMaps.push_back({column.number, {}, {}});
    }
    MapPlaces maps(file, 2 + def.realIndexes.size() + 2 * def.longValueMaps.size());
    def.ownedMap = maps.Next();
    def.freeMap = maps.Next();
    for (RealIndex& index : def.realIndexes) index.map = maps.Next();
    for (LongValueMaps& column : def.longValueMaps) {
        column.owned = maps.Next();
        column.freeSpace = maps.Next();
    }
    for (RealIndex& index : def.realIndexes) {
        index.root = AllocatePage(file);
        IndexPage::EmptyLeaf(page).Write(file, index.root);
        UsageMap(file, index.map).Add(index.root);
    }
    WriteTableDef(file, page, BuildTableDef(kLayout, kCodePage, def));
}

// --- the system tables
// -------------------------------------------------------------------------------------

TableDesign DesignOf(const SystemTable& table) {
    TableDesign design;
    design.name = table.name;
    for (const SystemColumn& column : table.columns) {
        ColumnDesign& added = design.columns.emplace_back();
        added.name = column.name;
        added.type = column.type;
        if (column.type == ColumnType::Text) added.size = kMaxTextLength;
        if (column.type == ColumnType::Binary) added.size = kMaxBinarySize;
    }
    for (const SystemIndex& index : table.indexes) {
        IndexDesign& added = design.indexes.emplace_back();
        added.name = index.name;
        added.primary = index.primary;
        for (const std::string_view name : index.columns) {
            if (!name.empty()) added.columns.emplace_back().name = name;
        }
    }
    return design;
}

TableDef SystemDefinitionOf(const SystemTable& table) {
    TableDef def = DefinitionOf(DesignOf(table));
    def.type = kSystemTable;
    for (ColumnDef& column : def.columns) {
        column.ordinal = 0;
        column.extra = 0;
        column.flags |= kSystemColumn;
        if (column.name == "Owner" || column.name == "SID") column.flags = kSidColumn;
    }
    for (std::size_t i = 0; i < table.indexes.size(); ++i) {
        def.realIndexes[i].flags =
            static_cast<std::uint8_t>(kLayout.realFlagAlways | table.indexes[i].flags);
    }
    return def;
}

/// Adds rows to a table and its indexes, as any insert does.
class Filler {
  public:
    Filler(PageFile& file, std::uint32_t page) : store_(file, page), indexes_(store_) {}
    const TableDef& Def() const { return store_.Def(); }
    void Add(const std::vector<Value>& values) {
        const IndexPlan plan = indexes_.PlanInsert(values);
        indexes_.Apply(plan, store_.Insert(values));
    }

  private:
    TableStore store_;
    TableIndexes indexes_;
};

class CatalogWriter {
  public:
    CatalogWriter(PageFile& file, Date created)
        : objects_(file, kSystemObjectsPage), entries_(file, kSystemAcesPage), created_(created) {}

    void AddObject(CatalogObject object) {
        object.created = created_;
        objects_.Add(ObjectRow(objects_.Def(), object));
    }
    void AddAccess(std::uint32_t object, const Bytes& sid, std::uint32_t mask, bool inheritable) {
        entries_.Add(AccessRow(entries_.Def(), {object, sid, mask, inheritable}));
    }

  private:
    Filler objects_, entries_;
    Date created_;
};

void AddSystemRows(CatalogWriter& catalog) {
    catalog.AddObject(
        {kTablesContainer, kContainersParent, "Tables", kContainerType, kSystemObject, kEngine});
    catalog.AddObject(
        {kDatabases, kContainersParent, "Databases", kContainerType, kSystemObject, kEngine});
    catalog.AddObject({kRelationships, kContainersParent, "Relationships", kContainerType,
                       kSystemObject, kEngine});
    catalog.AddObject(
        {kDatabaseObject, kDatabases, "MSysDb", kDocumentType, kSystemObject, kAdmin});
    for (const SystemTable& table : SystemTables()) {
        catalog.AddObject({table.page, kTablesContainer, std::string(table.name), kTableType,
                           kSystemObject, kEngine});
    }
    struct Access {
        std::uint32_t object;
        const Bytes& account;
        std::uint32_t mask;
        bool inheritable;
    };
    const Access rows[] = {
        {2, kAdmin, 0x60000, false},
        {3, kAdmin, 0x60000, false},
        {4, kAdmin, 0x60000, false},
        {5, kAdmin, 0xE0000, false},
        {kTablesContainer, kCreator, 0xF00FE, true},
        {kTablesContainer, kAdmin, 0x60001, false},
        {kRelationships, kCreator, 0xF00FE, true},
        {kRelationships, kAdmin, 0x60001, false},
        {kDatabases, kAdmin, 0x60000, false},
        {kDatabaseObject, kAdmin, 0x6000E, false},
        {kDatabaseObject, kUsers, 0xE, false},
        {4, kUsers, 0x14, false},
        {5, kUsers, 0x14, false},
        {2, kUsers, 0x14, false},
        {kTablesContainer, kUsers, 0xFFEFF, true},
        {kRelationships, kUsers, 0xFFFFF, true},
    };
    for (const Access& row : rows)
        catalog.AddAccess(row.object, row.account, row.mask, row.inheritable);
}

}  // namespace

std::unique_ptr<PageFile> NewFile(std::span<const TableDesign> tables, Date created) {
    CheckTableNames(tables);
    std::vector<TableDef> definitions;
    for (const TableDesign& design : tables) definitions.push_back(DefinitionOf(design));

    std::unique_ptr<PageFile> file = PageFile::New(kLayout, kHeader);
    for (std::size_t i = 0; i < kFixedPages; ++i) file->AppendPage();
    EncodeHeader(kHeader, file->EditPage(0));
    WriteGlobalMap(*file);
    for (const SystemTable& table : SystemTables()) {
        TableDef def = SystemDefinitionOf(table);
        PlaceTable(*file, table.page, def);
    }
    CatalogWriter catalog(*file, created);
    AddSystemRows(catalog);
    constexpr std::uint32_t kAllRights = 0xFFEFF;
    for (TableDef& def : definitions) {
        PlaceTable(*file, AllocatePage(*file), def);
        catalog.AddObject({def.page, kTablesContainer, def.name, kTableType, 0, kAdmin});
        catalog.AddAccess(def.page, kAdmin, kAllRights, false);
        catalog.AddAccess(def.page, kUsers, kAllRights, false);
    }
    return file;
}

}  // namespace jet::detail
