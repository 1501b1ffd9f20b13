#include "widgets/svgicon.h"

#include <QColor>
#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QPointF>
#include <QRect>
#include <QRectF>
#include <QSize>
#include <QSizeF>
#include <QSvgRenderer>

#include <memory>

namespace {

constexpr int kDisabledAlpha = 100;

class SvgIconEngine final : public QIconEngine {
  public:
    explicit SvgIconEngine(const QString& path) : drawing_(std::make_shared<QSvgRenderer>(path)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        if (mode == QIcon::Disabled) {
            painter->drawPixmap(rect, pixmap(rect.size(), mode, state));
        } else {
            Draw(*painter, rect);
        }
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State /*state*/) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        Draw(painter, picture.rect());
        if (mode == QIcon::Disabled) {
            // The whole picture at once: its parts lie over each other.
            painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
            painter.fillRect(picture.rect(), QColor(0, 0, 0, kDisabledAlpha));
        }
        return picture;
    }

    QIconEngine* clone() const override { return new SvgIconEngine(*this); }

  private:
    void Draw(QPainter& painter, const QRect& rect) const {
        const QSizeF size =
            QSizeF(drawing_->defaultSize()).scaled(QSizeF(rect.size()), Qt::KeepAspectRatio);
        QRectF place(QPointF(), size);
        place.moveCenter(QRectF(rect).center());
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        drawing_->render(&painter, place);
        painter.restore();
    }

    std::shared_ptr<QSvgRenderer> drawing_;
};

}  // namespace

QIcon SvgIcon(const QString& path) {
    return QIcon(new SvgIconEngine(path));
}
