#pragma once
// A table's definition: its columns, indexes, maps and counters, between bytes and structs.

#include "jet/storage/bytes.h"
#include "jet/storage/pagefile.h"
#include "jet/value.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace jet::detail {

inline constexpr std::uint8_t kColumnFixed = 0x01, kColumnUpdatable = 0x02,
                              kColumnAutonumber = 0x04, kColumnGuidAutonumber = 0x40,
                              kColumnHyperlink = 0x80;
inline constexpr std::uint8_t kExtraCompressed = 0x01;
inline constexpr std::uint8_t kIndexUnique = 0x01, kIndexIgnoreNulls = 0x02, kIndexRequired = 0x08;
inline constexpr std::uint8_t kUserTable = 0x4E, kSystemTable = 0x53;
inline constexpr std::uint16_t kGeneralCollation = 1033;

struct ColumnDef {
    std::string name;
    std::uint8_t typeCode = 0;  ///< as stored; may be none of ColumnType
    std::uint16_t number = 0, variableNumber = 0, ordinal = 0;
    std::uint16_t collation = 0;  ///< text and memo: LCID
    std::uint8_t collationVersion = 0;
    std::uint8_t precision = 0, scale = 0;  ///< Numeric
    std::uint16_t codePage = 0;             ///< Jet 3, as stored
    std::uint8_t flags = 0, extra = 0;
    std::uint16_t fixedOffset = 0;
    std::uint16_t length = 0;  ///< in bytes

    ColumnType Type() const { return static_cast<ColumnType>(typeCode); }
    bool Fixed() const { return (flags & kColumnFixed) != 0; }
    bool IsLongValue() const { return Type() == ColumnType::Memo || Type() == ColumnType::Ole; }
    bool IsText() const { return Type() == ColumnType::Text || Type() == ColumnType::Memo; }
    /// Autonumber counts only on Long and Guid columns, whatever the bits of others say.
    bool Autonumber() const {
        return (Type() == ColumnType::Long && (flags & kColumnAutonumber) != 0) ||
               (Type() == ColumnType::Guid && (flags & kColumnGuidAutonumber) != 0);
    }
};

struct IndexColumnDef {
    std::uint16_t number = 0;  ///< column number
    std::size_t position = 0;  ///< position in TableDef::columns
    bool descending = false;
};

/// An index tree.
struct RealIndex {
    std::vector<IndexColumnDef> columns;  ///< 1 to 10
    RowPointer map;
    std::uint32_t root = 0;
    std::uint8_t flags = 0;  ///< as stored
    std::uint32_t distinctKeys = 0;
    bool Unique() const { return (flags & kIndexUnique) != 0; }
    bool IgnoreNulls() const { return (flags & kIndexIgnoreNulls) != 0; }
    bool Required() const { return (flags & kIndexRequired) != 0; }
};

enum class IndexKind : std::uint8_t { Normal = 0, Primary = 1, Foreign = 2 };

/// A name for an index tree; several may share one.
struct LogicalIndex {
    std::string name;
    std::uint32_t number = 0;
    std::uint32_t real = 0;  ///< position in TableDef::realIndexes
    IndexKind kind = IndexKind::Normal;
    std::uint8_t side = 0;  ///< foreign: 1 = this table is referenced, 2 = referencing
    std::uint32_t otherIndex = 0xFFFFFFFF, otherTable = 0;
    bool cascadeUpdates = false, cascadeDeletes = false;
};

struct LongValueMaps {
    std::uint16_t column = 0;     ///< column number
    RowPointer owned, freeSpace;  ///< null = no map
};

struct TableDef {
    std::uint32_t page = 0;
    std::string name;  ///< for error texts; filled by whoever knows it
    std::uint8_t type = kUserTable;
    std::uint32_t rowCount = 0;    ///< as stored; may be wrong
    std::uint32_t autonumber = 0;  ///< the last one given out
    std::uint16_t maxColumns = 0, variableCount = 0;
    RowPointer ownedMap, freeMap;
    /// The lowest number of a column with variable storage; found when a definition is read.
    std::uint16_t firstVariableColumn = 0;
    std::vector<ColumnDef>
        columns;  ///< sorted by number: the stored order, the positions of RecordSet::Field
    std::vector<RealIndex> realIndexes;
    std::vector<LogicalIndex> logicalIndexes;  ///< in the file's order
    std::vector<LongValueMaps> longValueMaps;

    const ColumnDef* FindColumn(
        std::string_view columnName) const;  ///< letter case ignored; null if none
    std::optional<std::size_t> PositionOf(std::string_view columnName) const;
    std::optional<std::size_t> PositionOfNumber(std::uint16_t number) const;
    const LogicalIndex* PrimaryKey() const;  ///< null if none
    const LongValueMaps* MapsOf(std::uint16_t columnNumber) const;
};

// Counters; each also updates `def`.
/// Row count, autonumber and distinct keys as the page has them, after a rollback. Takes no memory.
void ReloadCounters(const PageFile& file, TableDef& def) noexcept;
void StoreRowCount(PageFile& file, TableDef& def, std::uint32_t count);
void StoreAutonumber(PageFile& file, TableDef& def, std::uint32_t last);
void StoreDistinctKeys(PageFile& file, TableDef& def, std::size_t realIndex, std::uint32_t count);

}  // namespace jet::detail
