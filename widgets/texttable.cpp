#include "widgets/texttable.h"

#include "platform/qttext.h"
#include "widgets/captionheader.h"
#include "widgets/colours.h"
#include "widgets/rules/spokencell.h"
#include "widgets/rules/texts.h"
#include "widgets/speech.h"
#include "widgets/textcells.h"

#include <QAbstractTableModel>
#include <QBrush>
#include <QFont>
#include <QFontMetrics>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMargins>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

namespace {

constexpr QChar kRightRoom(0x2002);  // half as wide as the letters are high
constexpr int kRowRoom = 8;          // pixels over and under a row's letters, together

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

class TextTable::Model final : public QAbstractTableModel {
  public:
    std::vector<TextColumn> columns;
    std::vector<TextRow> rows;
    int sortedBy = -1;
    Qt::SortOrder order = Qt::AscendingOrder;

    void Begin() { beginResetModel(); }
    void End() { endResetModel(); }
    /// By as many others. Only rows that differ are drawn again.
    void Replace(std::vector<TextRow> others) {
        std::swap(rows, others);
        for (std::size_t i = 0; i < rows.size() && !columns.empty(); ++i) {
            const int row = static_cast<int>(i);
            if (rows[i] == others[i]) continue;
            emit dataChanged(index(row, 0), index(row, columnCount({}) - 1));
        }
    }

    int rowCount(const QModelIndex& /*parent*/) const override {
        return static_cast<int>(rows.size());
    }
    int columnCount(const QModelIndex& /*parent*/) const override {
        return static_cast<int>(columns.size());
    }
    QVariant data(const QModelIndex& cell, int role) const override {
        const TextRow& row = rows[At(cell.row())];
        const QString text = ToQt(TextAt(cell));
        switch (role) {
            case Qt::AccessibleTextRole:
                return ToQt(Spoken(cell));
            case Qt::AccessibleDescriptionRole:
                return ToQt(SpokenBeside(cell));
            case Qt::DisplayRole:
                return Spaced(text, cell.column());
            case Qt::ToolTipRole:
                return text;
            case Qt::TextAlignmentRole:
                return Alignment(cell.column());
            default:
                return Looks(row.tone, role);
        }
    }
    /// The most characters that stand in a column: of digits that is also the widest text.
    QString LongestIn(int column) const {
        std::string_view longest;
        for (const TextRow& row : rows) {
            if (At(column) >= row.cells.size()) continue;
            const std::string& text = row.cells[At(column)];
            if (text.size() > longest.size()) longest = text;
        }
        return ToQt(longest);
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Vertical) {
            return role == Qt::AccessibleTextRole ? ToQt(RowName(section)) : QVariant();
        }
        if (At(section) >= columns.size()) return {};
        if (role == Qt::AccessibleTextRole) return ToQt(SpokenCaption(section));
        if (role == Qt::DisplayRole) return Spaced(ToQt(columns[At(section)].caption), section);
        if (role == Qt::ToolTipRole) return ToQt(columns[At(section)].caption);
        if (role == Qt::TextAlignmentRole) return Alignment(section);
        return {};
    }

  private:
    std::string TextAt(const QModelIndex& cell) const {
        const auto& cells = rows[At(cell.row())].cells;
        return At(cell.column()) < cells.size() ? cells[At(cell.column())] : "";
    }
    std::string Spoken(const QModelIndex& cell) const {
        return SpokenCell(columns[At(cell.column())].caption, TextAt(cell));
    }
    std::string RowName(int row) const {
        return SpokenRow(row, static_cast<std::int32_t>(rows.size()));
    }
    /// The rows are walked in their first column: there all that they hold is said.
    std::string SpokenBeside(const QModelIndex& cell) const {
        std::string others;
        for (int i = 1; cell.column() == 0 && i < columnCount({}); ++i) {
            const QModelIndex other = cell.siblingAtColumn(i);
            if (!TextAt(other).empty()) others = SpokenParts({others, Spoken(other)});
        }
        return SpokenParts({others, RowName(cell.row())});
    }
    std::string SpokenCaption(int column) const {
        const bool up = order == Qt::AscendingOrder;
        const std::string_view sorted = up ? texts::SortedUp : texts::SortedDown;
        return SpokenParts(
            {columns[At(column)].caption, column == sortedBy ? sorted : std::string_view()});
    }
    /// A number keeps its distance from the column at its right.
    QString Spaced(const QString& text, int column) const {
        return columns[At(column)].number ? text + kRightRoom : text;
    }
    QVariant Alignment(int column) const {
        const auto side = columns[At(column)].number ? Qt::AlignRight : Qt::AlignLeft;
        return static_cast<int>(side | Qt::AlignVCenter);
    }
    static QVariant Looks(RowTone tone, int role) {
        if (role == Qt::ForegroundRole && tone == RowTone::Quiet)
            return QBrush(ToQColor(colours::kQuietText));
        if (role == Qt::ForegroundRole && tone == RowTone::Doubted)
            return QBrush(ToQColor(colours::kText));
        if (role == Qt::BackgroundRole && tone == RowTone::Doubted)
            return QBrush(ToQColor(colours::kDoubt));
        if (role == Qt::FontRole && tone == RowTone::Sum) {
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    }
};

TextTable::TextTable(QWidget* parent) : QTableView(parent), model_(std::make_unique<Model>()) {
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setItemDelegate(new TextCells(this));
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    setHorizontalHeader(new CaptionHeader(this));
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &TextTable::CaptionPressed);
    connect(this, &QTableView::pressed, this,
            [this](const QModelIndex& cell) { emit RowPressed(cell.row()); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& cell) { emit Chosen(cell.row()); });
}

TextTable::~TextTable() {
    setModel(nullptr);
}

/// What connects headers and rows is the larger part of what a table costs at the window's start.
/// It waits until the table is shown or has rows: most tables are not looked at every day.
void TextTable::Prepare() {
    if (model() != nullptr) return;
    setModel(model_.get());
    LayOutColumns();
}

void TextTable::SetColumns(std::vector<TextColumn> columns) {
    model_->Begin();
    model_->columns = std::move(columns);
    model_->End();
    LayOutColumns();
}

void TextTable::SetRows(std::vector<TextRow> rows) {
    const QScopedValueRollback filling(filling_, true);
    if (!rows.empty()) Prepare();
    const int current = CurrentRow();
    if (rows.size() == model_->rows.size()) {
        model_->Replace(std::move(rows));
    } else {
        model_->Begin();
        model_->rows = std::move(rows);
        model_->End();
        SetCurrentRow(std::min(current, model_->rowCount({}) - 1));
    }
    LayOutColumns();
}

const std::vector<TextRow>& TextTable::Rows() const {
    return model_->rows;
}

int TextTable::CurrentRow() const {
    return currentIndex().row();
}

void TextTable::SetCurrentRow(int row) {
    const QScopedValueRollback filling(filling_, true);
    setCurrentIndex(model_->index(row, field_ == nullptr ? 0 : fieldColumn_));
    PlaceField();
}

void TextTable::ShowOrder(int column, Qt::SortOrder order) {
    Prepare();
    model_->sortedBy = column;
    model_->order = order;
    horizontalHeader()->setSortIndicatorShown(column >= 0);
    horizontalHeader()->setSortIndicator(column, order);
}

void TextTable::SetField(QWidget* field, int column) {
    field_ = field;
    fieldColumn_ = column;
    field->setParent(viewport());
    PlaceField();
}

QRect TextTable::CellArea(int row, int column) const {
    return visualRect(model_->index(row, column));
}

void TextTable::PlaceField() {
    if (field_ == nullptr) return;
    const QRect cell = visualRect(currentIndex().siblingAtColumn(fieldColumn_));
    // Without a current row there is no room for it; the keys stay in it all the same.
    field_->setGeometry(cell.isValid() ? cell : QRect(0, 0, 1, 1));
}

void TextTable::LayOutRows() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowRoom);
}

/// For the caption, with its sign, and the longest text; none that may be cut. A number never is:
/// what is left of it would be another number.
int TextTable::NeededWidth(int column) const {
    const TextColumn& one = model_->columns[At(column)];
    if (one.longest.empty() && !one.number) return 0;
    const QString room = one.number ? QString(kRightRoom) : QString();
    const int margins = 2 * (style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, this) + 1);
    QFont bold = font();  // as sums are
    bold.setBold(true);
    const QString number = one.number ? model_->LongestIn(column) + room : QString();
    return margins +
           std::max({horizontalHeader()->fontMetrics().horizontalAdvance(ToQt(one.caption) + room),
                     fontMetrics().horizontalAdvance(ToQt(one.longest) + room),
                     QFontMetrics(bold).horizontalAdvance(number)});
}

/// By their shares; what a column needs beyond its share the others give.
std::vector<int> TextTable::ColumnWidths() const {
    std::vector<int> widths(model_->columns.size(), 0);
    int room = viewport()->width(), shares = 0;
    for (const TextColumn& column : model_->columns) shares += column.widthShare;
    for (bool more = true; more;) {
        more = false;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const int share = model_->columns[i].widthShare;
            const int needed = NeededWidth(static_cast<int>(i));
            if (widths[i] > 0 || needed * shares <= room * share) continue;
            widths[i] = needed;
            room = std::max(0, room - needed);
            shares -= share;
            more = true;
        }
    }
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (widths[i] > 0) continue;
        const int share = model_->columns[i].widthShare;
        widths[i] = room * share / shares;
        room -= widths[i];
        shares -= share;
    }
    const int total = std::accumulate(widths.begin(), widths.end(), 0);
    if (total <= viewport()->width()) return widths;
    // There is no room for what they need: all give.
    for (int& width : widths) width = width * viewport()->width() / total;
    return widths;
}

void TextTable::LayOutColumns() {
    if (model() == nullptr || model_->columns.empty()) return;
    const std::vector<int> widths = ColumnWidths();
    for (std::size_t i = 0; i < widths.size(); ++i) {
        setColumnWidth(static_cast<int>(i), widths[i]);
    }
    LayOutRows();
    PlaceField();
}

/// A row that does not fit is not cut: the table ends above it.
void TextTable::updateGeometries() {
    if (fittingRows_) return;
    const QScopedValueRollback fitting(fittingRows_, true);
    QTableView::updateGeometries();
    const int row = verticalHeader()->defaultSectionSize();
    const int room = viewport()->height();
    if (model_->rowCount({}) * row <= room || room < row) return;
    QMargins margins = viewportMargins();
    margins.setBottom(room % row);
    setViewportMargins(margins);
}

void TextTable::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) {
        if (CurrentRow() >= 0) emit Chosen(CurrentRow());
        return;
    }
    const int column = event->key() - Qt::Key_1;
    if (plain && column >= 0 && column < std::min(9, model_->columnCount({}))) {
        emit CaptionPressed(column);
        return;
    }
    QTableView::keyPressEvent(event);
}

void TextTable::showEvent(QShowEvent* event) {
    Prepare();
    QTableView::showEvent(event);
}

void TextTable::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    LayOutColumns();
}

void TextTable::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) LayOutColumns();
}

void TextTable::scrollContentsBy(int across, int down) {
    QTableView::scrollContentsBy(across, down);
    PlaceField();
}

void TextTable::currentChanged(const QModelIndex& current, const QModelIndex& before) {
    QTableView::currentChanged(current, before);
    PlaceField();
    // The table told of its cell, but the keys are in the field.
    if (field_ != nullptr && field_->hasFocus()) speech::SayFocus(field_);
    if (!filling_ && current.isValid() && current.row() != before.row()) {
        emit CurrentRowMoved(current.row());
    }
}
