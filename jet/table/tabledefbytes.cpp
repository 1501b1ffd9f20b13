#include "jet/table/tabledefbytes.h"

#include "jet/error.h"
#include "jet/storage/usagemap.h"
#include "jet/table/textcodec.h"

#include <algorithm>
#include <set>

namespace jet::detail {

namespace {

constexpr std::size_t kPageHeader = 8, kNextPage = 4, kLength = 8;
constexpr std::size_t kMaxPages = 64, kMaxColumns = 1024, kMaxIndexes = 64, kMaxNameLength = 255;
constexpr std::size_t kKeyColumns = 10, kKeyColumnSize = 3, kLongValueMapSize = 10;
constexpr std::uint16_t kNoColumn = 0xFFFF;
constexpr std::size_t kMaxFixedEnd = 4096;

/// The definition's pages joined: the first whole, each further one from behind its header.
std::vector<std::uint8_t> Join(const PageFile& file, std::uint32_t firstPage) {
    std::vector<std::uint8_t> joined;
    std::set<std::uint32_t> seen;
    for (std::uint32_t page = firstPage; page != 0;) {
        const ByteView bytes = file.Page(page);
        if (bytes[0] != kTdefPage) ThrowDamaged(page, 0, "not a page of a table definition");
        if (!seen.insert(page).second || seen.size() > kMaxPages) {
            ThrowDamaged(page, kNextPage, "a definition's pages have no end");
        }
        const ByteView part = page == firstPage ? bytes : bytes.subspan(kPageHeader);
        joined.insert(joined.end(), part.begin(), part.end());
        page = U32(bytes, kNextPage, page);
    }
    const std::size_t length = U32(joined, kLength, firstPage);
    if (length < file.Format().tdefHeader || length > joined.size()) {
        ThrowDamaged(firstPage, kLength, "impossible length of a table definition");
    }
    joined.resize(length);
    return joined;
}

/// Takes a definition apart from its start to its end.
class Reader {
  public:
    Reader(const PageFile& file, std::uint32_t page)
        : layout_(file.Format()),
          form_{file.Format().textUnit, file.Header().codePage},
          bytes_(Join(file, page)) {
        def_.page = page;
    }

    TableDef Read() {
        ReadHeader();
        ReadDistinctKeys();
        for (std::size_t i = 0; i < columnCount_; ++i) ReadColumn();
        for (ColumnDef& column : def_.columns) column.name = ReadName();
        for (RealIndex& index : def_.realIndexes) ReadReal(index);
        for (std::size_t i = 0; i < logicalCount_; ++i) ReadLogical();
        for (LogicalIndex& index : def_.logicalIndexes) index.name = ReadName();
        ReadLongValueMaps();
        SortColumns();
        return std::move(def_);
    }

  private:
    [[noreturn]] void Throw(const char* what) const { ThrowDamaged(def_.page, at_, what); }
    ByteView Take(std::size_t size) {
        const ByteView part = Part(ByteView(bytes_), at_, size, def_.page);
        at_ += size;
        return part;
    }

    void ReadHeader() {
        const ByteView header = Take(layout_.tdefHeader);
        def_.rowCount = U32(header, layout_.tdefRowCount);
        def_.autonumber = U32(header, layout_.tdefAutonumber);
        def_.type = U8(header, layout_.tdefType);
        def_.maxColumns = U16(header, layout_.tdefMaxColumns);
        def_.variableCount = U16(header, layout_.tdefVariableCount);
        def_.ownedMap = RowPointer::FromPacked(U32(header, layout_.tdefOwnedMap));
        def_.freeMap = RowPointer::FromPacked(U32(header, layout_.tdefFreeMap));
        columnCount_ = U16(header, layout_.tdefColumnCount);
        logicalCount_ = U32(header, layout_.tdefLogicalCount);
        const std::size_t realCount = U32(header, layout_.tdefRealCount);
        if (columnCount_ > kMaxColumns || logicalCount_ > kMaxIndexes || realCount > kMaxIndexes ||
            def_.variableCount > kMaxColumns || def_.maxColumns > kMaxColumns) {
            Throw("too many columns or indexes");
        }
        def_.realIndexes.resize(realCount);
    }
    void ReadDistinctKeys() {
        for (RealIndex& index : def_.realIndexes) {
            index.distinctKeys = U32(Take(layout_.indexCountsSize), kDistinctKeys);
        }
    }
    void ReadColumn() {
        const ByteView bytes = Take(layout_.columnSize);
        ColumnDef column;
        column.typeCode = U8(bytes, 0);
        column.number = U16(bytes, layout_.columnNumber);
        column.variableNumber = U16(bytes, layout_.columnVariable);
        column.ordinal = U16(bytes, layout_.columnOrdinal);
        column.flags = U8(bytes, layout_.columnFlags);
        column.fixedOffset = U16(bytes, layout_.columnOffset);
        column.length = U16(bytes, layout_.columnLength);
        if (layout_.columnExtra != 0) column.extra = U8(bytes, layout_.columnExtra);
        if (column.Type() == ColumnType::Numeric) {
            column.precision = U8(bytes, layout_.columnPrecision);
            column.scale = U8(bytes, layout_.columnPrecision + 1);
        } else {
            ReadCollation(bytes, column);
        }
        CheckColumn(column);
        def_.columns.push_back(std::move(column));
    }
    void ReadCollation(ByteView bytes, ColumnDef& column) const {
        column.collation = U16(bytes, layout_.columnLcid);
        if (layout_.columnCollationVersion != 0) {
            column.collationVersion = U8(bytes, layout_.columnCollationVersion);
        }
        if (layout_.columnCodePage != 0) column.codePage = U16(bytes, layout_.columnCodePage);
    }
    void CheckColumn(const ColumnDef& column) const {
        if (column.number >= def_.maxColumns) Throw("a column number beyond the largest");
        for (const ColumnDef& other : def_.columns) {
            if (other.number == column.number) Throw("two columns of one number");
        }
        if (column.Fixed()) {
            if (std::size_t{column.fixedOffset} + column.length > kMaxFixedEnd) {
                Throw("a column beyond the end of every row");
            }
        } else if (column.variableNumber >= kMaxColumns) {
            Throw("an impossible number of a variable column");
        }
    }
    std::string ReadName() {
        const std::size_t size =
            SizeAt(Take(layout_.nameLengthSize), 0, layout_.nameLengthSize, def_.page);
        if (size > kMaxNameLength * layout_.textUnit) Throw("a name too long");
        return DecodeText(form_, Take(size));
    }
    void ReadReal(RealIndex& index) {
        const ByteView bytes = Take(layout_.realSize);
        for (std::size_t i = 0; i < kKeyColumns; ++i) {
            const std::size_t place = layout_.realColumns + kKeyColumnSize * i;
            const std::uint16_t number = U16(bytes, place);
            if (number == kNoColumn) continue;
            index.columns.push_back(
                {.number = number, .position = 0, .descending = U8(bytes, place + 2) != 1});
        }
        if (index.columns.empty()) Throw("an index of no columns");
        index.map = RowPointer::FromPacked(U32(bytes, layout_.realMap));
        index.root = U32(bytes, layout_.realRoot);
        index.flags = U8(bytes, layout_.realFlags);
    }
    void ReadLogical() {
        const ByteView bytes = Take(layout_.logicalSize);
        LogicalIndex index;
        index.number = U32(bytes, layout_.logicalNumber);
        index.real = U32(bytes, layout_.logicalReal);
        const std::uint8_t kind = U8(bytes, layout_.logicalKind);
        if (index.real >= def_.realIndexes.size()) Throw("an index without a tree");
        if (kind > static_cast<std::uint8_t>(IndexKind::Foreign)) Throw("unknown kind of index");
        index.kind = static_cast<IndexKind>(kind);
        if (index.kind == IndexKind::Foreign) {
            index.side = U8(bytes, layout_.logicalSide);
            index.otherIndex = U32(bytes, layout_.logicalOtherIndex);
            index.otherTable = U32(bytes, layout_.logicalOtherTable);
            index.cascadeUpdates = U8(bytes, layout_.logicalCascadeUpdate) == 1;
            index.cascadeDeletes = U8(bytes, layout_.logicalCascadeDelete) == 1;
        }
        def_.logicalIndexes.push_back(std::move(index));
    }
    /// Up to the end mark, or the end of the string where old files have none.
    void ReadLongValueMaps() {
        while (at_ + 2 <= bytes_.size()) {
            const std::uint16_t column = U16(bytes_, at_);
            if (column == kNoColumn || at_ + kLongValueMapSize > bytes_.size()) return;
            const ByteView bytes = Take(kLongValueMapSize);
            def_.longValueMaps.push_back({.column = column,
                                          .owned = RowPointer::FromPacked(U32(bytes, 2)),
                                          .freeSpace = RowPointer::FromPacked(U32(bytes, 6))});
        }
    }
    void SortColumns() {
        std::sort(def_.columns.begin(), def_.columns.end(),
                  [](const ColumnDef& a, const ColumnDef& b) { return a.number < b.number; });
        const auto variable = std::find_if(def_.columns.begin(), def_.columns.end(),
                                           [](const ColumnDef& c) { return !c.Fixed(); });
        def_.firstVariableColumn = variable == def_.columns.end() ? kNoColumn : variable->number;
        for (RealIndex& index : def_.realIndexes) {
            for (IndexColumnDef& column : index.columns) {
                const auto position = def_.PositionOfNumber(column.number);
                if (!position) Throw("an index on a column that is not there");
                column.position = *position;
            }
        }
    }

    const Layout& layout_;
    TextForm form_;
    std::vector<std::uint8_t> bytes_;
    std::size_t at_ = 0, columnCount_ = 0, logicalCount_ = 0;
    TableDef def_;
};

/// Builds a definition from its start to its end.
class Builder {
  public:
    Builder(const Layout& layout, std::uint16_t codePage, const TableDef& def)
        : layout_(layout), form_{layout.textUnit, codePage}, def_(def) {}

    std::vector<std::uint8_t> Build() {
        AddHeader();
        for (const RealIndex& index : def_.realIndexes) {
            PutU32(Add(layout_.indexCountsSize), kDistinctKeys, index.distinctKeys);
        }
        for (const ColumnDef& column : def_.columns) AddColumn(column);
        for (const ColumnDef& column : def_.columns) AddName(column.name);
        for (const RealIndex& index : def_.realIndexes) AddReal(index);
        for (const LogicalIndex& index : def_.logicalIndexes) AddLogical(index);
        for (const LogicalIndex& index : def_.logicalIndexes) AddName(index.name);
        for (const LongValueMaps& maps : def_.longValueMaps) AddLongValueMaps(maps);
        PutU16(Add(2), 0, kNoColumn);
        PutU32(bytes_, kLength, static_cast<std::uint32_t>(bytes_.size()));
        return std::move(bytes_);
    }

  private:
    ByteSpan Add(std::size_t size) {
        bytes_.resize(bytes_.size() + size, 0);
        return ByteSpan(bytes_).last(size);
    }
    void AddHeader() {
        const ByteSpan header = Add(layout_.tdefHeader);
        PutU16(header, 0, 0x0100 | kTdefPage);
        if (layout_.tdefMagic != 0) PutU32(header, layout_.tdefMagic, kTdefMagic);
        if (layout_.tdefAutonumberOn != 0) PutU8(header, layout_.tdefAutonumberOn, 1);
        PutU32(header, layout_.tdefRowCount, def_.rowCount);
        PutU32(header, layout_.tdefAutonumber, def_.autonumber);
        PutU8(header, layout_.tdefType, def_.type);
        PutU16(header, layout_.tdefMaxColumns, def_.maxColumns);
        PutU16(header, layout_.tdefVariableCount, def_.variableCount);
        PutU16(header, layout_.tdefColumnCount, static_cast<std::uint16_t>(def_.columns.size()));
        PutU32(header, layout_.tdefLogicalCount,
               static_cast<std::uint32_t>(def_.logicalIndexes.size()));
        PutU32(header, layout_.tdefRealCount, static_cast<std::uint32_t>(def_.realIndexes.size()));
        PutU32(header, layout_.tdefOwnedMap, def_.ownedMap.Packed());
        PutU32(header, layout_.tdefFreeMap, def_.freeMap.Packed());
    }
    void AddColumn(const ColumnDef& column) {
        const ByteSpan bytes = Add(layout_.columnSize);
        PutU8(bytes, 0, column.typeCode);
        if (layout_.tdefMagic != 0) PutU32(bytes, 1, kTdefMagic);
        PutU16(bytes, layout_.columnNumber, column.number);
        PutU16(bytes, layout_.columnVariable, column.variableNumber);
        PutU16(bytes, layout_.columnOrdinal, column.ordinal);
        if (column.Type() == ColumnType::Numeric) {
            PutU8(bytes, layout_.columnPrecision, column.precision);
            PutU8(bytes, layout_.columnPrecision + 1, column.scale);
        } else {
            PutU16(bytes, layout_.columnLcid, column.collation);
            if (layout_.columnCollationVersion != 0) {
                PutU8(bytes, layout_.columnCollationVersion, column.collationVersion);
            }
            if (layout_.columnCodePage != 0) PutU16(bytes, layout_.columnCodePage, column.codePage);
        }
        PutU8(bytes, layout_.columnFlags, column.flags);
        if (layout_.columnExtra != 0) PutU8(bytes, layout_.columnExtra, column.extra);
        PutU16(bytes, layout_.columnOffset, column.fixedOffset);
        PutU16(bytes, layout_.columnLength, column.length);
    }
    void AddName(const std::string& name) {
        const std::vector<std::uint8_t> stored = EncodeText(form_, name);
        if (stored.size() > kMaxNameLength * layout_.textUnit) {
            throw Error{ErrorNumber::FieldTooLong, "the name " + name + " is too long"};
        }
        PutLittleEndian(Add(layout_.nameLengthSize), 0, stored.size(), layout_.nameLengthSize);
        PutBytes(Add(stored.size()), 0, stored);
    }
    void AddReal(const RealIndex& index) {
        const ByteSpan bytes = Add(layout_.realSize);
        if (layout_.realMagic != 0) PutU32(bytes, 0, layout_.realMagic);
        for (std::size_t i = 0; i < kKeyColumns; ++i) {
            const std::size_t place = layout_.realColumns + kKeyColumnSize * i;
            const bool used = i < index.columns.size();
            PutU16(bytes, place, used ? index.columns[i].number : kNoColumn);
            PutU8(bytes, place + 2, used && !index.columns[i].descending ? 1 : 0);
        }
        PutU32(bytes, layout_.realMap, index.map.Packed());
        PutU32(bytes, layout_.realRoot, index.root);
        PutU8(bytes, layout_.realFlags,
              static_cast<std::uint8_t>(index.flags | layout_.realFlagAlways));
    }
    void AddLogical(const LogicalIndex& index) {
        const ByteSpan bytes = Add(layout_.logicalSize);
        if (layout_.tdefMagic != 0) PutU32(bytes, 0, kTdefMagic);
        PutU32(bytes, layout_.logicalNumber, index.number);
        PutU32(bytes, layout_.logicalReal, index.real);
        PutU8(bytes, layout_.logicalSide, index.side);
        PutU32(bytes, layout_.logicalOtherIndex, index.otherIndex);
        PutU32(bytes, layout_.logicalOtherTable, index.otherTable);
        PutU8(bytes, layout_.logicalCascadeUpdate, index.cascadeUpdates ? 1 : 0);
        PutU8(bytes, layout_.logicalCascadeDelete, index.cascadeDeletes ? 1 : 0);
        PutU8(bytes, layout_.logicalKind, static_cast<std::uint8_t>(index.kind));
    }
    void AddLongValueMaps(const LongValueMaps& maps) {
        const ByteSpan bytes = Add(kLongValueMapSize);
        PutU16(bytes, 0, maps.column);
        PutU32(bytes, 2, maps.owned.Packed());
        PutU32(bytes, 6, maps.freeSpace.Packed());
    }

    const Layout& layout_;
    TextForm form_;
    const TableDef& def_;
    std::vector<std::uint8_t> bytes_;
};

}  // namespace

TableDef ReadTableDef(const PageFile& file, std::uint32_t page) {
    return Reader(file, page).Read();
}

std::vector<std::uint8_t> BuildTableDef(const Layout& layout, std::uint16_t codePage,
                                        const TableDef& def) {
    return Builder(layout, codePage, def).Build();
}

void WriteTableDef(PageFile& file, std::uint32_t firstPage, ByteView built) {
    const Layout& layout = file.Format();
    std::uint32_t page = firstPage;
    for (std::size_t at = 0; at < built.size();) {
        const std::size_t header = at == 0 ? 0 : kPageHeader;
        const std::size_t part = std::min(layout.pageSize - header, built.size() - at);
        const std::size_t used = header + part;
        const bool last = at + part == built.size();
        const std::uint32_t next = last ? 0 : AllocatePage(file);
        const ByteSpan bytes = file.EditPage(page);
        std::fill(bytes.begin(), bytes.end(), std::uint8_t{0});
        PutBytes(bytes, header, built.subspan(at, part));
        PutU16(bytes, 0, 0x0100 | kTdefPage);
        const std::size_t unused = layout.pageSize - used;
        PutU16(bytes, 2,
               layout.tdefStoresFree
                   ? static_cast<std::uint16_t>(unused > kPageHeader ? unused - kPageHeader : 0)
                   : std::uint16_t{0x4356});  // "VC"
        PutU32(bytes, kNextPage, next);
        at += part;
        page = next;
    }
}

}  // namespace jet::detail
