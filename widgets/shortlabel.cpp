#include "widgets/shortlabel.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPalette>

namespace {

constexpr int kCharacters = 3;

}  // namespace

ShortLabel::ShortLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

QString ShortLabel::ShownText() const {
    const QFontMetrics metrics(font(), this);
    const int room = width() - metrics.horizontalAdvance(u' ');
    if (metrics.horizontalAdvance(text()) <= room) return text();
    const QString shorter = text().left(kCharacters);
    return metrics.horizontalAdvance(shorter) < width() ? shorter : text().left(1);
}

void ShortLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(contentsRect(), static_cast<int>(alignment()), ShownText());
}
