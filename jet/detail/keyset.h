#pragma once
// Which rows belong to a record set, in order, with one of them current. Knows pointers, not
// values.

#include "jet/detail/queryplan.h"

#include <cstdint>
#include <optional>
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
    const std::vector<std::uint32_t>& Rows();

    void Append(std::uint32_t row);
    void RemoveCurrent();

    /// The first row for which the condition holds.
    std::optional<std::int32_t> Find(const Condition& condition);

  private:
    void Fill();
    std::optional<std::int32_t> Scan(const Condition& condition);

    QueryPlan plan_;
    Ordering ordering_;
    std::vector<std::uint32_t> rows_;  ///< while not filled: only those that were added
    std::int64_t position_ = 0;
    bool filled_ = false;
    std::uint64_t filledVersion_ = 0;  ///< of the table; while it stays, the rows are in order
};

}  // namespace jet::detail
