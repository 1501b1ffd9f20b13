#pragma once
// Small marks along a time axis. Knows days as places on it, nothing of why they are marked.

#include <QWidget>

#include <cstdint>
#include <vector>

class QPaintEvent;

/// As wide as the axis, whose first day is at its left edge and whose last at its right one.
class DayMarks final : public QWidget {
    Q_OBJECT

  public:
    explicit DayMarks(QWidget* parent = nullptr);

    /// Counted from the axis' first day; what lies outside it is not shown.
    void SetDays(std::vector<std::int32_t> days, std::int32_t daysOfAxis);
    const std::vector<std::int32_t>& Days() const { return days_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    std::vector<std::int32_t> days_;
    std::int32_t daysOfAxis_ = 1;
};
