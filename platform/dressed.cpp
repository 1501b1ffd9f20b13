#include "platform/dressed.h"

#include <QDialog>
#include <QFont>
#include <QFontMetrics>
#include <QGridLayout>
#include <QMessageBox>
#include <QScreen>
#include <QSize>
#include <QSizePolicy>
#include <QSpacerItem>
#include <QWidget>

#include <algorithm>

namespace {

constexpr double kLeastPoints = 8;

QSize Needed(const QDialog& dialog) {
    return dialog.minimumSizeHint().expandedTo(dialog.minimumSize());
}

bool Fits(const QSize& size, const QSize& room) {
    return size.width() <= room.width() && size.height() <= room.height();
}

}  // namespace

void DressAsWindow(QDialog& dialog) {
    const QWidget* parent = dialog.parentWidget();
    QFont font = parent == nullptr ? dialog.font() : parent->window()->font();
    const QSize room = dialog.screen()->availableSize();
    const double least = std::min(kLeastPoints, font.pointSizeF());
    dialog.setFont(font);
    while (!Fits(Needed(dialog), room) && font.pointSizeF() > least) {
        font.setPointSizeF(std::max(least, font.pointSizeF() - 0.5));
        dialog.setFont(font);
    }
    dialog.resize(dialog.sizeHint().boundedTo(room));
}

void MakeRoomForTitle(QMessageBox& box) {
    // The bar's letters are the desktop's and often bold; beside them stand its icon and buttons.
    constexpr int kBesideTitle = 8;  // letters as wide as they are high
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (grid == nullptr) return;
    QFont bold = box.font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    const int width =
        metrics.horizontalAdvance(box.windowTitle()) + kBesideTitle * metrics.height();
    grid->addItem(new QSpacerItem(width, 0, QSizePolicy::Minimum, QSizePolicy::Minimum),
                  grid->rowCount(), 0, 1, grid->columnCount());
}
