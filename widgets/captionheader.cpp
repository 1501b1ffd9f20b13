#include "widgets/captionheader.h"

#include <QStyle>
#include <QStyleOptionHeader>

CaptionHeader::CaptionHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
    setHighlightSections(false);
}

/// Not left to the style: with a style sheet it forgets how the text is to be cut.
void CaptionHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int column) const {
    QHeaderView::initStyleOptionForIndex(option, column);
    const bool sign = option->sortIndicator != QStyleOptionHeader::None;
    const int margins = 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, option, this) +
                        (sign ? style()->pixelMetric(QStyle::PM_HeaderMarkSize, option, this) : 0);
    option->text =
        option->fontMetrics.elidedText(option->text, Qt::ElideRight, sectionSize(column) - margins);
}
