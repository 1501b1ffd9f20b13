#pragma once
// Everything in which the two versions of the format differ, as one table of offsets and sizes
// each. No other file tests the version.

#include <cstddef>
#include <cstdint>

namespace jet::detail {

struct Layout {
    int version;  ///< 3 or 4
    std::uint32_t formatByte;
    std::size_t pageSize;
    std::uint64_t largestFile;

    // page 0
    std::size_t maskedEnd;       ///< the masked bytes are 0x18 up to here
    std::size_t passwordSize;    ///< at 0x42
    bool passwordMixedWithDate;  ///< XORed with the whole days of the creation date
    std::size_t buildNumber, collation, creationDate, commitArea;

    // data pages
    std::size_t slotCount, slots;  ///< offsets; `slots` is also the header's size
    std::size_t largestRow, largestLongValueRow, largestInlineLongValue;

    // usage maps
    std::size_t inlineMapRow;  ///< length of a new map's row
    std::size_t pagesPerMapPage;

    // rows
    std::size_t rowCountSize;  ///< bytes of the column count and of each variable offset
    bool jumpTable;            ///< variable offsets are single bytes and need the jump table
    std::size_t textUnit;      ///< bytes per character: 1 = code page, 2 = UTF-16

    // table definitions: header
    bool tdefStoresFree;    ///< free bytes of the page at 2; else two letters
    std::size_t tdefMagic;  ///< offset of the constant 1625, 0 = none
    std::size_t tdefRowCount, tdefAutonumber, tdefAutonumberOn /*0 = none*/, tdefType,
        tdefMaxColumns, tdefVariableCount, tdefColumnCount, tdefLogicalCount, tdefRealCount,
        tdefOwnedMap, tdefFreeMap, tdefHeader;
    // per real index: row counts
    std::size_t indexCountsSize;
    // column descriptor
    std::size_t columnSize, columnNumber, columnVariable, columnOrdinal, columnLcid,
        columnCollationVersion /*0 = none*/, columnPrecision, columnCodePage /*0 = none*/,
        columnFlags, columnExtra /*0 = none*/, columnOffset, columnLength;
    std::size_t nameLengthSize;
    // real index block
    std::size_t realSize, realColumns, realMap, realRoot, realFlags;
    std::uint8_t realFlagAlways;  ///< set on every index of this version
    std::uint32_t realMagic;
    // logical index block
    std::size_t logicalSize, logicalNumber, logicalReal, logicalSide, logicalOtherIndex,
        logicalOtherTable, logicalCascadeUpdate, logicalCascadeDelete, logicalKind;

    // index pages
    std::size_t indexPrevious, indexNext, indexTail, indexPrefix, indexPrefixSize, indexLevel,
        indexMask, indexEntries;

    std::size_t IndexRoom() const { return pageSize - indexEntries; }
    std::size_t FreeInEmptyDataPage() const { return pageSize - slots; }
};

inline constexpr Layout kJet3{
    .version = 3,
    .formatByte = 0,
    .pageSize = 0x800,
    .largestFile = 1ULL << 30,
    .maskedEnd = 0x96,
    .passwordSize = 20,
    .passwordMixedWithDate = false,
    .buildNumber = 0x56,
    .collation = 0x3A,
    .creationDate = 0,
    .commitArea = 0x600,
    .slotCount = 0x08,
    .slots = 0x0A,
    .largestRow = 2012,
    .largestLongValueRow = 2032,
    .largestInlineLongValue = 32,
    .inlineMapRow = 133,
    .pagesPerMapPage = 16352,
    .rowCountSize = 1,
    .jumpTable = true,
    .textUnit = 1,
    .tdefStoresFree = false,
    .tdefMagic = 0,
    .tdefRowCount = 0x0C,
    .tdefAutonumber = 0x10,
    .tdefAutonumberOn = 0,
    .tdefType = 0x14,
    .tdefMaxColumns = 0x15,
    .tdefVariableCount = 0x17,
    .tdefColumnCount = 0x19,
    .tdefLogicalCount = 0x1B,
    .tdefRealCount = 0x1F,
    .tdefOwnedMap = 0x23,
    .tdefFreeMap = 0x27,
    .tdefHeader = 0x2B,
    .indexCountsSize = 8,
    .columnSize = 18,
    .columnNumber = 1,
    .columnVariable = 3,
    .columnOrdinal = 5,
    .columnLcid = 9,
    .columnCollationVersion = 0,
    .columnPrecision = 0x0B,
    .columnCodePage = 0x0B,
    .columnFlags = 0x0D,
    .columnExtra = 0,
    .columnOffset = 0x0E,
    .columnLength = 0x10,
    .nameLengthSize = 1,
    .realSize = 39,
    .realColumns = 0,
    .realMap = 0x1E,
    .realRoot = 0x22,
    .realFlags = 0x26,
    .realFlagAlways = 0,
    .realMagic = 0,
    .logicalSize = 20,
    .logicalNumber = 0,
    .logicalReal = 4,
    .logicalSide = 8,
    .logicalOtherIndex = 9,
    .logicalOtherTable = 0x0D,
    .logicalCascadeUpdate = 0x11,
    .logicalCascadeDelete = 0x12,
    .logicalKind = 0x13,
    .indexPrevious = 0x08,
    .indexNext = 0x0C,
    .indexTail = 0x10,
    .indexPrefix = 0x14,
    .indexPrefixSize = 1,
    .indexLevel = 0x15,
    .indexMask = 0x16,
    .indexEntries = 0xF8,
};

inline constexpr Layout kJet4{
    .version = 4,
    .formatByte = 1,
    .pageSize = 0x1000,
    .largestFile = 1ULL << 31,
    .maskedEnd = 0x98,
    .passwordSize = 40,
    .passwordMixedWithDate = true,
    .buildNumber = 0x6A,
    .collation = 0x6E,
    .creationDate = 0x72,
    .commitArea = 0xE00,
    .slotCount = 0x0C,
    .slots = 0x0E,
    .largestRow = 4060,
    .largestLongValueRow = 4076,
    .largestInlineLongValue = 64,
    .inlineMapRow = 69,
    .pagesPerMapPage = 32736,
    .rowCountSize = 2,
    .jumpTable = false,
    .textUnit = 2,
    .tdefStoresFree = true,
    .tdefMagic = 0x0C,
    .tdefRowCount = 0x10,
    .tdefAutonumber = 0x14,
    .tdefAutonumberOn = 0x18,
    .tdefType = 0x28,
    .tdefMaxColumns = 0x29,
    .tdefVariableCount = 0x2B,
    .tdefColumnCount = 0x2D,
    .tdefLogicalCount = 0x2F,
    .tdefRealCount = 0x33,
    .tdefOwnedMap = 0x37,
    .tdefFreeMap = 0x3B,
    .tdefHeader = 0x3F,
    .indexCountsSize = 12,
    .columnSize = 25,
    .columnNumber = 5,
    .columnVariable = 7,
    .columnOrdinal = 9,
    .columnLcid = 0x0B,
    .columnCollationVersion = 0x0E,
    .columnPrecision = 0x0B,
    .columnCodePage = 0,
    .columnFlags = 0x0F,
    .columnExtra = 0x10,
    .columnOffset = 0x15,
    .columnLength = 0x17,
    .nameLengthSize = 2,
    .realSize = 52,
    .realColumns = 4,
    .realMap = 0x22,
    .realRoot = 0x26,
    .realFlags = 0x2E,
    .realFlagAlways = 0x80,
    .realMagic = 1923,
    .logicalSize = 28,
    .logicalNumber = 4,
    .logicalReal = 8,
    .logicalSide = 0x0C,
    .logicalOtherIndex = 0x0D,
    .logicalOtherTable = 0x11,
    .logicalCascadeUpdate = 0x15,
    .logicalCascadeDelete = 0x16,
    .logicalKind = 0x17,
    .indexPrevious = 0x0C,
    .indexNext = 0x10,
    .indexTail = 0x14,
    .indexPrefix = 0x18,
    .indexPrefixSize = 2,
    .indexLevel = 0x1A,
    .indexMask = 0x1B,
    .indexEntries = 0x1E0,
};

/// Constants that both versions share.
inline constexpr std::uint32_t kTdefMagic = 1625;
inline constexpr std::size_t kDistinctKeys = 4;  ///< in an index's counts
inline constexpr std::uint8_t kDataPage = 0x01, kTdefPage = 0x02, kIndexNode = 0x03,
                              kIndexLeaf = 0x04, kMapPage = 0x05;
inline constexpr std::uint32_t kLongValueOwner = 0x4C41564C;  ///< "LVAL"
inline constexpr std::uint32_t kSystemObjectsPage = 2, kSystemAcesPage = 3, kSystemQueriesPage = 4,
                               kSystemRelationshipsPage = 5;

}  // namespace jet::detail
