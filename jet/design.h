#pragma once
// The design of a table: what Create is told and what Describe tells. Plain values in UTF-8: copies
// are independent of the file that they tell of.

#include "jet/value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jet {

struct ColumnDesign {
    std::string name;
    ColumnType type = ColumnType::Text;
    /// Text: characters (1 to 255, in UTF-16 units); Binary: bytes (1 to 510); otherwise 0, the
    /// type's own.
    std::uint16_t size = 0;
    bool autonumber = false;                ///< Long and Guid only, and one Long in a table
    std::uint8_t precision = 0, scale = 0;  ///< Numeric only: digits (1 to 28), decimals of them
    bool operator==(const ColumnDesign&) const = default;
};

struct IndexColumn {
    std::string name;
    bool descending = false;
    bool operator==(const IndexColumn&) const = default;
};

struct IndexDesign {
    std::string name;
    std::vector<IndexColumn> columns;  ///< 1 to 10, of any type but OLE
    bool primary = false;              ///< unique and required too; one in a table
    bool unique = false;
    bool ignoreNulls = false;  ///< rows with nothing but nulls in its columns are not in it
    bool required = false;     ///< rows with a null in its columns are refused (NullKey)
    bool foreign = false;      ///< the index belongs to a relation between tables; Describe only
    bool operator==(const IndexDesign&) const = default;
};

/// What a file asks of the values of a column; the texts are expressions as they were written.
struct ColumnRules {
    bool required = false;
    bool allowZeroLength = true;  ///< of texts
    std::string defaultValue, validationRule, validationText;
    bool operator==(const ColumnRules&) const = default;
};

struct TableRules {
    std::vector<ColumnRules> columns;  ///< in the order of TableDesign::columns
    std::string validationRule, validationText;
    bool operator==(const TableRules&) const = default;
};

/// A saved query of any kind, as a text to read.
struct QueryDesign {
    std::string name, text;
    bool operator==(const QueryDesign&) const = default;
};

/// An enforced relation: the values of `columns` in `table` refer to rows of `other` by their
/// `otherColumns`. Describing only; relations cannot be made.
struct RelationDesign {
    std::string name;
    std::string table;
    std::vector<std::string> columns;
    std::string other;
    std::vector<std::string> otherColumns;
    bool cascadeUpdates = false, cascadeDeletes = false;
    bool operator==(const RelationDesign&) const = default;
};

/// Names have 1 to 64 characters, none of . ! [ ] `, and differ not in letter case alone.
struct TableDesign {
    std::string name;
    std::vector<ColumnDesign> columns;  ///< 1 to 255, in stored order: the fields of its record set
    std::vector<IndexDesign> indexes;   ///< at most 32
};

}  // namespace jet
