#include "tests/support/memoryrecords.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <variant>

std::size_t MemoryRecords::FieldPosition(std::string_view name) const {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [&](const auto& column) { return column.name == name; });
    if (found == columns_.end()) throw Error{ErrorNumber::FieldNotFound, "no field of that name"};
    return static_cast<std::size_t>(found - columns_.begin());
}

void MemoryRecords::MoveTo(std::int32_t position) {
    pending_.reset();
    position_ = std::clamp(position, -1, Count());
}

void MemoryRecords::MoveToExisting(std::int32_t row) {
    if (rows_.empty()) throw Error{ErrorNumber::NoCurrentRecord, "no rows"};
    MoveTo(row);
}

jet::Value MemoryRecords::Field(std::size_t position) {
    if (pending_) return pending_->at(position);
    return At(position_, position);
}

jet::Value MemoryRecords::At(std::int32_t row, std::size_t position) {
    if (row < 0 || row >= Count()) throw Error{ErrorNumber::NoCurrentRecord, "no such row"};
    if (readFails) throw Error{*readFails, "told to fail"};
    ++cellsRead;
    return rows_[static_cast<std::size_t>(row)].at(position);
}

void MemoryRecords::VisitIntegers(std::span<const std::size_t> positions,
                                  const IntegerVisitor& visit) {
    std::vector<std::int32_t> numbers;
    for (const Row& row : rows_) {
        numbers.clear();
        for (const std::size_t position : positions) numbers.push_back(row.at(position).Integer());
        visit(numbers);
    }
}

void MemoryRecords::AddNew() {
    pending_ = Row(columns_.size());
    adding_ = true;
}

void MemoryRecords::Edit() {
    if (position_ < 0 || position_ >= Count()) {
        throw Error{ErrorNumber::NoCurrentRecord, "no current row"};
    }
    pending_ = rows_[static_cast<std::size_t>(position_)];
    adding_ = false;
}

void MemoryRecords::Set(std::size_t position, jet::Value value) {
    using enum jet::ColumnType;
    const bool isText = std::holds_alternative<std::string>(value.Held());
    jet::Value& field = pending_.value().at(position);
    switch (columns_.at(position).type) {
        case Long:
            field = isText ? jet::Value(ParseInteger(std::get<std::string>(value.Held()))) : value;
            return;
        case Single:
            field = isText ? jet::Value(ParseSingle(std::get<std::string>(value.Held()))) : value;
            return;
        case Double:
            field = isText ? jet::Value(ParseDouble(std::get<std::string>(value.Held()))) : value;
            return;
        default:
            field = std::move(value);
    }
}

void MemoryRecords::Update() {
    if (updateFails) throw Error{*updateFails, "told to fail"};
    if (adding_) {
        rows_.push_back(std::move(pending_.value()));
        position_ = Count() - 1;
    } else {
        rows_[static_cast<std::size_t>(position_)] = std::move(pending_.value());
    }
    pending_.reset();
}

void MemoryRecords::Delete() {
    if (deleteFails) throw Error{*deleteFails, "told to fail"};
    if (position_ < 0 || position_ >= Count()) {
        throw Error{ErrorNumber::NoCurrentRecord, "no current row"};
    }
    rows_.erase(rows_.begin() + position_);
}
