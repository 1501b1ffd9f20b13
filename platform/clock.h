#pragma once
// Today's date and pauses.

#include <chrono>
#include <functional>
#include <memory>

class Clock {
  public:
    /// A pause that is running; destroying it ends it without a tick.
    class Pause {
      public:
        Pause() = default;
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;
        virtual ~Pause() = default;
    };

    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    virtual std::chrono::year_month_day Today() const = 0;
    /// Runs `tick` once, on the event loop, when `length` has passed and the pause still lives.
    [[nodiscard]] virtual std::unique_ptr<Pause> After(std::chrono::milliseconds length,
                                                       std::function<void()> tick) = 0;
};

/// The computer's clock, in local time.
class SystemClock final : public Clock {
  public:
    std::chrono::year_month_day Today() const override;
    [[nodiscard]] std::unique_ptr<Pause> After(std::chrono::milliseconds length,
                                               std::function<void()> tick) override;
};
