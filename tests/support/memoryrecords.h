#pragma once
// A record set in memory, for views that must be tested without a file. Counts what is read.

#include "base/error.h"
#include "base/number.h"
#include "jet/recordset.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class MemoryRecords final : public jet::RecordSet {
  public:
    using Row = std::vector<jet::Value>;

    MemoryRecords(std::vector<jet::ColumnDesign> columns, std::vector<Row> rows)
        : columns_(std::move(columns)), rows_(std::move(rows)) {}

    std::vector<Row>& Rows() { return rows_; }
    int cellsRead = 0;
    std::optional<ErrorNumber> updateFails;  ///< Update throws this
    std::optional<ErrorNumber> deleteFails;
    std::optional<ErrorNumber> readFails;

    std::size_t FieldCount() const override { return columns_.size(); }
    const jet::ColumnDesign& Column(std::size_t position) const override {
        return columns_.at(position);
    }
    std::size_t FieldPosition(std::string_view name) const override;

    bool Empty() override { return rows_.empty(); }
    std::int32_t RecordCount() override { return Count(); }
    std::int32_t Position() override { return rows_.empty() ? -1 : position_; }
    bool Eof() override { return position_ >= Count(); }
    bool Bof() override { return position_ < 0; }
    void MoveFirst() override { MoveToExisting(0); }
    void MoveLast() override { MoveToExisting(Count() - 1); }
    void MoveNext() override { Move(1); }
    void MovePrevious() override { Move(-1); }
    void Move(std::int32_t rows) override { MoveTo(position_ + rows); }
    void MoveTo(std::int32_t position) override;
    bool FindFirst(std::string_view) override { return false; }

    jet::Value Field(std::size_t position) override;
    jet::Value Field(std::string_view name) override { return Field(FieldPosition(name)); }
    jet::Value At(std::int32_t row, std::size_t position) override;
    void VisitIntegers(std::span<const std::size_t> positions,
                       const IntegerVisitor& visit) override;

    void AddNew() override;
    void Edit() override;
    bool Pending() const override { return pending_.has_value(); }
    void Set(std::size_t position, jet::Value value) override;
    void Set(std::string_view name, jet::Value value) override {
        Set(FieldPosition(name), std::move(value));
    }
    void Update() override;
    void CancelUpdate() override { pending_.reset(); }
    void Delete() override;
    void Requery() override { position_ = 0; }

  private:
    std::int32_t Count() const { return static_cast<std::int32_t>(rows_.size()); }
    void MoveToExisting(std::int32_t row);

    std::vector<jet::ColumnDesign> columns_;
    std::vector<Row> rows_;
    std::int32_t position_ = 0;
    std::optional<Row> pending_;
    bool adding_ = false;
};
