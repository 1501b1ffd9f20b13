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

struct TableDesign {
    std::string name;
    std::vector<ColumnDesign> columns;  ///< in stored order: the positions of RecordSet::Field
    std::vector<IndexDesign> indexes;
};

}  // namespace jet
