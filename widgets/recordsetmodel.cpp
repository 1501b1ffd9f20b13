#include "widgets/recordsetmodel.h"

#include "base/error.h"
#include "base/number.h"
#include "base/text.h"
#include "platform/datasource.h"
#include "platform/qttext.h"
#include "widgets/rules/spokencell.h"
#include "widgets/rules/texts.h"

#include <QVariant>

#include <algorithm>
#include <string_view>
#include <utility>
#include <variant>

namespace {

std::string NumberText(double value, int decimals) {
    return decimals < 0 ? PlainText(value) : Fixed(value, decimals);
}

bool IsNumber(jet::ColumnType type) {
    using enum jet::ColumnType;
    switch (type) {
        case Byte:
        case Integer:
        case Long:
        case Currency:
        case Single:
        case Double:
        case Numeric:
            return true;
        default:
            return false;
    }
}

// Jet writes its decimals with a point.
std::string WithComma(std::string text) {
    const std::size_t point = text.find('.');
    if (point != std::string::npos) text[point] = ',';
    return text;
}

}  // namespace

std::string ShownText(const jet::Value& value, int decimals) {
    const jet::Value::Variant& held = value.Held();
    if (const auto* single = std::get_if<float>(&held)) {
        return decimals < 0 ? PlainText(*single) : Fixed(*single, decimals);
    }
    if (const auto* number = std::get_if<double>(&held)) return NumberText(*number, decimals);
    if (std::holds_alternative<jet::Currency>(held) || std::holds_alternative<jet::Numeric>(held)) {
        return decimals < 0 ? WithComma(value.Text()) : Fixed(value.Number(), decimals);
    }
    return value.Text();
}

RecordSetModel::RecordSetModel(QObject* parent) : QAbstractTableModel(parent) {}

void RecordSetModel::SetDataSource(DataSource* source) {
    if (source_) source_->disconnect(this);
    source_ = source;
    if (source_) {
        connect(source_, &DataSource::Refreshed, this, &RecordSetModel::Reload);
        connect(source_, &DataSource::RowStored, this, [this] { RowStored(source_->Position()); });
        connect(source_, &DataSource::RowDeleted, this, &RecordSetModel::RowDeleted);
    }
    Reload();
}

void RecordSetModel::SetColumns(std::vector<GridColumn> columns) {
    columns_ = std::move(columns);
    Reload();
}

const std::vector<GridColumn>& RecordSetModel::Columns() const {
    return columns_;
}

void RecordSetModel::SetAwake(bool awake) {
    if (awake == awake_) return;
    awake_ = awake;
    Reload();
}

void RecordSetModel::Reload() {
    beginResetModel();
    typing_.reset();
    newRowBegun_ = secondEmptyRow_ = false;
    storedRows_ = -1;
    positions_.assign(columns_.size(), std::nullopt);
    if (awake_ && source_) {
        source_->Guard([this] { FindRows(); });
    }
    endResetModel();
}

void RecordSetModel::FindRows() {
    if (!source_->IsAttached()) return;
    for (std::size_t i = 0; i < columns_.size(); ++i) positions_[i] = Position(columns_[i].field);
    storedRows_ = source_->RecordCount();
}

int RecordSetModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid()) return 0;
    return storedRows_ + 1 + (secondEmptyRow_ ? 1 : 0);
}

int RecordSetModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

bool RecordSetModel::IsNewRow(int row) const {
    return storedRows_ >= 0 && row >= storedRows_;
}

bool RecordSetModel::NewRowTyped() const {
    return typing_ && typing_->row >= storedRows_;
}

std::optional<int> RecordSetModel::TypedRow() const {
    return typing_ ? std::optional(typing_->row) : std::nullopt;
}

std::optional<std::string> RecordSetModel::Typed(const std::string& field) const {
    if (!typing_) return std::nullopt;
    const auto found = typing_->texts.find(field);
    if (found == typing_->texts.end()) return std::nullopt;
    return found->second;
}

void RecordSetModel::Type(int row, const std::string& field, std::string text) {
    if (!typing_) typing_ = Typing{row, {}};
    if (typing_->row != row) return;
    UpdateSecondEmptyRow();
    typing_->texts[field] = std::move(text);
    ShowRow(row);
}

/// After every change of what is typed: the next empty row stands under a new one that is typed.
void RecordSetModel::UpdateSecondEmptyRow() {
    const bool wanted = NewRowTyped() || newRowBegun_;
    if (wanted == secondEmptyRow_) return;
    const int second = storedRows_ + 1;
    wanted ? beginInsertRows({}, second, second) : beginRemoveRows({}, second, second);
    secondEmptyRow_ = wanted;
    wanted ? endInsertRows() : endRemoveRows();
}

void RecordSetModel::SetNewRowBegun(bool begun) {
    newRowBegun_ = begun && storedRows_ >= 0;
    UpdateSecondEmptyRow();
}

std::string RecordSetModel::TextAt(int row, const std::string& field) const {
    if (typing_ && typing_->row == row) {
        if (const std::optional<std::string> typed = Typed(field)) return *typed;
    }
    return StoredText(row, Position(field), -1);
}

std::optional<std::size_t> RecordSetModel::Position(const std::string& field) const {
    if (!source_ || !source_->IsAttached()) return std::nullopt;
    try {
        return source_->Records().FieldPosition(field);
    } catch (const Error&) {
        return std::nullopt;  // a file without that column shows an empty one
    }
}

// A cell that cannot be read is empty: nobody wants a message box for each painted cell.
std::string RecordSetModel::StoredText(int row, std::optional<std::size_t> position,
                                       int decimals) const {
    if (!position || row < 0 || row >= storedRows_) return "";
    try {
        return ShownText(source_->Records().At(row, *position), decimals);
    } catch (const Error&) {
        return "";
    }
}

QVariant RecordSetModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto at = static_cast<std::size_t>(index.column());
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        const bool typedHere = typing_ && typing_->row == index.row();
        const std::optional<std::string> typed =
            typedHere ? Typed(columns_[at].field) : std::nullopt;
        return ToQt(typed ? *typed
                          : StoredText(index.row(), positions_[at], columns_[at].decimals));
    }
    if (role == Qt::AccessibleTextRole || role == Qt::AccessibleDescriptionRole) {
        return ToQt(Spoken(index, role));
    }
    if (role == Qt::TextAlignmentRole) return Alignment(at);
    return {};
}

std::string RecordSetModel::RowName(int row) const {
    return SpokenRow(row, std::max(storedRows_, 0));
}

/// The first column names the row, in the others it is said beside where the cell stands.
std::string RecordSetModel::Spoken(const QModelIndex& cell, int role) const {
    const GridColumn& column = columns_[static_cast<std::size_t>(cell.column())];
    const auto shown = [](const QModelIndex& one) {
        return FromQt(one.data(Qt::DisplayRole).toString());
    };
    if (role == Qt::AccessibleTextRole) return SpokenCell(column.caption, shown(cell));
    const std::string name = cell.column() > 0 ? Trim(shown(cell.siblingAtColumn(0))) : "";
    return SpokenParts(
        {name, RowName(cell.row()), column.locked ? texts::LockedCell : std::string_view()});
}

QVariant RecordSetModel::Alignment(std::size_t column) const {
    const bool number = positions_[column] && source_ && source_->IsAttached() &&
                        IsNumber(source_->Records().Column(*positions_[column]).type);
    return static_cast<int>(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
}

bool RecordSetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || !index.isValid()) return false;
    Type(index.row(), columns_[static_cast<std::size_t>(index.column())].field,
         FromQt(value.toString()));
    return true;
}

QVariant RecordSetModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation == Qt::Vertical) {
        return role == Qt::AccessibleTextRole ? ToQt(RowName(section)) : QVariant();
    }
    if (section < 0 || section >= columnCount()) return {};
    const auto at = static_cast<std::size_t>(section);
    if (role == Qt::AccessibleTextRole) return ToQt(Trim(columns_[at].caption));
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return ToQt(columns_[at].caption);
    // A heading stands as what stands under it.
    if (role == Qt::TextAlignmentRole) return Alignment(at);
    return {};
}

Qt::ItemFlags RecordSetModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    const bool locked = columns_[static_cast<std::size_t>(index.column())].locked;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable |
           (locked ? Qt::NoItemFlags : Qt::ItemIsEditable);
}

bool RecordSetModel::Store() {
    if (!typing_ || !source_) return true;
    const Typing typing = *typing_;
    writing_ = true;
    const bool stored = source_->Guard([&] { WriteTyping(typing); });
    writing_ = false;
    refusedField_.reset();
    if (!stored) {
        source_->Guard([this] {
            if (source_->Pending()) source_->CancelUpdate();
        });
        return false;
    }
    typing_.reset();
    ShowRow(typing.row);
    return true;
}

void RecordSetModel::WriteTyping(const Typing& typing) {
    if (IsNewRow(typing.row)) {
        source_->AddNew();
    } else {
        if (source_->Position() != typing.row) source_->MoveTo(typing.row);
        source_->Edit();
    }
    for (const auto& [field, text] : typing.texts) {
        Write(field, text);
    }
    source_->Update();
}

void RecordSetModel::Write(const std::string& field, const std::string& text) try {
    source_->Set(field, text.empty() ? jet::Value() : jet::Value(text));
} catch (const Error& error) {
    const ErrorNumber number = error.Number();
    const bool textDoesNotFit = number == ErrorNumber::TypeMismatch ||
                                number == ErrorNumber::Overflow ||
                                number == ErrorNumber::FieldTooLong;
    if (textDoesNotFit) refusedField_ = field;
    throw;
}

std::optional<int> RecordSetModel::RefusedColumn() const {
    if (!refusedField_) return std::nullopt;
    const auto found =
        std::find_if(columns_.begin(), columns_.end(),
                     [this](const GridColumn& column) { return column.field == *refusedField_; });
    if (found == columns_.end()) return std::nullopt;
    return static_cast<int>(found - columns_.begin());
}

void RecordSetModel::Forget() {
    if (!typing_) return;
    const int row = typing_->row;
    typing_.reset();
    UpdateSecondEmptyRow();
    ShowRow(row);
}

void RecordSetModel::ShowRow(int row) {
    if (row < 0 || row >= rowCount()) return;
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    emit headerDataChanged(Qt::Vertical, row, row);
}

void RecordSetModel::RowStored(int position) {
    if (storedRows_ < 0) return;
    if (position < storedRows_) return ShowRow(position);
    const int added = storedRows_;
    if (NewRowTyped() && writing_) {
        // It stands where it was typed, with the next empty row under it already.
        ++storedRows_;
        secondEmptyRow_ = false;
        ShowRow(added);
        return;
    }
    // A row stored by others comes before the one being typed at the end.
    beginInsertRows({}, rowCount(), rowCount());
    if (NewRowTyped()) ++typing_->row;
    ++storedRows_;
    endInsertRows();
    for (int row = added; row < rowCount(); ++row) ShowRow(row);
}

void RecordSetModel::RowDeleted(int position) {
    if (position < 0 || position >= storedRows_) return;
    beginRemoveRows({}, position, position);
    --storedRows_;
    if (typing_ && typing_->row == position) typing_.reset();
    if (typing_ && typing_->row > position) --typing_->row;
    endRemoveRows();
}
