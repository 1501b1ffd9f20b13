#include "jet/create/newfile.h"

#include "jet/catalog/catalog.h"
#include "jet/create/systemtables.h"
#include "jet/error.h"
#include "jet/index/indexkey.h"
#include "jet/index/indexpage.h"
#include "jet/index/tableindexes.h"
#include "jet/storage/datapage.h"
#include "jet/storage/usagemap.h"
#include "jet/table/names.h"
#include "jet/table/table.h"
#include "jet/table/textcodec.h"

#include <algorithm>
#include <cstring>
#include <set>
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
// are known to go together, so every new file carries this date, these accounts and this build
// number.
constexpr std::array<std::uint8_t, 8> kHeaderDate = {0x3E, 0x85, 0xD3, 0x3B,
                                                     0x3E, 0xAB, 0xE4, 0x40};
constexpr std::uint32_t kHeaderDay = 0xA559;  // its whole days
constexpr std::uint16_t kBuildNumber = 0x261C;
const Bytes kAdmin = {0x64, 0x8B}, kUsers = {0x65, 0x8B}, kCreator = {0x65, 0x8E},
            kEngine = {0x65, 0x89};

constexpr std::uint32_t kContainersParent = 0x0F000000, kDatabases = 0x0F000002,
                        kRelationships = 0x0F000003, kDatabaseObject = 0x10000000;
constexpr std::uint32_t kSystemObject = 0x80000000;
constexpr std::int16_t kTableType = 1, kDocumentType = 2, kContainerType = 3;

constexpr std::size_t kMaxColumns = 255, kMaxIndexes = 32, kMaxIndexColumns = 10;
constexpr std::size_t kMaxNameLength = 64, kMaxTextLength = 255, kMaxBinarySize = 510;
constexpr std::uint8_t kSystemColumn = 0x10, kSidColumn = 0x32;

[[noreturn]] void Refuse(const std::string& what) {
    throw Error{ErrorNumber::InvalidProcedureCall, "table design: " + what};
}

void CheckName(std::string_view name, std::string_view kind) {
    std::size_t units = 0;
    bool sound = !name.empty() && name.front() != ' ';
    for (std::size_t at = 0; sound && at < name.size();) {
        const auto character = NextCharacter(name, at);
        sound = character && *character >= U' ' &&
                std::u32string_view(U".![]`").find(*character) == std::u32string_view::npos;
        units += sound && *character > 0xFFFF ? 2 : 1;
    }
    if (!sound || units > kMaxNameLength) {
        Refuse("\"" + std::string(name) + "\" cannot be the name of " + std::string(kind));
    }
}

void CheckNew(std::set<std::string>& names, std::string_view name) {
    if (!names.insert(FoldName(name)).second) Refuse("\"" + std::string(name) + "\" twice");
}

/// Bytes that a value takes: of text and binary the most it may take.
std::uint16_t LengthOf(const ColumnDesign& column) {
    switch (column.type) {
        case ColumnType::Boolean:
        case ColumnType::Byte:
            return 1;
        case ColumnType::Integer:
            return 2;
        case ColumnType::Long:
        case ColumnType::Single:
            return 4;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::Date:
            return 8;
        case ColumnType::Guid:
            return 16;
        case ColumnType::Numeric:
            return 17;
        case ColumnType::Text:
            return static_cast<std::uint16_t>(2 * column.size);
        case ColumnType::Binary:
            return column.size;
        case ColumnType::Memo:
        case ColumnType::Ole:
            return 0;
        default:
            Refuse(column.name + " has a type that new tables cannot have");
    }
}

void CheckColumn(const ColumnDesign& column) {
    CheckName(column.name, "a column");
    const bool text = column.type == ColumnType::Text, binary = column.type == ColumnType::Binary;
    if ((text && (column.size == 0 || column.size > kMaxTextLength)) ||
        (binary && (column.size == 0 || column.size > kMaxBinarySize))) {
        Refuse("the size of " + column.name);
    }
    const bool countable = column.type == ColumnType::Long || column.type == ColumnType::Guid;
    if (column.autonumber && !countable) Refuse(column.name + " cannot number itself");
    constexpr std::uint8_t kMaxDigits = 28;
    const bool digits =
        column.precision >= 1 && column.precision <= kMaxDigits && column.scale <= column.precision;
    if (column.type == ColumnType::Numeric && !digits) Refuse("the digits of " + column.name);
}

bool IsVariable(ColumnType type) {
    return type == ColumnType::Text || type == ColumnType::Binary || type == ColumnType::Memo ||
           type == ColumnType::Ole;
}

bool IsNumber(ColumnType type) {
    return type == ColumnType::Boolean || type == ColumnType::Numeric ||
           (type >= ColumnType::Byte && type <= ColumnType::Date);
}

std::vector<ColumnDef> ColumnsOf(const TableDesign& design) {
    std::vector<ColumnDef> columns;
    std::set<std::string> names;
    std::uint16_t variables = 0, fixedEnd = 0;
    for (const ColumnDesign& wanted : design.columns) {
        CheckColumn(wanted);
        CheckNew(names, wanted.name);
        ColumnDef column;
        column.name = wanted.name;
        column.typeCode = static_cast<std::uint8_t>(wanted.type);
        column.number = column.ordinal = static_cast<std::uint16_t>(columns.size());
        column.variableNumber = variables;
        column.length = LengthOf(wanted);
        column.flags = kColumnUpdatable;
        if (!IsNumber(wanted.type)) column.collation = kGeneralCollation;
        if (wanted.type == ColumnType::Numeric) {
            column.precision = wanted.precision;
            column.scale = wanted.scale;
        }
        if (column.IsText()) column.extra = kExtraCompressed;
        if (IsVariable(wanted.type)) {
            ++variables;
        } else {
            column.flags |= kColumnFixed;
            if (wanted.type != ColumnType::Boolean) {
                column.fixedOffset = fixedEnd;
                fixedEnd = static_cast<std::uint16_t>(fixedEnd + column.length);
            }
        }
        if (wanted.autonumber) {
            column.flags |=
                wanted.type == ColumnType::Guid ? kColumnGuidAutonumber : kColumnAutonumber;
        }
        columns.push_back(std::move(column));
    }
    if (columns.empty() || columns.size() > kMaxColumns) Refuse("the number of columns");
    if (std::count_if(columns.begin(), columns.end(), [](const ColumnDef& column) {
            return column.Type() == ColumnType::Long && column.Autonumber();
        }) > 1) {
        Refuse("two columns that number themselves");
    }
    if (fixedEnd + 4U * variables + columns.size() / 8 + 8 > kLayout.largestRow) {
        Refuse("rows would not fit on a page");
    }
    return columns;
}

RealIndex RealIndexOf(const IndexDesign& wanted, const TableDef& def) {
    RealIndex index;
    index.flags = kLayout.realFlagAlways;
    if (wanted.unique || wanted.primary) index.flags |= kIndexUnique;
    if (wanted.required || wanted.primary) index.flags |= kIndexRequired;
    if (wanted.ignoreNulls && !wanted.primary) index.flags |= kIndexIgnoreNulls;
    std::set<std::string> names;
    for (const IndexColumn& part : wanted.columns) {
        const auto position = def.PositionOf(part.name);
        if (!position || !Indexable(def.columns[*position].Type())) {
            Refuse("\"" + part.name + "\" cannot be in an index");
        }
        CheckNew(names, part.name);
        index.columns.push_back({def.columns[*position].number, *position, part.descending});
    }
    if (index.columns.empty() || index.columns.size() > kMaxIndexColumns) {
        Refuse("the number of columns of the index " + wanted.name);
    }
    return index;
}

TableDef DefinitionOf(const TableDesign& design) {
    TableDef def;
    def.name = design.name;
    def.columns = ColumnsOf(design);
    def.maxColumns = static_cast<std::uint16_t>(def.columns.size());
    def.variableCount = static_cast<std::uint16_t>(
        std::count_if(def.columns.begin(), def.columns.end(),
                      [](const ColumnDef& column) { return !column.Fixed(); }));
    std::set<std::string> names;
    bool primarySeen = false;
    for (const IndexDesign& wanted : design.indexes) {
        CheckName(wanted.name, "an index");
        CheckNew(names, wanted.name);
        if (wanted.foreign) Refuse("relations cannot be designed");
        if (wanted.primary && std::exchange(primarySeen, true)) Refuse("two primary keys");
        LogicalIndex logical;
        logical.name = wanted.name;
        logical.number = logical.real = static_cast<std::uint32_t>(def.realIndexes.size());
        logical.kind = wanted.primary ? IndexKind::Primary : IndexKind::Normal;
        def.realIndexes.push_back(RealIndexOf(wanted, def));
        def.logicalIndexes.push_back(std::move(logical));
    }
    if (def.realIndexes.size() > kMaxIndexes) Refuse("more than 32 indexes");
    return def;
}

// --- pages
// -------------------------------------------------------------------------------------------------

void WriteHeader(PageFile& file) {
    const ByteSpan page = file.EditPage(0);
    constexpr std::string_view kSignature = "Standard Jet DB";
    PutU32(page, 0, 0x00000100);
    std::memcpy(&page[4], kSignature.data(), kSignature.size());
    PutU32(page, 0x14, kLayout.formatByte);
    PutU32(page, 0x18, RowPointer{1, 0}.Packed());
    PutU32(page, 0x1C, RowPointer{1, 1}.Packed());
    for (std::uint32_t i = 0; i < 4; ++i) PutU32(page, 0x20 + 4 * i, kSystemObjectsPage + i);
    PutU16(page, 0x3C, kCodePage);
    for (std::size_t i = 0; i < kLayout.passwordSize; i += 4) PutU32(page, 0x42 + i, kHeaderDay);
    PutU16(page, kLayout.buildNumber, kBuildNumber);
    PutU16(page, kLayout.collation, kGeneralCollation);
    PutBytes(page, kLayout.creationDate, kHeaderDate);
    PutU32(page, 0x98, 1620);
    std::memcpy(&page[0x9C], "4.0", 3);
    for (std::size_t at = kLayout.commitArea; at < kLayout.pageSize; at += 2) {
        PutU16(page, at, 0x0100);
    }
    MaskHeader(kLayout, page);
}

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

TableDef DefinitionOf(const SystemTable& table) {
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

void CheckTableNames(std::span<const TableDesign> tables) {
    std::set<std::string> names;
    for (const SystemTable& table : SystemTables()) CheckNew(names, std::string(table.name));
    for (const TableDesign& table : tables) {
        CheckName(table.name, "a table");
        CheckNew(names, table.name);
    }
}

}  // namespace

std::unique_ptr<PageFile> NewFile(std::span<const TableDesign> tables, Date created) {
    CheckTableNames(tables);
    std::vector<TableDef> definitions;
    for (const TableDesign& design : tables) definitions.push_back(DefinitionOf(design));

    std::unique_ptr<PageFile> file = PageFile::New(kLayout);
    for (std::size_t i = 0; i < kFixedPages; ++i) file->AppendPage();
    WriteHeader(*file);
    WriteGlobalMap(*file);
    for (const SystemTable& table : SystemTables()) {
        TableDef def = DefinitionOf(table);
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
