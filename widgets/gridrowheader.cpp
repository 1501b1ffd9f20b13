#include "widgets/gridrowheader.h"

#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPointF>
#include <QRect>

#include <array>
#include <utility>

namespace {

constexpr int kWidth = 22;

void DrawPencil(QPainter& painter, QPointF centre) {
    painter.drawLine(centre + QPointF(-4, 4), centre + QPointF(4, -4));
    painter.drawLine(centre + QPointF(-4, 4), centre + QPointF(-1.5, 4));
    painter.drawLine(centre + QPointF(-4, 4), centre + QPointF(-4, 1.5));
}

void DrawArrow(QPainter& painter, QPointF centre) {
    const std::array corners{centre + QPointF(-3, -5), centre + QPointF(4, 0),
                             centre + QPointF(-3, 5)};
    painter.drawPolygon(corners.data(), static_cast<int>(corners.size()));
}

void DrawStar(QPainter& painter, QPointF centre) {
    for (const QPointF ray : {QPointF(0, 4), QPointF(3.5, 2), QPointF(3.5, -2)}) {
        painter.drawLine(centre - ray, centre + ray);
    }
}

}  // namespace

GridRowHeader::GridRowHeader(SignOfRow signOf, QWidget* parent)
    : QHeaderView(Qt::Vertical, parent), signOf_(std::move(signOf)) {
    setSectionsClickable(true);
    setSectionResizeMode(QHeaderView::Fixed);
    setFixedWidth(kWidth);
}

void GridRowHeader::paintSection(QPainter* painter, const QRect& area, int row) const {
    painter->save();
    QHeaderView::paintSection(painter, area, row);
    painter->restore();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(palette().color(QPalette::ButtonText), 1.4));
    painter->setBrush(palette().color(QPalette::ButtonText));
    const QPointF centre = QRectF(area).center();
    switch (signOf_(row)) {
        case RowSign::None:
            break;
        case RowSign::Current:
            DrawArrow(*painter, centre);
            break;
        case RowSign::Typed:
            DrawPencil(*painter, centre);
            break;
        case RowSign::New:
            DrawStar(*painter, centre);
            break;
    }
    painter->restore();
}
