#include "widgets/daymarks.h"

#include "widgets/colours.h"

#include <QPainter>
#include <QRectF>

#include <algorithm>
#include <utility>

namespace {

constexpr double kLeastWidth = 2;  // pixels

}  // namespace

DayMarks::DayMarks(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::NoFocus);
}

void DayMarks::SetDays(std::vector<std::int32_t> days, std::int32_t daysOfAxis) {
    std::erase_if(days, [daysOfAxis](std::int32_t day) { return day < 0 || day > daysOfAxis; });
    if (days == days_ && daysOfAxis == daysOfAxis_) return;
    days_ = std::move(days);
    daysOfAxis_ = daysOfAxis;
    update();
}

void DayMarks::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const double day = static_cast<double>(width()) / daysOfAxis_;
    const double mark = std::max(kLeastWidth, day);
    for (const std::int32_t at : days_) {
        const double middle = at * day;
        painter.fillRect(QRectF(middle - mark / 2, 0, mark, height()), ToQColor(colours::kDayMark));
    }
}
