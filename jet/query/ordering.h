#pragma once
// Puts rows in the order of some of their columns.

#include "jet/query/criterion.h"
#include "jet/table/table.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace jet::detail {

struct OrderColumn {
    std::size_t position = 0;  ///< in TableDef::columns
    bool descending = false;
    bool operator==(const OrderColumn&) const = default;
};

/// Null comes first (descending: last), numbers and dates by their size, texts as indexes put them
/// where the column's sort order is known and else by their letters in small. Rows that are equal
/// keep the order they had.
class Ordering {
  public:
    Ordering(const TableStore& table, const std::vector<OrderColumn>& columns);

    bool Empty() const { return terms_.empty(); }
    /// Sorts packed row pointers.
    void Sort(std::vector<std::uint32_t>& rows) const;

    /// Whether two rows can be compared for themselves: there are columns, and all are numbers.
    bool CanCompare() const { return !terms_.empty() && allNumbers_; }
    /// Whether one row comes before the other; equal ones go by their places in the file. Only
    /// where CanCompare.
    bool Before(std::uint32_t row, std::uint32_t other) const;
    bool SameAs(const Ordering& other) const;
    /// Whether the test holds for the position of one of its columns.
    template <typename Test>
    bool Uses(Test&& test) const {
        return std::any_of(terms_.begin(), terms_.end(),
                           [&](const Term& term) { return test(term.column.position); });
    }

    /// The first of the sorted rows with this key in the first order column, found by halving; none
    /// when no row has it. Only where CanSearch.
    bool CanSearch(const Criterion& criterion, std::size_t position) const;
    std::optional<std::size_t> Search(std::span<const std::uint32_t> sorted,
                                      const RowKey& key) const;

  private:
    struct Term {
        OrderColumn column;
        std::optional<KeyKind> number;  ///< how its values are numbers, if they are
    };

    template <std::size_t Count>
    void SortByNumbers(std::vector<std::uint32_t>& rows) const;
    void SortByBytes(std::vector<std::uint32_t>& rows) const;
    std::uint64_t NumberOf(const RowView& row, const Term& term) const;
    void AppendBytes(Bytes& key, const RowView& row, const Term& term) const;

    const TableStore* table_;
    const ColumnDef& Column(const Term& term) const {
        return table_->Def().columns[term.column.position];
    }

    std::vector<Term> terms_;
    bool allNumbers_ = true;
};

}  // namespace jet::detail
