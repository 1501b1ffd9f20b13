#include "widgets/titledframe.h"

#include <QEvent>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QStyleOptionGroupBox>
#include <QStylePainter>
#include <QToolTip>

namespace {

/// Beside the title, as the style sheet places it.
constexpr int kTitlePadding = 12;

}  // namespace

QString TitledFrame::WholeTitle() const {
    if (title().isEmpty()) return untitled_;
    return title().replace(QLatin1String("&&"), QLatin1String("&"));
}

QString TitledFrame::FittingTitle() const {
    return fontMetrics().elidedText(WholeTitle(), Qt::ElideRight, width() - 2 * kTitlePadding);
}

void TitledFrame::paintEvent(QPaintEvent* /*event*/) {
    QStylePainter painter(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    option.text = FittingTitle().replace(QLatin1String("&"), QLatin1String("&&"));
    painter.drawComplexControl(QStyle::CC_GroupBox, option);
}

bool TitledFrame::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || FittingTitle() == WholeTitle()) {
        return QGroupBox::event(event);
    }
    QToolTip::showText(static_cast<const QHelpEvent&>(*event).globalPos(), WholeTitle(), this);
    return true;
}
