#include "jet/query/keyset.h"

#include "jet/error.h"

#include <algorithm>
#include <unordered_set>

namespace jet::detail {

Keyset::Keyset(QueryPlan plan)
    : plan_(std::move(plan)), ordering_(plan_.table->Store(), plan_.order) {}

void Keyset::Fill() {
    if (filled_) return;
    std::vector<std::uint32_t> found = plan_.Rows(ordering_);
    if (!rows_.empty()) {
        const std::unordered_set<std::uint32_t> added(rows_.begin(), rows_.end());
        std::erase_if(found, [&](std::uint32_t row) { return added.contains(row); });
        found.insert(found.end(), rows_.begin(), rows_.end());
        position_ = static_cast<std::int64_t>(found.size()) - 1;
    } else {
        filledVersion_ = plan_.table->Version();
    }
    rows_ = std::move(found);
    filled_ = true;
}

std::int32_t Keyset::Count() {
    Fill();
    return static_cast<std::int32_t>(rows_.size());
}

std::int32_t Keyset::Position() {
    Fill();
    return rows_.empty() ? -1 : static_cast<std::int32_t>(position_);
}

void Keyset::MoveTo(std::int64_t position) {
    Fill();
    position_ = std::clamp<std::int64_t>(position, -1, static_cast<std::int64_t>(rows_.size()));
}

void Keyset::Forget() {
    filled_ = false;
    rows_.clear();
    position_ = 0;
}

std::uint32_t Keyset::Current() {
    if (!filled_ && !rows_.empty()) return rows_.back();
    Fill();
    if (position_ < 0 || position_ >= static_cast<std::int64_t>(rows_.size())) {
        throw Error{ErrorNumber::NoCurrentRecord,
                    "no current row in a set of " + plan_.table->Design().name};
    }
    return rows_[static_cast<std::size_t>(position_)];
}

std::uint32_t Keyset::At(std::int32_t position) {
    Fill();
    if (position < 0 || static_cast<std::size_t>(position) >= rows_.size()) {
        throw Error{ErrorNumber::SubscriptOutOfRange,
                    "no such row in a set of " + plan_.table->Design().name};
    }
    return rows_[static_cast<std::size_t>(position)];
}

bool Keyset::IsWholeTable() const {
    return plan_.conditions.empty() && plan_.order.empty();
}

void Keyset::MakeRoom() {
    constexpr std::size_t kFewRows = 16;
    if (rows_.size() == rows_.capacity()) rows_.reserve(std::max(kFewRows, 2 * rows_.size()));
}

void Keyset::Append(std::uint32_t row) noexcept {
    rows_.push_back(row);
    position_ = static_cast<std::int64_t>(rows_.size()) - 1;
}

void Keyset::RemoveCurrent() {
    Fill();
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(position_));
}

std::optional<std::int32_t> Keyset::Find(const Condition& condition) {
    Fill();
    if (!condition.criterion.Key()) return std::nullopt;
    const bool inOrder = filledVersion_ == plan_.table->Version();
    if (!inOrder || !ordering_.CanSearch(condition.criterion, condition.position)) {
        return Scan(condition);
    }
    const auto found = ordering_.Search(rows_, *condition.criterion.Key());
    return found ? std::optional(static_cast<std::int32_t>(*found)) : std::nullopt;
}

std::optional<std::int32_t> Keyset::Scan(const Condition& condition) {
    const TableStore& store = plan_.table->Store();
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const RowPointer row = RowPointer::FromPacked(rows_[i]);
        if (store.Exists(row) && condition.criterion.Holds(store.File(), store.Read(row))) {
            return static_cast<std::int32_t>(i);
        }
    }
    return std::nullopt;
}

}  // namespace jet::detail
