#include "app/valuelabel.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QToolTip>

#include <algorithm>

namespace {

constexpr double kSmallest = 0.75;  // of the label's own size; smaller is hard to read

}  // namespace

ValueLabel::ValueLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QFont ValueLabel::FittingFont() const {
    QFont fitting = font();
    const double wanted = fontMetrics().horizontalAdvance(text());
    const double share = contentsRect().width() / std::max(wanted, 1.0);
    if (share < 1) fitting.setPointSizeF(fitting.pointSizeF() * std::max(share, kSmallest));
    return fitting;
}

void ValueLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect place = contentsRect();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setFont(FittingFont());
    const QString shown = painter.fontMetrics().elidedText(text(), Qt::ElideRight, place.width());
    painter.drawText(place, static_cast<int>(alignment()), shown);
}

bool ValueLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    const int width = QFontMetrics(FittingFont(), this).horizontalAdvance(text());
    if (width <= contentsRect().width()) return QLabel::event(event);
    QToolTip::showText(static_cast<const QHelpEvent&>(*event).globalPos(), text(), this);
    return true;
}
