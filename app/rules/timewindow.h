#pragma once
// The twelve months the diagram shows: where they start, how they move and what stands under them.
// Knows calendars; does not know labels or controls.

#include <array>
#include <cstdint>
#include <span>
#include <string>

enum class WindowMove { OneMonthAhead, QuarterBack, YearBack, QuarterAhead, YearAhead };

/// The start of the window after a move: the first of the month that a fixed number of days leads
/// to. Throws Overflow where the calendar ends.
std::int32_t MovedStart(std::int32_t startDay, WindowMove move);

/// The start of the window that ends with today's month: the month after it, one year back; in
/// December January of the same year.
std::int32_t FirstWindowStart(std::int32_t today);

/// From the 16th on the window shows the next month's place, too.
bool ShowsNextMonth(std::int32_t today);

/// Where the window stands when the program comes up on that day: these two together.
std::int32_t WindowStartFor(std::int32_t today);

struct WindowLabels {
    std::array<std::string, 12> months;
    std::string leftYear, rightYear;
    bool operator==(const WindowLabels&) const = default;
};

/// The labels of the window that starts at `startDay`. `monthNames` begins with January and goes on
/// into a second year, so that no month wraps; a name that is missing throws SubscriptOutOfRange.
WindowLabels LabelsOf(std::int32_t startDay, std::span<const std::string> monthNames);
