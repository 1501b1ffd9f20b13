#pragma once
// Which rows belong to a record set, in order, with one of them current.
// Knows pointers, not values.

#include "jet/query/queryplan.h"

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace jet::detail {

/// The rows are looked for when they are first needed. Rows that were added through the set come
/// last, and the last one added is current, whether the others are known yet or not.
class Keyset {
  public:
    explicit Keyset(QueryPlan plan);

    const QueryPlan& Plan() const { return plan_; }

    std::int32_t Count();
    /// 0 for the first row, Count() at the end, -1 before the first.
    std::int32_t Position();
    void MoveTo(std::int64_t position);  ///< at most to the end, at least before the first row
    void Forget();                       ///< the rows are looked for anew, the first is current

    /// Packed pointers. Current throws NoCurrentRecord, At SubscriptOutOfRange.
    std::uint32_t Current();
    std::uint32_t At(std::int32_t position);
    /// Calls visitor(const RowView&) for each row in order. Rows that are not known yet are looked
    /// for and visited in the same pass where no order or condition is asked for.
    template <typename Visitor>
    void Visit(Visitor&& visitor);

    /// Append may be called only after MakeRoom, and then takes no memory: it tells of a row that
    /// is stored already.
    void MakeRoom();
    void Append(std::uint32_t row) noexcept;
    void RemoveCurrent();

    /// The first row for which the condition holds.
    std::optional<std::int32_t> Find(const Condition& condition);

  private:
    bool IsWholeTable() const;
    void Fill();
    std::optional<std::int32_t> Scan(const Condition& condition);

    QueryPlan plan_;
    Ordering ordering_;
    std::vector<std::uint32_t> rows_;  ///< while not filled: only those that were added
    std::int64_t position_ = 0;
    bool filled_ = false;
    std::uint64_t filledVersion_ = 0;  ///< of the table; while it stays, the rows are in order
};

template <typename Visitor>
void Keyset::Visit(Visitor&& visitor) {
    const TableStore& store = plan_.table->Store();
    if (filled_ || !rows_.empty() || !IsWholeTable()) {
        Fill();
        for (const std::uint32_t row : rows_) visitor(store.Read(RowPointer::FromPacked(row)));
        return;
    }
    std::vector<std::uint32_t> rows;
    store.Scan([&](RowPointer where, const RowView& row) {
        rows.push_back(where.Packed());
        visitor(row);
    });
    rows_ = std::move(rows);
    filledVersion_ = plan_.table->Version();
    filled_ = true;
}

}  // namespace jet::detail
