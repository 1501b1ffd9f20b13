#include "app/background.h"

#include "app/frmPPM.h"
#include "widgets/colours.h"

#include <QEvent>
#include <QPainter>
#include <QPen>
#include <QPointF>
#include <QSize>

namespace {

constexpr int kStripWidth = 20;
constexpr int kStripHeight = 300;
constexpr int kThread = 4;  // the texture's threads lie so far apart; it divides both sizes

}  // namespace

Background::Background(frmPPM& ppm) : Controller(ppm) {
    OnEvent(window.centralWidget(), QEvent::Paint, [this](QEvent&) {
        Form_Paint();
        return true;
    });
}

void Background::DrawStrip(qreal pixelRatio) {
    strip_ = QPixmap(QSize(kStripWidth, kStripHeight) * pixelRatio);
    strip_.setDevicePixelRatio(pixelRatio);
    strip_.fill(ToQColor(colours::kBackground));
    QPainter painter(&strip_);
    painter.setPen(QPen(ToQColor(colours::kBackgroundThread), 1));
    // Slanting threads that meet where one strip ends and the next begins.
    for (int y = -kStripWidth; y < kStripHeight + kStripWidth; y += kThread) {
        painter.drawLine(QPointF(0, y + kStripWidth), QPointF(kStripWidth, y));
    }
}

void Background::Form_Paint() {
    QWidget& client = *window.centralWidget();
    const qreal pixelRatio = client.devicePixelRatioF();
    if (strip_.isNull() || strip_.devicePixelRatio() != pixelRatio) DrawStrip(pixelRatio);
    QPainter(&client).drawTiledPixmap(client.rect(), strip_);
}
