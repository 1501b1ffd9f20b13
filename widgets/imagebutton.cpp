#include "widgets/imagebutton.h"

#include <QMouseEvent>

ImageButton::ImageButton(QWidget* parent) : QToolButton(parent) {
    setAutoRaise(true);
    connect(this, &QToolButton::clicked, this, [this] {
        if (!byMouse_) emit MouseUp(Qt::LeftButton);
    });
}

void ImageButton::mousePressEvent(QMouseEvent* event) {
    QToolButton::mousePressEvent(event);
    // A right press is ours too: without this its release would go to the panel underneath.
    event->accept();
}

void ImageButton::mouseReleaseEvent(QMouseEvent* event) {
    byMouse_ = true;
    QToolButton::mouseReleaseEvent(event);
    byMouse_ = false;
    event->accept();
    if (rect().contains(event->position().toPoint())) emit MouseUp(event->button());
}
