#include "widgets/legendview.h"

#include "widgets/colours.h"
#include "widgets/rules/legendcolumns.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QListWidgetItem>
#include <QModelIndex>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QResizeEvent>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QStyledItemDelegate>

#include <algorithm>
#include <utility>

namespace {

constexpr int kGap = 5;       // between the parts of an entry
constexpr int kLetters = 9;   // of a name, at least
constexpr int kRowGap = 2;    // over and under an entry's text
constexpr int kBetween = 10;  // two columns

/// The places of an entry's parts, from left to right.
struct Parts {
    Parts(const QFontMetrics& metrics, const LegendEntry& entry)
        : dot(metrics.ascent() - 2),
          number(metrics.horizontalAdvance(QStringLiteral("000"))),
          value(metrics.horizontalAdvance(entry.value)),
          name(metrics.horizontalAdvance(entry.name)) {}
    int Around() const { return dot + number + value + 3 * kGap + kBetween; }

    int dot, number, value, name;
};

class EntryPainter final : public QStyledItemDelegate {
  public:
    explicit EntryPainter(LegendView* legend) : QStyledItemDelegate(legend), legend_(legend) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const LegendEntry& entry = legend_->Entries()[static_cast<std::size_t>(index.row())];
        painter->save();
        const bool lit = option.state.testFlag(QStyle::State_MouseOver) ||
                         option.state.testFlag(QStyle::State_HasFocus);
        const QRect place = option.rect.adjusted(0, 0, -kBetween / 2, 0);
        if (lit) painter->fillRect(place, ToQColor(colours::kHover));
        if (option.state.testFlag(QStyle::State_HasFocus)) {
            painter->setPen(QPen(ToQColor(colours::kAccent), 2));
            painter->drawRect(place.adjusted(1, 1, -1, -1));
        }
        PaintParts(*painter, place, entry, option);
        painter->restore();
    }

  private:
    static void PaintParts(QPainter& painter, const QRect& place, const LegendEntry& entry,
                           const QStyleOptionViewItem& option) {
        const Parts parts(option.fontMetrics, entry);
        painter.setFont(option.font);
        painter.setRenderHint(QPainter::Antialiasing);
        const Colour edge = EdgeColour(entry.colour).value_or(entry.colour);
        painter.setPen(QPen(ToQColor(edge), 1));
        painter.setBrush(ToQColor(entry.colour));
        QRectF dot(0, 0, parts.dot, parts.dot);
        dot.moveCenter(
            QPointF(place.left() + kGap / 2.0 + parts.dot / 2.0, place.center().y() + 0.5));
        painter.drawEllipse(dot);

        painter.setPen(ToQColor(colours::kText));
        QRect rest = place.adjusted(parts.dot + kGap, 0, -kGap / 2, 0);
        const int line = Qt::AlignVCenter | Qt::TextSingleLine;
        painter.drawText(QRect(rest.left(), rest.top(), parts.number, rest.height()),
                         line | Qt::AlignRight, entry.number);
        painter.drawText(rest, line | Qt::AlignRight, entry.value);
        rest.adjust(parts.number + kGap, 0, -parts.value - kGap, 0);
        painter.drawText(rest, line | Qt::AlignLeft,
                         option.fontMetrics.elidedText(entry.name, Qt::ElideRight, rest.width()));
    }

    LegendView* legend_;
};

}  // namespace

LegendView::LegendView(QWidget* parent) : QListWidget(parent) {
    setFlow(QListView::TopToBottom);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setFrameShape(QFrame::NoFrame);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerItem);
    setSelectionMode(QAbstractItemView::NoSelection);
    setItemDelegate(new EntryPainter(this));
    connect(this, &QListWidget::itemEntered, this,
            [this](QListWidgetItem* item) { emit Lit(IdAt(row(item))); });
    connect(this, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { emit Chosen(IdAt(row(item))); });
    connect(this, &QListWidget::currentRowChanged, this, [this] {
        if (hasFocus()) LightCurrent();
    });
}

void LegendView::SetEntries(std::vector<LegendEntry> entries) {
    if (entries == entries_) return;
    entries_ = std::move(entries);
    clear();
    for (const LegendEntry& entry : entries_) {
        // What is told to those who do not see it.
        auto* item = new QListWidgetItem(entry.number + QStringLiteral(". ") + entry.name + u' ' +
                                         entry.value);
        item->setToolTip(entry.name);
        addItem(item);
    }
    FitColumns();
}

void LegendView::FitColumns() {
    const QFontMetrics metrics(font(), this);
    LegendEntrySize size;
    size.height = metrics.height() + kRowGap;
    for (const LegendEntry& entry : entries_) {
        const Parts parts(metrics, entry);
        const int letters = std::min(parts.name, kLetters * metrics.averageCharWidth());
        size.narrowest = std::max(size.narrowest, parts.Around() + letters);
        size.widest = std::max(size.widest, parts.Around() + parts.name + 1);
    }
    // The list's own layout leaves the last pixels free.
    const LegendRoom room{viewport()->width(), height() - kRowGap};
    // A bar that is not needed would take a line, and then be needed.
    const bool fits = LegendFits(entries_.size(), size, room);
    setHorizontalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    setGridSize({LegendColumnWidth(entries_.size(), size, room), size.height});
}

void LegendView::LightCurrent() {
    if (currentRow() >= 0) emit Lit(IdAt(currentRow()));
}

void LegendView::MoveBy(int entries) {
    if (count() > 0) setCurrentRow(std::clamp(currentRow() + entries, 0, count() - 1));
}

bool LegendView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::Leave) {
        emit Unlit();
        if (hasFocus()) LightCurrent();
    }
    return QListWidget::viewportEvent(event);
}

/// Up and Down go from entry to entry, over the columns' ends; Left and Right are not the legend's.
void LegendView::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Up:
            return MoveBy(-1);
        case Qt::Key_Down:
            return MoveBy(1);
        case Qt::Key_Left:
        case Qt::Key_Right:
            return;
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Space:
            if (currentRow() >= 0) emit Chosen(IdAt(currentRow()));
            return;
        default:
            QListWidget::keyPressEvent(event);
    }
}

void LegendView::focusInEvent(QFocusEvent* event) {
    QListWidget::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason) return;
    if (currentRow() < 0 && count() > 0) setCurrentRow(0);
    LightCurrent();
}

void LegendView::focusOutEvent(QFocusEvent* event) {
    QListWidget::focusOutEvent(event);
    emit Unlit();
}

void LegendView::resizeEvent(QResizeEvent* event) {
    FitColumns();
    QListWidget::resizeEvent(event);
}

void LegendView::changeEvent(QEvent* event) {
    QListWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) FitColumns();
}
