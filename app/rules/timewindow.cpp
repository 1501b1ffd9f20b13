#include "app/rules/timewindow.h"

#include "base/daynumber.h"
#include "base/error.h"
#include "base/number.h"

#include <chrono>

namespace {

using std::chrono::day;
using std::chrono::month;
using std::chrono::year;
using std::chrono::year_month_day;

// Day counts and not months, on purpose: a year ahead that passes a 29th of February ends in the
// month before, and the window moves by eleven months only.
std::int32_t DaysOf(WindowMove move) {
    switch (move) {
        case WindowMove::OneMonthAhead:
            return 34;
        case WindowMove::QuarterBack:
            return -86;
        case WindowMove::YearBack:
            return -361;
        case WindowMove::QuarterAhead:
            return 94;
        case WindowMove::YearAhead:
            return 365;
    }
    return 0;
}

std::int32_t FirstOfMonth(std::int32_t dayNumber) {
    const year_month_day date = DateOf(dayNumber);
    return DayNumber(date.year() / date.month() / day{1});
}

}  // namespace

std::int32_t MovedStart(std::int32_t startDay, WindowMove move) {
    return FirstOfMonth(startDay + DaysOf(move));
}

std::int32_t FirstWindowStart(std::int32_t today) {
    const year_month_day date = DateOf(today);
    if (date.month() == month{12}) return DayNumber(date.year() / month{1} / day{1});
    return DayNumber((date.year() - std::chrono::years{1}) /
                     (date.month() + std::chrono::months{1}) / day{1});
}

bool ShowsNextMonth(std::int32_t today) {
    return DateOf(today).day() > day{15};
}

std::int32_t WindowStartFor(std::int32_t today) {
    const std::int32_t start = FirstWindowStart(today);
    return ShowsNextMonth(today) ? MovedStart(start, WindowMove::OneMonthAhead) : start;
}

WindowLabels LabelsOf(std::int32_t startDay, std::span<const std::string> monthNames) {
    const year_month_day start = DateOf(startDay);
    const std::size_t first = static_cast<unsigned>(start.month()) - 1;
    WindowLabels labels;
    if (monthNames.size() < first + labels.months.size()) {
        throw Error{ErrorNumber::SubscriptOutOfRange, "too few month names"};
    }
    for (std::size_t k = 0; k < labels.months.size(); ++k) labels.months[k] = monthNames[first + k];
    const std::int32_t leftYear = static_cast<int>(start.year());
    labels.leftYear = PlainText(leftYear);
    labels.rightYear = PlainText(first == 0 ? leftYear : leftYear + 1);
    return labels;
}
