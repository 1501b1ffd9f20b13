#include "widgets/valuelabel.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QPainter>
#include <QPalette>
#include <QRect>
#include <QToolTip>

#include <array>

namespace {

constexpr std::array kSizes = {1.0, 0.93, 0.86, 0.8, 0.75};  // smaller is hard to read

}  // namespace

ValueLabel::ValueLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QFont ValueLabel::FittingFont() const {
    QFont fitting = font();
    for (const double share : kSizes) {
        fitting.setPointSizeF(font().pointSizeF() * share);
        if (QFontMetrics(fitting, this).horizontalAdvance(text()) <= contentsRect().width()) break;
    }
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
