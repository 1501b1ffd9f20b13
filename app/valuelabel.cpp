#include "app/valuelabel.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QToolTip>

ValueLabel::ValueLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

bool ValueLabel::Fits() const {
    return fontMetrics().horizontalAdvance(text()) <= contentsRect().width();
}

void ValueLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect place = contentsRect();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(place, static_cast<int>(alignment()),
                     fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

bool ValueLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || Fits()) return QLabel::event(event);
    QToolTip::showText(static_cast<const QHelpEvent&>(*event).globalPos(), text(), this);
    return true;
}
