#include "platform/clock.h"

#include <QDate>
#include <QObject>
#include <QTimer>

#include <utility>

namespace {

class RunningPause final : public Clock::Pause {
  public:
    RunningPause(std::chrono::milliseconds length, std::function<void()> tick) {
        QTimer::singleShot(length, &life_, std::move(tick));
    }

  private:
    QObject life_;  // without it the timer does not tick
};

}  // namespace

std::chrono::year_month_day SystemClock::Today() const {
    const QDate today = QDate::currentDate();
    return {std::chrono::year(today.year()),
            std::chrono::month(static_cast<unsigned>(today.month())),
            std::chrono::day(static_cast<unsigned>(today.day()))};
}

std::unique_ptr<Clock::Pause> SystemClock::After(std::chrono::milliseconds length,
                                                 std::function<void()> tick) {
    return std::make_unique<RunningPause>(length, std::move(tick));
}
