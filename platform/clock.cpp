#include "platform/clock.h"

#include <QDate>
#include <QTimer>

#include <utility>

namespace {

class RunningPause final : public Clock::Pause {
  public:
    RunningPause(std::chrono::milliseconds length, std::function<void()> tick) {
        timer_.setSingleShot(true);
        QObject::connect(&timer_, &QTimer::timeout, &timer_, std::move(tick));
        timer_.start(length);
    }

  private:
    QTimer timer_;
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
