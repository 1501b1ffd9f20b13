#pragma once
// How much room the screen has for the window.

#include <QRect>

class Screen {
  public:
    Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    virtual ~Screen() = default;

    /// What the desktop leaves free on the main screen, in logical pixels.
    virtual QRect AvailableArea() const = 0;
};

class DesktopScreen final : public Screen {
  public:
    QRect AvailableArea() const override;
};
