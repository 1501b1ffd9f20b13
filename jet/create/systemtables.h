#pragma once
// The tables that every file has: their columns and indexes, as new files get them.

#include "jet/value.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace jet::detail {

// As constants: where a list of designs is being made and memory runs out, the compiler destroys
// part of it twice.
struct SystemColumn {
    std::string_view name;
    ColumnType type;
};

struct SystemIndex {
    std::string_view name;
    std::array<std::string_view, 3> columns;  ///< the rest empty
    std::uint8_t flags = 0;
    bool primary = false;
};

struct SystemTable {
    std::uint32_t page;
    std::string_view name;
    std::span<const SystemColumn> columns;
    std::span<const SystemIndex> indexes;
};

std::span<const SystemTable> SystemTables();

}  // namespace jet::detail
