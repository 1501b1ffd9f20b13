#include "widgets/swatch.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPen>
#include <QRectF>

Swatch::Swatch(QWidget* parent) : QWidget(parent) {}

void Swatch::SetFillColour(const QColor& colour) {
    colour_ = colour;
    update();
}

void Swatch::paintEvent(QPaintEvent* /*event*/) {
    if (!colour_.isValid()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour_.darker(150), 1));
    painter.setBrush(colour_);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 3, 3);
}
