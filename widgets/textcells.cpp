#include "widgets/textcells.h"

#include <QColor>
#include <QFontMetricsF>
#include <QPainter>
#include <QPalette>
#include <QPointF>
#include <QRect>
#include <QString>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QWidget>

#include <utility>

namespace {

QColor TextColour(const QStyleOptionViewItem& cell) {
    const bool selected = cell.state.testFlag(QStyle::State_Selected);
    const bool active = cell.state.testFlag(QStyle::State_Active);
    const auto group = !cell.state.testFlag(QStyle::State_Enabled) ? QPalette::Disabled
                       : active                                    ? QPalette::Active
                                                                   : QPalette::Inactive;
    return cell.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
}

}  // namespace

void TextCells::paint(QPainter* painter, const QStyleOptionViewItem& option,
                      const QModelIndex& index) const {
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QString text = std::exchange(cell.text, QString());
    const QStyle* style = cell.widget->style();
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);

    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    const QRect room = cell.rect.adjusted(margin, 0, -margin, 0);
    const QFontMetricsF metrics(cell.font, cell.widget);
    const double width = metrics.horizontalAdvance(text);
    const bool fits = width <= room.width();
    const bool right = cell.displayAlignment.testFlag(Qt::AlignRight) && fits;
    const int top = room.top() + (room.height() - cell.fontMetrics.height()) / 2;
    painter->save();
    painter->setFont(cell.font);
    painter->setPen(TextColour(cell));
    painter->drawText(
        QPointF(right ? room.right() + 1 - width : room.left(), top + metrics.ascent()),
        fits ? text : metrics.elidedText(text, cell.textElideMode, room.width()));
    painter->restore();
}
