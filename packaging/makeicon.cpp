// makeicon SVG SIZE PNG: draws the picture as a square of so many pixels.

#include "base/error.h"
#include "base/number.h"

#include <QImage>
#include <QPainter>
#include <QString>
#include <QSvgRenderer>

#include <cstdio>

namespace {

constexpr int kMaxSize = 1024;

bool Draw(const QString& source, int size, const QString& target) {
    QSvgRenderer drawing(source);
    if (!drawing.isValid() || size < 1 || size > kMaxSize) return false;
    QImage picture(size, size, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawing.render(&painter);
    painter.end();
    return picture.save(target, "PNG");
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 4) {
        std::fputs("usage: makeicon SVG SIZE PNG\n", stderr);
        return 2;
    }
    if (Draw(QString::fromLocal8Bit(argv[1]), ParseInteger(argv[2]),
             QString::fromLocal8Bit(argv[3]))) {
        return 0;
    }
    std::fputs("makeicon: the picture cannot be drawn\n", stderr);
    return 1;
} catch (const Error& error) {
    std::fputs(error.what(), stderr);
    return 2;
}
