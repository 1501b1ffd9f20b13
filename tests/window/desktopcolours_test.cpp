// The window has colours of its own: whatever the desktop's are, it looks the same.

#include "tests/window/everymode.h"
#include "widgets/legendview.h"

#include <QApplication>
#include <QColor>
#include <QImage>
#include <QPalette>
#include <QRect>

#include <algorithm>
#include <cstdlib>

namespace {

QPalette Dark() {
    QPalette palette(Qt::white, QColor(53, 53, 53), QColor(80, 80, 80), Qt::black, Qt::gray,
                     Qt::white, Qt::white, QColor(25, 25, 25), QColor(40, 40, 40));
    palette.setColor(QPalette::AlternateBase, QColor(45, 45, 45));
    palette.setColor(QPalette::Highlight, QColor(42, 130, 218));
    palette.setColor(QPalette::HighlightedText, Qt::magenta);
    palette.setColor(QPalette::ToolTipBase, Qt::darkBlue);
    palette.setColor(QPalette::ToolTipText, Qt::white);
    palette.setColor(QPalette::PlaceholderText, Qt::lightGray);
    return palette;
}

/// Yellow on black, as desktops for weak eyes have it.
QPalette HighContrast() {
    QPalette palette(Qt::yellow, Qt::black, Qt::green, Qt::blue, Qt::cyan, Qt::yellow, Qt::yellow,
                     Qt::black, Qt::black);
    palette.setColor(QPalette::AlternateBase, Qt::black);
    palette.setColor(QPalette::Highlight, Qt::cyan);
    palette.setColor(QPalette::HighlightedText, Qt::black);
    palette.setColor(QPalette::ToolTipBase, Qt::black);
    palette.setColor(QPalette::ToolTipText, Qt::yellow);
    palette.setColor(QPalette::PlaceholderText, Qt::darkYellow);
    return palette;
}

/// Another colour, and not the same one a shade off, as the edge of a slanting line may be.
bool IsAnother(QRgb one, QRgb other) {
    constexpr int kShade = 64;
    return std::abs(qRed(one) - qRed(other)) > kShade ||
           std::abs(qGreen(one) - qGreen(other)) > kShade ||
           std::abs(qBlue(one) - qBlue(other)) > kShade;
}

/// Where the pictures are not the same.
QRect Difference(const QImage& one, const QImage& other) {
    QRect all;
    for (int y = 0; y < std::min(one.height(), other.height()); ++y) {
        for (int x = 0; x < std::min(one.width(), other.width()); ++x) {
            if (IsAnother(one.pixel(x, y), other.pixel(x, y))) all |= QRect(x, y, 1, 1);
        }
    }
    return one.size() == other.size() ? all : QRect(QPoint(0, 0), one.size());
}

class DesktopColours : public EveryMode {
  protected:
    DesktopColours() : before_(QApplication::palette()), flash_(QApplication::cursorFlashTime()) {
        QApplication::setCursorFlashTime(0);
    }
    ~DesktopColours() override {
        QApplication::setPalette(before_);
        QApplication::setCursorFlashTime(flash_);
    }

    std::vector<QImage> Pictures(const QPalette& desktop, const std::vector<Mode>& modes) {
        QApplication::setPalette(desktop);
        std::vector<QImage> pictures;
        for (const Mode& mode : modes) {
            ComeUp();
            mode.reach();
            QApplication::processEvents();
            pictures.push_back(Window().grab().toImage());
        }
        return pictures;
    }
    void LookAtTheLegend() {
        Press(Qt::Key_F8);
        Window().lstLegend->setFocus();
        Press(Qt::Key_Down);
    }

  private:
    QPalette before_;
    int flash_;
};

}  // namespace

TEST_F(DesktopColours, AreNotSeenInAnyMode) {
    std::vector<Mode> modes = Modes();
    modes.push_back({"a line of the legend", [this] { LookAtTheLegend(); }});
    modes.push_back({"a file without holdings", [this] {
                         MakeFile({});
                         Start();
                     }});
    // Two desktops that have no colour in common.
    const std::vector<QImage> dark = Pictures(Dark(), modes);
    const std::vector<QImage> strong = Pictures(HighContrast(), modes);
    for (std::size_t i = 0; i < modes.size(); ++i) {
        EXPECT_EQ(Difference(dark[i], strong[i]), QRect()) << modes[i].name;
    }
}
