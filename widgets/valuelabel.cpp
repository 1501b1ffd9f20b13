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

/// Of what is drawn: a mnemonic is a line under a letter.
int ValueLabel::WidthIn(const QFont& font) const {
    return QFontMetrics(font, this).size(Flags() | Qt::TextSingleLine, text()).width();
}

int ValueLabel::Flags() const {
    return buddy() == nullptr ? 0 : static_cast<int>(Qt::TextShowMnemonic);
}

QFont ValueLabel::FittingFont() const {
    QFont fitting = font();
    for (const double share : kSizes) {
        fitting.setPointSizeF(font().pointSizeF() * share);
        if (WidthIn(fitting) <= contentsRect().width()) break;
    }
    return fitting;
}

void ValueLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect place = contentsRect();
    painter.setPen(palette().color(QPalette::WindowText));
    painter.setFont(FittingFont());
    const QString shown =
        painter.fontMetrics().elidedText(text(), Qt::ElideRight, place.width(), Flags());
    painter.drawText(place, static_cast<int>(alignment()) | Flags(), shown);
}

bool ValueLabel::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QLabel::event(event);
    if (WidthIn(FittingFont()) <= contentsRect().width()) return QLabel::event(event);
    QString whole = text();
    if (buddy() != nullptr) whole.remove(u'&');
    QToolTip::showText(static_cast<const QHelpEvent&>(*event).globalPos(), whole, this);
    return true;
}
