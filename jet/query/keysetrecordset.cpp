#include "jet/query/keysetrecordset.h"

#include "jet/error.h"
#include "jet/query/edits.h"
#include "jet/table/convert.h"

#include <algorithm>

namespace jet::detail {
namespace {

/// A default value that is none for its column is left out.
std::optional<Value> Fitting(const Value& value, const ColumnDesign& column) {
    try {
        return ConvertTo(value, column);
    } catch (const Error&) {
        return std::nullopt;
    }
}

// A column read as whole numbers, row after row.
class IntegerColumn {
  public:
    IntegerColumn(const PageFile& file, const ColumnDef& column)
        : file_(&file), column_(&column), plain_(column.Type() == ColumnType::Long) {}

    std::int32_t Read(const RowView& row) const {
        if (plain_) {
            if (const auto number = DecodeLong(*column_, row)) return *number;
        }
        return DecodeColumn(*file_, *column_, row).Integer();
    }

  private:
    const PageFile* file_;
    const ColumnDef* column_;
    bool plain_;
};

}  // namespace

KeysetRecordSet::KeysetRecordSet(std::shared_ptr<const OpenFile> file, QueryPlan plan)
    : file_(std::move(file)), rows_(std::move(plan)) {
    const QueryPlan& known = rows_.Plan();
    for (const std::size_t field : known.fields) {
        columns_.push_back(known.table->Design().columns[field]);
    }
}

Engine& KeysetRecordSet::RequireOpen() const {
    return file_->Get();
}

std::size_t KeysetRecordSet::TablePosition(std::size_t position) const {
    const auto& fields = rows_.Plan().fields;
    if (position >= fields.size()) {
        throw Error{ErrorNumber::SubscriptOutOfRange,
                    "no such field in a set of " + rows_.Plan().table->Design().name};
    }
    return fields[position];
}

const ColumnDesign& KeysetRecordSet::Column(std::size_t position) const {
    RequireOpen();
    TablePosition(position);
    return columns_[position];
}

std::size_t KeysetRecordSet::FieldPosition(std::string_view name) const {
    const auto& fields = rows_.Plan().fields;
    if (const auto column = RequireOpen().ColumnPosition(*rows_.Plan().table, name)) {
        const auto found = std::find(fields.begin(), fields.end(), *column);
        if (found != fields.end()) return static_cast<std::size_t>(found - fields.begin());
    }
    throw Error{ErrorNumber::FieldNotFound, "no field " + Excerpt(name)};
}

std::int32_t KeysetRecordSet::RecordCount() {
    RequireOpen();
    return rows_.Count();
}

std::int32_t KeysetRecordSet::Position() {
    RequireOpen();
    return rows_.Position();
}

bool KeysetRecordSet::Eof() {
    return Empty() || Position() == RecordCount();
}

bool KeysetRecordSet::Bof() {
    return Position() < 0;
}

void KeysetRecordSet::RequireRows() {
    if (Empty()) throw Error{ErrorNumber::NoCurrentRecord, "move in a set without rows"};
}

void KeysetRecordSet::MoveFirst() {
    RequireRows();
    pending_.reset();
    rows_.MoveTo(0);
}

void KeysetRecordSet::MoveLast() {
    RequireRows();
    pending_.reset();
    rows_.MoveTo(rows_.Count() - 1);
}

void KeysetRecordSet::Move(std::int32_t rows) {
    const std::int64_t from = Position();
    pending_.reset();
    rows_.MoveTo(from + rows);
}

void KeysetRecordSet::MoveTo(std::int32_t position) {
    RequireOpen();
    pending_.reset();
    rows_.MoveTo(position);
}

bool KeysetRecordSet::FindFirst(std::string_view criterion) {
    Engine& engine = RequireOpen();
    const Condition condition = PlanCriterion(engine, *rows_.Plan().table, criterion);
    pending_.reset();
    const auto found = rows_.Find(condition);
    if (found) rows_.MoveTo(*found);
    return found.has_value();
}

Value KeysetRecordSet::Field(std::size_t position) {
    RequireOpen();
    const std::size_t column = TablePosition(position);
    if (pending_ && pending_->values[column]) return *pending_->values[column];
    if (pending_ && pending_->isNew) return ConvertTo(Value(), columns_[position]);
    return rows_.Plan().table->Store().Field(RowPointer::FromPacked(rows_.Current()), column);
}

Value KeysetRecordSet::At(std::int32_t row, std::size_t position) {
    RequireOpen();
    const std::size_t column = TablePosition(position);
    return rows_.Plan().table->Store().Field(RowPointer::FromPacked(rows_.At(row)), column);
}

void KeysetRecordSet::VisitIntegers(std::span<const std::size_t> positions,
                                    const IntegerVisitor& visit) {
    RequireOpen();
    const TableStore& store = rows_.Plan().table->Store();
    std::vector<IntegerColumn> columns;
    for (const std::size_t position : positions) {
        columns.emplace_back(store.File(), store.Def().columns[TablePosition(position)]);
    }
    std::vector<std::int32_t> numbers(columns.size());
    rows_.Visit([&](const RowView& row) {
        for (std::size_t i = 0; i < columns.size(); ++i) numbers[i] = columns[i].Read(row);
        visit(numbers);
    });
}

bool KeysetRecordSet::AllowsEmptyText(std::size_t position) const {
    const std::size_t column = TablePosition(position);
    return RequireOpen().RulesOf(*rows_.Plan().table).Texts().columns[column].allowZeroLength;
}

void KeysetRecordSet::AddNew() {
    const OpenTable& table = *rows_.Plan().table;
    const RowRules& rules = RequireOpen().RulesOf(table);
    PendingRow row{true, {}};
    row.values.resize(table.Def().columns.size());
    for (std::size_t i = 0; i < row.values.size(); ++i) {
        const Value value = rules.DefaultOf(i);
        if (!value.IsNull()) row.values[i] = Fitting(value, table.Design().columns[i]);
    }
    pending_ = std::move(row);
}

void KeysetRecordSet::Edit() {
    RequireOpen();
    pending_.reset();
    const RowPointer row = RowPointer::FromPacked(rows_.Current());
    rows_.Plan().table->Store().Read(row);  // throws when it is gone
    pending_ = PendingRow{false, {}};
    pending_->values.resize(rows_.Plan().table->Def().columns.size());
}

void KeysetRecordSet::Set(std::size_t position, Value value) {
    RequireOpen();
    const std::size_t column = TablePosition(position);
    if (!pending_) throw Error{ErrorNumber::NoPendingRow, "a value is set without AddNew or Edit"};
    pending_->values[column] = ConvertTo(value, columns_[position]);
}

void KeysetRecordSet::Update() {
    Engine& engine = RequireOpen();
    if (!pending_) throw Error{ErrorNumber::NoPendingRow, "Update without AddNew or Edit"};
    if (pending_->isNew) {
        StoreNewRow(engine);
    } else {
        const RowPointer row = RowPointer::FromPacked(rows_.Current());
        engine.Statement([&] {
            UpdateRow(engine, *rows_.Plan().table, row, pending_->values);
            return row;
        });
    }
    pending_.reset();
}

void KeysetRecordSet::StoreNewRow(Engine& engine) {
    OpenTable& table = *rows_.Plan().table;
    std::vector<Value> values;
    for (std::size_t i = 0; i < pending_->values.size(); ++i) {
        const auto& given = pending_->values[i];
        values.push_back(given ? *given : ConvertTo(Value(), table.Design().columns[i]));
    }
    const RowPointer row = engine.Statement([&] {
        rows_.MakeRoom();
        return InsertRow(engine, table, std::move(values));
    });
    rows_.Append(row.Packed());
}

void KeysetRecordSet::CancelUpdate() {
    RequireOpen();
    pending_.reset();
}

void KeysetRecordSet::Delete() {
    Engine& engine = RequireOpen();
    if (pending_ && pending_->isNew) {
        throw Error{ErrorNumber::NoCurrentRecord, "delete of a row that is not stored yet"};
    }
    const std::uint32_t row = rows_.Current();
    rows_.Count();  // the others must be known before this one is gone
    engine.Statement([&] {
        DeleteRows(engine, *rows_.Plan().table, {&row, 1});
        return row;
    });
    pending_.reset();
    rows_.RemoveCurrent();
}

void KeysetRecordSet::Requery() {
    RequireOpen();
    pending_.reset();
    rows_.Forget();
}

}  // namespace jet::detail
