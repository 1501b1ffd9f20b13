#include "widgets/datagrid.h"

#include "platform/datasource.h"
#include "platform/keystrokes.h"
#include "platform/qttext.h"
#include "widgets/colours.h"
#include "widgets/gridcells.h"
#include "widgets/gridcursor.h"
#include "widgets/griddeletion.h"
#include "widgets/gridrow.h"
#include "widgets/gridselection.h"
#include "widgets/gridtable.h"

#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPen>
#include <QPointer>
#include <QRect>
#include <QVBoxLayout>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

constexpr int kFrame = 2;

QLabel* MadeCaption(QWidget* parent) {
    auto* caption = new QLabel(parent);
    caption->setTextFormat(Qt::PlainText);
    caption->setAlignment(Qt::AlignCenter);
    caption->setMargin(2);
    caption->hide();
    return caption;
}

}  // namespace

/// What the grid is made of. Later ones know earlier ones.
struct DataGrid::Parts {
    explicit Parts(DataGrid& grid);
    ~Parts();

    RecordSetModel model;
    GridCells cells;
    GridSelection selection;
    QLabel* caption;
    GridTable* table;
    GridCursor cursor;
    GridRow row;
    GridDeletion deletion;
    QPointer<DataSource> source;
    KeyStrokes* keyStrokes = nullptr;

  private:
    GridTable* MadeTable(DataGrid& grid);
    RowSign SignOf(int at) const;
};

DataGrid::Parts::Parts(DataGrid& grid)
    : cells(model, grid.events),
      selection({[this] { return cells.Finish(); }, [this] { return row.MayLeave(); }}),
      caption(MadeCaption(&grid)),
      table(MadeTable(grid)),
      cursor(*table, model, selection),
      row(model, cells, grid.events, *table),
      deletion(model, selection, cursor, grid.events) {}

DataGrid::Parts::~Parts() {
    model.disconnect();
    // While what it looks at is still there.
    delete table;
}

GridTable* DataGrid::Parts::MadeTable(DataGrid& grid) {
    // Before table and selection listen: what they do when rows go must not move the data source.
    const auto begins = [this] { cursor.RowsBeginToChange(); };
    connect(&model, &QAbstractItemModel::rowsAboutToBeRemoved, &grid, begins);
    connect(&model, &QAbstractItemModel::modelAboutToBeReset, &grid, begins);
    selection.setModel(&model);
    auto* made = new GridTable(
        model, cells, grid.events, [this](int at) { return SignOf(at); }, &grid);
    const QItemSelectionModel* plain = made->selectionModel();
    made->setSelectionModel(&selection);
    delete plain;
    return made;
}

RowSign DataGrid::Parts::SignOf(int at) const {
    if (model.TypedRow() == at) return RowSign::Typed;
    if (at == cursor.Row()) return RowSign::Current;
    return model.IsNewRow(at) ? RowSign::New : RowSign::None;
}

DataGrid::DataGrid(QWidget* parent) : QFrame(parent), parts_(std::make_unique<Parts>(*this)) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(kFrame);
    ConnectParts();
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(parts_->caption);
    column->addWidget(parts_->table, 1);
    parts_->table->viewport()->installEventFilter(this);
    setFocusProxy(parts_->table);
}

DataGrid::~DataGrid() {
    disconnect(qApp, nullptr, this, nullptr);
    parts_->table->disconnect(this);
    parts_->cursor.disconnect(this);
    parts_->model.disconnect(this);
    events = {};
}

void DataGrid::ConnectParts() {
    Parts& parts = *parts_;
    const auto changed = [this] { parts_->cursor.RowsHaveChanged(); };
    connect(&parts.model, &QAbstractItemModel::rowsRemoved, this, changed);
    connect(&parts.model, &QAbstractItemModel::modelReset, this, changed);
    connect(&parts.cursor, &GridCursor::Moved, this, [this] {
        if (events.rowOrColumnChanged) events.rowOrColumnChanged();
    });
    connect(&parts.cells, &GridCells::Typed, this, [this] {
        if (OnNewRow()) parts_->model.SetNewRowBegun(true);
    });
    connect(&parts.cells, &QAbstractItemDelegate::closeEditor, this,
            [this] { parts_->model.SetNewRowBegun(false); });
    connect(&parts.cells, &GridCells::LeftBy, parts.table, &GridTable::Stroke);
    connect(parts.table, &GridTable::RowsLaidOut, this, &DataGrid::LayOutWholeRows);
    connect(parts.table, &GridTable::MarkPressed, this, &DataGrid::MarkRow);
    connect(parts.table, &GridTable::DeletePressed, this, &DataGrid::DeleteMarkedRow);
    connect(parts.table, &GridTable::EnterPressed, this, &DataGrid::LeaveCellByEnter);
    connect(parts.table, &GridTable::EscapePressed, this, &DataGrid::GiveUpRow);
    connect(parts.table->verticalHeader(), &QHeaderView::sectionPressed, this,
            &DataGrid::RowHeaderPressed);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* from, QWidget* to) {
        update();
        parts_->row.FocusMoves(*this, from, to);
    });
}

void DataGrid::SetDataSource(DataSource* source) {
    parts_->cursor.SetDataSource(nullptr);
    parts_->source = source;
    parts_->model.SetDataSource(source);
    parts_->cursor.SetDataSource(source);
}

void DataGrid::SetColumns(std::vector<GridColumn> columns) {
    parts_->model.SetColumns(std::move(columns));
    parts_->table->LayOutColumns();
}

void DataGrid::SetKeyStrokes(KeyStrokes& keyStrokes) {
    parts_->keyStrokes = &keyStrokes;
}

QString DataGrid::GridCaption() const {
    return parts_->caption->text();
}

void DataGrid::SetGridCaption(const QString& caption) {
    parts_->caption->setText(caption);
    parts_->caption->setVisible(!caption.isEmpty());
    parts_->table->setAccessibleName(caption);
}

int DataGrid::CurrentRow() const {
    return parts_->cursor.Row();
}

int DataGrid::CurrentColumn() const {
    return parts_->cursor.Column();
}

void DataGrid::SetCurrentColumn(int column) {
    parts_->cursor.SetColumn(column);
}

std::string DataGrid::ColumnCaption(int column) const {
    return parts_->model.Columns()[static_cast<std::size_t>(column)].caption;
}

std::string DataGrid::CellText(int row, int column) const {
    return FromQt(parts_->model.index(row, column).data(Qt::DisplayRole).toString());
}

bool DataGrid::OnNewRow() const {
    return parts_->model.IsNewRow(CurrentRow());
}

bool DataGrid::RowTyped() const {
    return parts_->row.IsTyped();
}

bool DataGrid::RowIsComplete() const {
    return !RowTyped() || !events.rowIsComplete || events.rowIsComplete();
}

std::string DataGrid::TypedText(const std::string& field) const {
    return parts_->model.TextAt(parts_->model.TypedRow().value_or(CurrentRow()), field);
}

void DataGrid::TypeText(const std::string& field, std::string text) {
    parts_->model.Type(parts_->model.TypedRow().value_or(CurrentRow()), field, std::move(text));
}

bool DataGrid::StoreRow() {
    return parts_->row.Store();
}

std::optional<int> DataGrid::RefusedColumn() const {
    return parts_->model.RefusedColumn();
}

void DataGrid::CancelRow() {
    parts_->row.Cancel();
}

bool DataGrid::GiveUpCell() {
    return parts_->cells.GiveUp();
}

std::optional<int> DataGrid::MarkedRow() const {
    return parts_->deletion.MarkedRow();
}

void DataGrid::MarkRow() {
    parts_->deletion.MarkRow();
}

bool DataGrid::DeleteMarkedRow() {
    return parts_->source && parts_->deletion.DeleteMarkedRow(*parts_->source);
}

QTableView& DataGrid::View() const {
    return *parts_->table;
}

void DataGrid::RowHeaderPressed(int row) {
    parts_->table->setFocus(Qt::MouseFocusReason);
    if (!parts_->cells.Finish()) return;
    parts_->table->setCurrentIndex(parts_->model.index(row, std::max(0, CurrentColumn())));
    if (CurrentRow() == row) MarkRow();
}

void DataGrid::LeaveCellByEnter() {
    const int column = CurrentColumn();
    if (column < 0) return;
    const std::vector<GridColumn>& columns = parts_->model.Columns();
    const bool last = column + 1 == static_cast<int>(columns.size());
    if (last && RowTyped()) {
        parts_->table->setCurrentIndex(parts_->model.index(CurrentRow() + 1, 0));
        return;
    }
    const std::string& keys = columns[static_cast<std::size_t>(column)].enterKeys;
    if (keys.empty()) {
        return SetCurrentColumn(std::min(column + 1, parts_->model.columnCount() - 1));
    }
    if (parts_->keyStrokes != nullptr) parts_->keyStrokes->Send(keys);
}

void DataGrid::GiveUpRow(QKeyEvent* key) {
    if (!RowTyped()) return key->ignore();
    CancelRow();
}

/// A row that does not fit is not cut: the grid ends above it.
void DataGrid::LayOutWholeRows() {
    const GridTable& table = *parts_->table;
    const int row = table.verticalHeader()->defaultSectionSize();
    const int rows = table.viewport()->height() + layout()->contentsMargins().bottom();
    const int rest = rows > row ? rows % row : 0;
    if (rest != layout()->contentsMargins().bottom()) layout()->setContentsMargins(0, 0, 0, rest);
}

bool DataGrid::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) LayOutWholeRows();
    return QFrame::eventFilter(watched, event);
}

/// What lies below the last whole row looks like the table's empty background.
void DataGrid::paintEvent(QPaintEvent* /*event*/) {
    const QRect table = parts_->table->geometry();
    const QRect below(table.left(), table.bottom() + 1, table.width(), height());
    QPainter painter(this);
    painter.fillRect(below, parts_->table->palette().base());
    const QWidget* focused = QApplication::focusWidget();
    const bool here = focused != nullptr && isAncestorOf(focused);
    painter.setPen(QPen(ToQColor(here ? colours::kAccent : colours::kBorder), kFrame));
    painter.drawRect(rect().adjusted(kFrame / 2, kFrame / 2, -kFrame / 2, -kFrame / 2));
}

void DataGrid::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    parts_->model.SetAwake(true);
}

void DataGrid::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    // A minimised window is only out of sight.
    if (!event->spontaneous()) parts_->model.SetAwake(false);
}
