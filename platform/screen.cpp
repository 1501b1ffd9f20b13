#include "platform/screen.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QStyle>

QRect DesktopScreen::AvailableArea() const {
    QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    // The desktop puts a title bar over the window; how high is known only once the window is
    // shown.
    const int titleBar = QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight);
    area.setHeight(area.height() - titleBar);
    return area;
}
