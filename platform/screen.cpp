#include "platform/screen.h"

#include <QApplication>
#include <QFont>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

QRect DesktopScreen::Area() const {
    return QGuiApplication::primaryScreen()->geometry();
}

QSize DesktopScreen::RoomForWindow() const {
    // The desktop puts a title bar over the window;
    // how high is known only once the window is shown.
    const int titleBar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return QGuiApplication::primaryScreen()->availableSize() - QSize(0, titleBar);
}

float DesktopScreen::TextSize() const {
    constexpr double kOrdinaryPixels = 12;
    const QFont font = QApplication::font();
    const double inch = QGuiApplication::primaryScreen()->logicalDotsPerInchY();
    const double pixels = font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * inch / 72;
    return static_cast<float>(pixels / kOrdinaryPixels);
}
