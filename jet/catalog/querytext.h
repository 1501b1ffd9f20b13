#pragma once
// A saved query as the file keeps it, in rows of parts, and as a text to read.

#include "jet/storage/bytes.h"
#include "jet/value.h"

#include <cstdint>
#include <span>
#include <string>

namespace jet::detail {

/// What a saved query's row says, by its attribute.
enum class Attribute {
    Kind = 1,
    Parameter = 2,
    Options = 3,
    Source = 5,
    Output = 6,
    Join = 7,
    Where = 8,
    GroupBy = 9,
    Having = 10,
    OrderBy = 11
};

inline constexpr std::int32_t kSelectQuery = 1, kQueryAllColumns = 0x01, kQueryDistinct = 0x02,
                              kQueryDistinctRow = 0x08, kQueryTop = 0x10, kQueryPercent = 0x20;

struct QueryRow {
    std::int32_t attribute = 0, flag = 0;
    std::string name1, name2, expression;
    Bytes order;
    bool Is(Attribute wanted) const { return attribute == static_cast<std::int32_t>(wanted); }
};

/// The query as SQL, as far as its rows tell; for people. `rows` are in the order of their parts.
std::string QueryText(std::span<const QueryRow> rows);

}  // namespace jet::detail
