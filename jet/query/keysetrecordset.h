#pragma once
// The record set over a table or query: rows from a Keyset, values from the table's pages, and the
// row being edited.

#include "jet/query/keyset.h"
#include "jet/query/openfile.h"
#include "jet/recordset.h"

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace jet::detail {

class KeysetRecordSet final : public RecordSet {
  public:
    KeysetRecordSet(std::shared_ptr<const OpenFile> file, QueryPlan plan);

    std::size_t FieldCount() const override { return columns_.size(); }
    const ColumnDesign& Column(std::size_t position) const override;
    std::size_t FieldPosition(std::string_view name) const override;

    bool Empty() override { return RecordCount() == 0; }
    std::int32_t RecordCount() override;
    std::int32_t Position() override;
    bool Eof() override;
    bool Bof() override;

    void MoveFirst() override;
    void MoveLast() override;
    void MoveNext() override { Move(1); }
    void MovePrevious() override { Move(-1); }
    void Move(std::int32_t rows) override;
    void MoveTo(std::int32_t position) override;
    bool FindFirst(std::string_view criterion) override;

    Value Field(std::size_t position) override;
    Value Field(std::string_view name) override { return Field(FieldPosition(name)); }
    Value At(std::int32_t row, std::size_t position) override;
    void VisitIntegers(std::span<const std::size_t> positions,
                       const IntegerVisitor& visit) override;

    bool AllowsEmptyText(std::size_t position) const override;

    void AddNew() override;
    void Edit() override;
    bool Pending() const override { return pending_.has_value(); }
    void Set(std::size_t position, Value value) override;
    void Set(std::string_view name, Value value) override {
        Set(FieldPosition(name), std::move(value));
    }
    void Update() override;
    void CancelUpdate() override;
    void Delete() override;
    void Requery() override;

  private:
    /// New values by table column; the others stay as they are, or null in a new row.
    struct PendingRow {
        bool isNew = false;
        std::vector<std::optional<Value>> values;
    };

    Engine& RequireOpen() const;
    std::size_t TablePosition(std::size_t position) const;
    void RequireRows();
    void StoreNewRow(Engine& engine);

    std::shared_ptr<const OpenFile> file_;
    Keyset rows_;
    std::vector<ColumnDesign> columns_;
    std::optional<PendingRow> pending_;
};

}  // namespace jet::detail
