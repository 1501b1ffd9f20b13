#include "platform/screen.h"

#include <QGuiApplication>
#include <QScreen>

QRect DesktopScreen::AvailableArea() const {
    return QGuiApplication::primaryScreen()->availableGeometry();
}
