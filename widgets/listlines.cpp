#include "widgets/listlines.h"

#include "platform/qttext.h"
#include "widgets/colours.h"
#include "widgets/rules/spokencell.h"
#include "widgets/rules/texts.h"

#include <QAbstractItemView>
#include <QColor>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QListWidget>
#include <QModelIndex>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <QStyle>
#include <QToolTip>

#include <algorithm>
#include <string_view>

namespace {

constexpr QChar kFigureSpace(0x2007);
constexpr int kGap = 4;

}  // namespace

ListLines::ListLines(QListWidget* list) : QStyledItemDelegate(list), list_(list) {}

LineLook ListLines::LookOf(const QModelIndex& index) const {
    return lookOf_ ? lookOf_(index.row()) : LineLook{};
}

QString ListLines::SpokenText(const QModelIndex& index) const {
    const LineLook look = LookOf(index);
    return ToQt(
        SpokenParts({FromQt(index.data(Qt::DisplayRole).toString().trimmed()), FromQt(look.value),
                     look.chosen ? texts::MarkedLine : std::string_view()}));
}

QVariant SeenLine::data(int role) const {
    const QListWidget* list = listWidget();
    if (role != Qt::AccessibleTextRole || list == nullptr) return QListWidgetItem::data(role);
    const auto* lines = qobject_cast<const ListLines*>(list->itemDelegate());
    if (lines == nullptr) return QListWidgetItem::data(role);
    return lines->SpokenText(list->model()->index(list->row(this), 0));
}

/// The list makes its lines as wide as the longest one, which no longer needs to be cut then.
QStyleOptionViewItem ListLines::InView(QStyleOptionViewItem option) const {
    const int end = list_->viewport()->rect().right() - list_->spacing();
    option.rect.setRight(std::min(option.rect.right(), end));
    return option;
}

QRect ListLines::DotPlace(const QRect& line) {
    const int size = std::max(6, line.height() / 2);
    return {line.left() + kGap, line.center().y() - size / 2 + 1, size, size};
}

QRect ListLines::TextPlace(const QStyleOptionViewItem& line, const LineLook& look) {
    QRect place = line.rect;
    if (look.dot) place.setLeft(DotPlace(line.rect).right() + 1);
    if (!look.value.isEmpty()) {
        place.setRight(place.right() - kGap - line.fontMetrics.horizontalAdvance(look.value));
    }
    return place;
}

void ListLines::paint(QPainter* painter, const QStyleOptionViewItem& whole,
                      const QModelIndex& index) const {
    const QStyleOptionViewItem line = InView(whole);
    const LineLook look = LookOf(index);
    const bool selected = line.state.testFlag(QStyle::State_Selected);
    if (selected) painter->fillRect(line.rect, line.palette.color(QPalette::Highlight));
    QStyleOptionViewItem text = line;
    text.rect = TextPlace(line, look);
    QStyledItemDelegate::paint(painter, text, index);
    painter->save();
    PaintLook(*painter, line, look);
    if (line.state.testFlag(QStyle::State_HasFocus) && !selected) {
        painter->setRenderHint(QPainter::Antialiasing, false);
        painter->setBrush(Qt::NoBrush);
        painter->setPen(line.palette.color(QPalette::Text));
        painter->drawRect(line.rect.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

void ListLines::PaintLook(QPainter& painter, const QStyleOptionViewItem& line,
                          const LineLook& look) {
    const bool selected = line.state.testFlag(QStyle::State_Selected);
    const QColor ink = line.palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    painter.setFont(line.font);
    painter.setPen(ink);
    painter.drawText(line.rect.adjusted(0, 0, -kGap, 0),
                     Qt::AlignRight | Qt::AlignVCenter | Qt::TextSingleLine, look.value);
    if (!look.dot) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::white, 1));
    painter.setBrush(ToQColor(*look.dot));
    const QRectF dot = QRectF(DotPlace(line.rect)).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.drawEllipse(dot);
    if (!look.chosen) return;
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(QPolygonF{{dot.left() - 1, dot.center().y()},
                                   {dot.center().x(), dot.bottom()},
                                   {dot.right() + 2, dot.top() - 2}});
}

bool ListLines::helpEvent(QHelpEvent* event, QAbstractItemView* view,
                          const QStyleOptionViewItem& option, const QModelIndex& index) {
    const QStyleOptionViewItem line = InView(option);
    const bool cut = sizeHint(option, index).width() > TextPlace(line, LookOf(index)).width();
    if (event->type() != QEvent::ToolTip || !cut) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    QToolTip::showText(event->globalPos(), index.data().toString(), view);
    return true;
}

void ListLines::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    if (option->text.startsWith(u' ')) option->text[0] = kFigureSpace;
}
