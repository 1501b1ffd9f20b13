#pragma once
// How much room the screen has for the window.

#include <QRect>
#include <QSize>

class Screen {
  public:
    Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen() = default;

    /// The main screen, in logical pixels.
    virtual QRect Area() const = 0;
    /// How large a window may be for the desktop's bars and its own title bar to stay in sight.
    virtual QSize RoomForWindow() const = 0;
    /// How large the desktop's user wants letters: 1 is the 9 points at 96 dots an inch that the
    /// window's design has for its texts, and that the toolkit has where no desktop says anything.
    virtual float TextSize() const = 0;
};

class DesktopScreen final : public Screen {
  public:
    QRect Area() const override;
    QSize RoomForWindow() const override;
    float TextSize() const override;
};
