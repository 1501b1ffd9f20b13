#include "platform/datagrid.h"

#include "fundfile/datasource.h"
#include "platform/caption.h"
#include "platform/entryfield.h"
#include "platform/keystrokes.h"

#include <QAbstractItemDelegate>
#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QApplication>
#include <QColor>
#include <QEvent>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPointF>
#include <QRect>
#include <QScopedValueRollback>
#include <QStyleOptionViewItem>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr int kRowHeaderWidth = 22;
constexpr int kLeastColumnWidth = 30;
constexpr int kRowAir = 8;

// Both colours of every pair, so that no desktop theme makes a cell unreadable.
constexpr QColor kGround(255, 255, 255);
constexpr QColor kOtherGround(239, 244, 246);
constexpr QColor kText(16, 16, 32);
constexpr QColor kChosenGround(31, 92, 125);
constexpr QColor kChosenText(255, 255, 255);

bool IsEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool MovesAlways(int key) {
    return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
           key == Qt::Key_PageDown;
}

}  // namespace

/// Lets a row be left only when what was typed in it is stored.
class DataGrid::GuardedSelection : public QItemSelectionModel {
  public:
    GuardedSelection(QAbstractItemModel* model, DataGrid& grid)
        : QItemSelectionModel(model, &grid), grid_(grid) {}

    void setCurrentIndex(const QModelIndex& index,
                         QItemSelectionModel::SelectionFlags command) override {
        const bool otherRow =
            currentIndex().isValid() && index.isValid() && index.row() != currentIndex().row();
        stayed_ = false;
        if (!otherRow || passing) return QItemSelectionModel::setCurrentIndex(index, command);
        const int row = index.row(), column = index.column();
        if (!grid_.StoreRow()) {
            stayed_ = true;
            return;
        }
        // What runs after a row is stored may have changed the rows.
        const int last = model()->rowCount() - 1;
        QItemSelectionModel::setCurrentIndex(model()->index(std::min(row, last), column), command);
    }

    using QItemSelectionModel::select;
    void select(const QItemSelection& selection,
                QItemSelectionModel::SelectionFlags command) override {
        const bool elsewhere =
            !selection.isEmpty() && selection.first().top() != currentIndex().row();
        if (stayed_ && elsewhere) return;
        QItemSelectionModel::select(selection, command);
    }

    bool passing = false;  ///< the program moves, nothing is asked

  private:
    DataGrid& grid_;
    bool stayed_ = false;
};

/// The far left: the current row has an arrow, a typed one a pencil, the empty last one a star.
class DataGrid::RowHeader : public QHeaderView {
  public:
    explicit RowHeader(DataGrid& grid) : QHeaderView(Qt::Vertical, &grid), grid_(grid) {
        setSectionsClickable(true);
        setSectionResizeMode(QHeaderView::Fixed);
        setFixedWidth(kRowHeaderWidth);
    }

  protected:
    void paintSection(QPainter* painter, const QRect& area, int row) const override;

  private:
    DataGrid& grid_;
};

class DataGrid::Table : public QTableView {
  public:
    explicit Table(DataGrid& grid) : QTableView(&grid), grid_(grid) {}

    bool openedByTyping = false;

    void MoveOn(bool forward) { focusNextPrevChild(forward); }
    void Stroke(QKeyEvent* event) { keyPressEvent(event); }
    bool Editing() const { return state() == EditingState; }
    void LayOutColumns();
    void LayOutRows() { verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowAir); }

  protected:
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

  private:
    bool Passes(int column, const QKeyEvent& event) const;
    bool MarksRow(const QKeyEvent& event) const;
    void PasteIntoCell(QKeyEvent* event);

    DataGrid& grid_;
};

class DataGrid::CellDelegate : public QStyledItemDelegate {
  public:
    explicit CellDelegate(DataGrid& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex&) const override {
        editor->setGeometry(option.rect);
    }
    /// Keeps what was typed and closes.
    void Finish(QWidget* editor);
    void GiveUp(QWidget* editor);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool LeavesCell(const EntryField& editor, const QKeyEvent& event) const;

    DataGrid& grid_;
};

struct DataGrid::State {
    QPointer<DataSource> source;
    KeyStrokes* keyStrokes = nullptr;
    QLabel* caption = nullptr;
    RecordSetModel* model = nullptr;
    GuardedSelection* selection = nullptr;
    CellDelegate* delegate = nullptr;
    Table* table = nullptr;
    QPointer<QWidget> editor;
    int column = 0;         ///< the last current one, kept over a refresh
    bool changing = false;  ///< rows come or go: the current row means nothing meanwhile
    bool storing = false;

    const GridColumn& Column(int at) const {
        return model->Columns()[static_cast<std::size_t>(at)];
    }
    void Show(int row);
    void Follow();
    void MoveSource(int row);
    void FinishEditing();
};

void DataGrid::State::Show(int row) {
    if (row < 0 || row >= model->rowCount() || model->columnCount() == 0) return;
    const QScopedValueRollback passing(selection->passing, true);
    table->setCurrentIndex(model->index(row, std::clamp(column, 0, model->columnCount() - 1)));
}

// The data source has moved: the grid goes along. What was typed in another row is given up by
// then.
void DataGrid::State::Follow() {
    if (changing || !source || model->rowCount() == 0) return;
    int row = -1;
    source->Guard([&] { row = source->Empty() ? 0 : source->Position(); });
    if (row < 0 || row == table->currentIndex().row()) return;
    if (model->TypedRow() && *model->TypedRow() != row) model->Forget();
    Show(row);
}

void DataGrid::State::MoveSource(int row) {
    if (changing || !source) return;
    source->Guard([&] {
        if (source->IsAttached() && !source->Empty() && source->Position() != row)
            source->MoveTo(row);
    });
}

void DataGrid::State::FinishEditing() {
    if (editor) delegate->Finish(editor);
}

// ---- The far left ----

void DataGrid::RowHeader::paintSection(QPainter* painter, const QRect& area, int row) const {
    painter->save();
    QHeaderView::paintSection(painter, area, row);
    painter->restore();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(palette().color(QPalette::ButtonText), 1.4));
    painter->setBrush(palette().color(QPalette::ButtonText));
    const QPointF centre = QRectF(area).center();
    const RecordSetModel& model = *grid_.state_->model;
    if (model.TypedRow() == row) {
        painter->drawLine(centre + QPointF(-4, 4), centre + QPointF(4, -4));
        painter->drawLine(centre + QPointF(-4, 4), centre + QPointF(-1.5, 4));
        painter->drawLine(centre + QPointF(-4, 4), centre + QPointF(-4, 1.5));
    } else if (row == grid_.CurrentRow()) {
        const std::array corners{centre + QPointF(-3, -5), centre + QPointF(4, 0),
                                 centre + QPointF(-3, 5)};
        painter->drawPolygon(corners.data(), static_cast<int>(corners.size()));
    } else if (model.IsNewRow(row)) {
        for (const QPointF ray : {QPointF(0, 4), QPointF(3.5, 2), QPointF(3.5, -2)}) {
            painter->drawLine(centre - ray, centre + ray);
        }
    }
    painter->restore();
}

// ---- The table ----

bool DataGrid::Table::Passes(int column, const QKeyEvent& event) const {
    const CharacterFilter& filter = grid_.state_->Column(column).filter;
    if (!filter) return true;
    const QList<uint> codes = event.text().toUcs4();
    return !codes.isEmpty() && filter(codes.first()).has_value();
}

bool DataGrid::Table::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) {
    const bool wanted =
        trigger == AnyKeyPressed || trigger == EditKeyPressed || trigger == DoubleClicked;
    if (!wanted || !index.isValid() || Editing()) return QTableView::edit(index, trigger, event);

    const int column = index.column();
    const auto* key = event != nullptr && event->type() == QEvent::KeyPress
                          ? static_cast<QKeyEvent*>(event)
                          : nullptr;
    if (trigger == AnyKeyPressed && key != nullptr && !Passes(column, *key)) return true;
    if (grid_.events.beforeCellEdit && !grid_.events.beforeCellEdit(column)) return true;
    if (grid_.state_->Column(column).locked) return true;
    openedByTyping = trigger == AnyKeyPressed;
    return QTableView::edit(index, trigger, event);
}

bool DataGrid::Table::MarksRow(const QKeyEvent& event) const {
    return event.key() == Qt::Key_Space &&
           (event.modifiers() & (Qt::ControlModifier | Qt::ShiftModifier)) != 0;
}

void DataGrid::Table::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const int column = grid_.CurrentColumn();
    event->accept();
    if (MarksRow(*event)) return grid_.MarkRow();
    if (key == Qt::Key_Delete) {
        grid_.DeleteMarkedRow();
        return;
    }
    if (IsEnter(key)) {
        if (column >= 0) grid_.ForwardEnter(column);
        return;
    }
    if (key == Qt::Key_Escape) {
        if (!grid_.RowTyped()) return event->ignore();
        return grid_.CancelRow();
    }
    if (key == Qt::Key_Backspace) {
        edit(currentIndex(), AnyKeyPressed, event);
        return;
    }
    if (event->matches(QKeySequence::Paste)) return PasteIntoCell(event);
    QTableView::keyPressEvent(event);
}

void DataGrid::Table::PasteIntoCell(QKeyEvent* event) {
    if (!currentIndex().isValid() || !Passes(currentIndex().column(), *event)) return;
    edit(currentIndex(), EditKeyPressed, event);
    if (!grid_.state_->editor) return;
    openedByTyping = true;
    QApplication::sendEvent(grid_.state_->editor, event);
}

void DataGrid::Table::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    LayOutColumns();
}

void DataGrid::Table::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) LayOutRows();
}

void DataGrid::Table::LayOutColumns() {
    const std::vector<GridColumn>& columns = grid_.state_->model->Columns();
    int shares = 0;
    for (const GridColumn& column : columns) shares += column.widthShare;
    if (shares == 0) return;
    int left = viewport()->width();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const int share = shares == 0 ? 0 : left * columns[i].widthShare / shares;
        const int width = std::max(kLeastColumnWidth, share);
        setColumnWidth(static_cast<int>(i), width);
        left = std::max(0, left - width);
        shares -= columns[i].widthShare;
    }
}

void DataGrid::Table::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    verticalHeader()->viewport()->update();
    if (!current.isValid() || grid_.state_->changing) return;
    grid_.state_->column = current.column();
    grid_.state_->MoveSource(current.row());
    if (grid_.events.rowOrColumnChanged) grid_.events.rowOrColumnChanged();
}

// ---- A cell being edited ----

QWidget* DataGrid::CellDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                              const QModelIndex& index) const {
    auto* editor = new EntryField(parent);
    editor->setFont(option.font);
    editor->SetFilter(grid_.state_->Column(index.column()).filter);
    editor->setAlignment(Qt::Alignment(index.data(Qt::TextAlignmentRole).toInt()));
    grid_.state_->editor = editor;
    return editor;
}

void DataGrid::CellDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                          const QModelIndex& index) const {
    const QPersistentModelIndex cell = index;
    CellChange change{.column = index.column(),
                      .oldText = FromQt(index.data(Qt::EditRole).toString()),
                      .text = FromQt(static_cast<EntryField*>(editor)->text())};
    if (change.text == change.oldText) return;
    if (grid_.events.beforeCellStore) grid_.events.beforeCellStore(change);
    if (change.cancel || !cell.isValid()) return;
    model->setData(cell, ToQt(change.text), Qt::EditRole);
    if (grid_.events.afterCellStore) grid_.events.afterCellStore(change.column);
}

void DataGrid::CellDelegate::Finish(QWidget* editor) {
    emit commitData(editor);
    emit closeEditor(editor, NoHint);
}

void DataGrid::CellDelegate::GiveUp(QWidget* editor) {
    emit closeEditor(editor, RevertModelCache);
}

// A cell that was opened by typing is left by the arrows; one opened by F2 or the mouse only at the
// text's ends.
bool DataGrid::CellDelegate::LeavesCell(const EntryField& editor, const QKeyEvent& event) const {
    if (event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier))
        return false;
    if (MovesAlways(event.key())) return true;
    const bool byTyping = grid_.state_->table->openedByTyping;
    const bool atStart = editor.cursorPosition() == 0 && !editor.hasSelectedText();
    const bool atEnd = editor.cursorPosition() == editor.text().size() && !editor.hasSelectedText();
    if (event.key() == Qt::Key_Left) return byTyping || atStart;
    if (event.key() == Qt::Key_Right) return byTyping || atEnd;
    return false;
}

bool DataGrid::CellDelegate::eventFilter(QObject* watched, QEvent* event) {
    auto* editor = qobject_cast<EntryField*>(watched);
    if (editor == nullptr || event->type() != QEvent::KeyPress) {
        return QStyledItemDelegate::eventFilter(watched, event);
    }
    auto* key = static_cast<QKeyEvent*>(event);
    Table& table = *grid_.state_->table;
    if (IsEnter(key->key())) {
        const int column = grid_.CurrentColumn();
        Finish(editor);
        grid_.ForwardEnter(column);
        return true;
    }
    if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
        Finish(editor);
        table.MoveOn(key->key() == Qt::Key_Tab);
        return true;
    }
    if (LeavesCell(*editor, *key)) {
        Finish(editor);
        table.Stroke(key);
        return true;
    }
    if (key->key() == Qt::Key_Escape) {
        GiveUp(editor);
        return true;
    }
    return false;
}

// ---- The grid ----

DataGrid::DataGrid(QWidget* parent) : QFrame(parent), state_(std::make_unique<State>()) {
    State& state = *state_;
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    state.caption = new QLabel(this);
    state.caption->setTextFormat(Qt::PlainText);
    state.caption->setAlignment(Qt::AlignCenter);
    state.caption->setMargin(2);
    state.caption->hide();
    state.model = new RecordSetModel(this);
    // Before the table listens: what it does when rows go must not move the data source.
    const auto begins = [this] { state_->changing = true; };
    const auto ends = [this] {
        state_->changing = false;
        state_->Follow();
    };
    connect(state.model, &QAbstractItemModel::rowsAboutToBeRemoved, this, begins);
    connect(state.model, &QAbstractItemModel::modelAboutToBeReset, this, begins);
    state.table = new Table(*this);
    state.table->setVerticalHeader(new RowHeader(*this));
    state.table->setModel(state.model);
    QItemSelectionModel* plain = state.table->selectionModel();
    state.selection = new GuardedSelection(state.model, *this);
    state.table->setSelectionModel(state.selection);
    delete plain;
    state.delegate = new CellDelegate(*this);
    state.table->setItemDelegate(state.delegate);
    // The editor lives on until the event loop deletes it: from then on it is nobody's.
    connect(state.delegate, &QAbstractItemDelegate::closeEditor, this,
            [this] { state_->editor = nullptr; });
    connect(state.model, &QAbstractItemModel::rowsRemoved, this, ends);
    connect(state.model, &QAbstractItemModel::modelReset, this, ends);
    SetUpTable();

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(state.caption);
    column->addWidget(state.table, 1);
    setFocusProxy(state.table);
    connect(qApp, &QApplication::focusChanged, this, &DataGrid::LeaveWithFocus);
}

DataGrid::~DataGrid() {
    disconnect(qApp, nullptr, this, nullptr);
    state_->model->disconnect(this);
    state_->delegate->disconnect(this);
    events = {};
    // While the state that it looks at is still there.
    delete state_->table;
}

void DataGrid::SetUpTable() {
    QTableView& table = *state_->table;
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setEditTriggers(QAbstractItemView::AnyKeyPressed | QAbstractItemView::EditKeyPressed |
                          QAbstractItemView::DoubleClicked);
    table.setTabKeyNavigation(false);
    table.setWordWrap(false);
    table.setCornerButtonEnabled(false);
    table.setAlternatingRowColors(true);
    table.setFrameShape(QFrame::NoFrame);
    QPalette colours = table.palette();
    colours.setColor(QPalette::Base, kGround);
    colours.setColor(QPalette::AlternateBase, kOtherGround);
    colours.setColor(QPalette::Text, kText);
    colours.setColor(QPalette::Highlight, kChosenGround);
    colours.setColor(QPalette::HighlightedText, kChosenText);
    table.setPalette(colours);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setSectionsClickable(false);
    table.horizontalHeader()->setMinimumSectionSize(kLeastColumnWidth);
    state_->table->LayOutRows();
    connect(table.verticalHeader(), &QHeaderView::sectionPressed, this, [this](int row) {
        state_->table->setFocus(Qt::MouseFocusReason);
        state_->FinishEditing();
        state_->table->setCurrentIndex(state_->model->index(row, std::max(0, CurrentColumn())));
        if (CurrentRow() == row) MarkRow();
    });
}

void DataGrid::SetDataSource(DataSource* source) {
    if (state_->source) state_->source->disconnect(this);
    state_->source = source;
    state_->model->SetDataSource(source);
    if (source != nullptr) {
        connect(source, &DataSource::CurrentRowChanged, this, [this] { state_->Follow(); });
    }
}

void DataGrid::SetColumns(std::vector<GridColumn> columns) {
    state_->model->SetColumns(std::move(columns));
    state_->table->LayOutColumns();
}

void DataGrid::SetKeyStrokes(KeyStrokes& keyStrokes) {
    state_->keyStrokes = &keyStrokes;
}

QString DataGrid::GridCaption() const {
    return state_->caption->text();
}

void DataGrid::SetGridCaption(const QString& caption) {
    state_->caption->setText(caption);
    state_->caption->setVisible(!caption.isEmpty());
    state_->table->setAccessibleName(caption);
}

int DataGrid::CurrentRow() const {
    return state_->table->currentIndex().row();
}

int DataGrid::CurrentColumn() const {
    return state_->table->currentIndex().column();
}

void DataGrid::SetCurrentColumn(int column) {
    state_->column = column;
    const QModelIndex cell = state_->model->index(std::max(0, CurrentRow()), column);
    if (cell.isValid()) state_->table->setCurrentIndex(cell);
}

std::string DataGrid::CellText(int row, int column) const {
    return FromQt(state_->model->index(row, column).data(Qt::DisplayRole).toString());
}

bool DataGrid::OnNewRow() const {
    return state_->model->IsNewRow(CurrentRow());
}

void DataGrid::MoveToNewRow() {
    const int row = state_->model->rowCount() - 1;
    if (row >= 0) state_->table->setCurrentIndex(state_->model->index(row, 0));
}

bool DataGrid::RowTyped() const {
    return state_->model->TypedRow().has_value();
}

std::string DataGrid::TypedText(const std::string& field) const {
    return state_->model->TextAt(state_->model->TypedRow().value_or(CurrentRow()), field);
}

void DataGrid::TypeText(const std::string& field, std::string text) {
    state_->model->Type(state_->model->TypedRow().value_or(CurrentRow()), field, std::move(text));
}

bool DataGrid::StoreRow() {
    if (state_->storing) return false;
    const QScopedValueRollback storing(state_->storing, true);
    state_->FinishEditing();
    const std::optional<int> row = state_->model->TypedRow();
    if (!row) return true;
    const bool isNew = state_->model->IsNewRow(*row);
    if (events.beforeRowStore && !events.beforeRowStore()) return false;
    if (!state_->model->Store()) return false;
    if (events.afterRowStore) events.afterRowStore(isNew);
    return true;
}

void DataGrid::CancelRow() {
    if (state_->editor) state_->delegate->GiveUp(state_->editor);
    state_->model->Forget();
}

std::optional<int> DataGrid::MarkedRow() const {
    const int row = CurrentRow();
    if (row < 0 || !state_->selection->isRowSelected(row, {})) return std::nullopt;
    return row;
}

void DataGrid::MarkRow() {
    const QModelIndex cell = state_->table->currentIndex();
    if (!cell.isValid()) return;
    state_->selection->select(cell,
                              QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

bool DataGrid::DeleteMarkedRow() {
    const std::optional<int> row = MarkedRow();
    if (!row || !state_->source) return false;
    const bool isNew = state_->model->IsNewRow(*row);
    if (!isNew) state_->MoveSource(*row);
    if (!isNew && events.beforeRowDelete && !events.beforeRowDelete()) return false;
    state_->model->Forget();
    if (isNew) return false;
    const bool deleted = state_->source->Guard([this] {
        if (events.deleteRow) {
            events.deleteRow();
        } else {
            state_->source->Delete();
        }
        // After the last row the one before it is current, not the empty one.
        if (state_->source->Eof() && !state_->source->Empty()) state_->source->MoveLast();
    });
    if (!deleted) return false;
    if (events.afterRowDelete) events.afterRowDelete();
    return true;
}

void DataGrid::ForwardEnter(int column) {
    const std::string keys = state_->Column(column).enterKeys;
    if (!keys.empty() && state_->keyStrokes != nullptr) state_->keyStrokes->Send(keys);
}

void DataGrid::LeaveWithFocus(QWidget* from, QWidget* to) {
    if (from == nullptr || to == nullptr || !RowTyped()) return;
    // A menu has the focus only for a while: what is chosen there tells whether the row is left.
    if (qobject_cast<QMenuBar*>(to) != nullptr) return;
    const bool wasHere = from == this || isAncestorOf(from);
    const bool isHere = to == this || isAncestorOf(to);
    if (wasHere && !isHere && to->window() == window()) StoreRow();
}

QTableView& DataGrid::View() const {
    return *state_->table;
}

void DataGrid::showEvent(QShowEvent* event) {
    QFrame::showEvent(event);
    state_->model->SetAwake(true);
}

void DataGrid::hideEvent(QHideEvent* event) {
    QFrame::hideEvent(event);
    // A minimised window is only out of sight.
    if (!event->spontaneous()) state_->model->SetAwake(false);
}
