#pragma once
// Which rows of a table have a given value in one column, kept in memory: made by one scan, then
// kept in step with every change. Queries use it and never the file's own indexes: it answers
// faster, and an index that another program left wrong cannot hide rows.

#include "jet/query/criterion.h"
#include "jet/query/ordering.h"
#include "jet/table/table.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <unordered_map>
#include <vector>

namespace jet::detail {

class Lookup {
  public:
    Lookup(const TableStore& table, std::size_t position, KeyKind kind);

    /// Row pointers, packed, in the order that is asked for. For kinds with a text these are
    /// candidates: rows whose text has the same hash.
    /// An order by numbers is kept for the next time.
    std::vector<std::uint32_t> Find(const RowKey& key, const Ordering& order);

    /// To be told of a row that came, and of one that is about to go or change.
    void Add(const RowView& row);
    void Remove(const RowView& row);
    void Remove(std::span<const std::uint32_t> rows);  ///< packed pointers; many at once
    /// Whether a row that gets these new values must be removed before and added after.
    bool DependsOn(std::span<const std::optional<Value>> values) const;

  private:
    struct Group {
        std::vector<std::uint32_t> rows;
        std::shared_ptr<const Ordering> order;  ///< none: stored order
        bool Before(std::uint32_t row, std::uint32_t other) const {
            return order ? order->Before(row, other) : row < other;
        }
    };
    std::optional<std::uint64_t> NumberOf(const RowView& row) const;
    std::shared_ptr<const Ordering> Shared(const Ordering& order);

    const TableStore* table_;
    std::size_t position_;
    KeyKind kind_;
    std::unordered_map<std::uint64_t, Group> groups_;
    std::vector<std::shared_ptr<const Ordering>> orders_;  ///< all that a group may be in
};

}  // namespace jet::detail
