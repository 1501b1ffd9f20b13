#pragma once
// The design of a table: what Create is told and what Describe tells.

#include "jet/value.h"

#include <cstdint>
#include <string>
#include <vector>

namespace jet {

struct ColumnDesign {
    std::string name;
    ColumnType type = ColumnType::Text;
    std::uint16_t size =
        0;  ///< Text: characters (1..255); Binary: bytes; otherwise 0 = the type's own
    bool autonumber = false;
    std::uint8_t precision = 0, scale = 0;  ///< Numeric only
    bool operator==(const ColumnDesign&) const = default;
};

struct IndexColumn {
    std::string name;
    bool descending = false;
    bool operator==(const IndexColumn&) const = default;
};

struct IndexDesign {
    std::string name;
    std::vector<IndexColumn> columns;
    bool primary = false, unique = false, ignoreNulls = false, required = false;
    bool foreign = false;  ///< the index belongs to a relation between tables; Describe only
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

struct TableDesign {
    std::string name;
    std::vector<ColumnDesign> columns;  ///< in stored order: the positions of RecordSet::Field
    std::vector<IndexDesign> indexes;
};

}  // namespace jet
