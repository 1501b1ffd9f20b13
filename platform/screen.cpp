#include "platform/screen.h"

#include <QApplication>
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
