#pragma once
// Which rows of a table have a given value in one column, kept in memory: made by one scan, then
// kept in step with every change. Queries use it and never the file's own indexes: it answers
// faster, and an index that another program left wrong cannot hide rows.

#include "jet/detail/criterion.h"
#include "jet/detail/table.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <unordered_map>
#include <vector>

namespace jet::detail {

class Lookup {
  public:
    Lookup(const TableStore& table, std::size_t position, KeyKind kind);

    /// Row pointers, packed, in stored order. For kinds with a text these are candidates: rows
    /// whose text has the same hash.
    std::span<const std::uint32_t> Find(const RowKey& key) const;

    /// To be told of a row that came, and of one that is about to go or change.
    void Add(const RowView& row);
    void Remove(const RowView& row);

  private:
    std::optional<std::uint64_t> NumberOf(const RowView& row) const;

    const TableStore* table_;
    std::size_t position_;
    KeyKind kind_;
    std::unordered_map<std::uint64_t, std::vector<std::uint32_t>> rows_;
};

}  // namespace jet::detail
