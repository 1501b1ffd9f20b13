// The part of the diagram's view that follows the pointer: what it says of it, and the curve that
// stands out.

#include "widgets/colours.h"
#include "widgets/curvenumbers.h"
#include "widgets/diagramview.h"
#include "widgets/rules/callout.h"

#include <QApplication>
#include <QColor>
#include <QContextMenuEvent>
#include <QCursor>
#include <QEvent>
#include <QFont>
#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <utility>

namespace {

constexpr double kReach = 12;  // pixels from the pointer to a curve that is meant
constexpr double kRing = 4;
constexpr double kNoteGap = 10;
constexpr double kNoteEdge = 5;

}  // namespace

std::optional<std::size_t> DiagramView::CurveNear(QPointF pixels) const {
    return NearestCurve(drawn_.extents, {pixels.x(), pixels.y()}, kReach);
}

void DiagramView::Light(std::optional<LitDrawing> lit) {
    if (lit_ == lit) return;
    lit_ = std::move(lit);
    update();
}

const Drawing* DiagramView::DrawingOf(std::int32_t kontoId) const {
    const auto found =
        std::find_if(drawings_.begin(), drawings_.end(),
                     [&](const Drawing& drawing) { return drawing.kontoId == kontoId; });
    return found == drawings_.end() ? nullptr : &*found;
}

QRectF DiagramView::NumberPlaceOf(std::int32_t kontoId) const {
    for (const NumberPlace& number : drawn_.numbers) {
        if (drawings_[number.curve].kontoId != kontoId) continue;
        return {number.box.left, number.box.top, number.box.width, number.box.height};
    }
    return {};
}

std::optional<std::int32_t> DiagramView::NumberAt(QPointF pixels) const {
    for (const NumberPlace& number : drawn_.numbers) {
        const std::int32_t kontoId = drawings_[number.curve].kontoId;
        if (NumberPlaceOf(kontoId).adjusted(-1, -1, 1, 1).contains(pixels)) return kontoId;
    }
    return std::nullopt;
}

void DiagramView::PaintLit(QPainter& painter) const {
    const Drawing* drawing = DrawingOf(lit_->kontoId);
    if (drawing == nullptr) return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(font());
    const StrokeSurface surface = Surface();
    DrawLitCurve(painter, *drawing, surface);
    for (const NumberPlace& number : drawn_.numbers) {
        if (&drawings_[number.curve] == drawing) DrawNumber(painter, *drawing, number.box, surface);
    }
    if (lit_->at) {
        const QPointF at = ToPixels(*lit_->at);
        painter.setPen(QPen(ToQColor(EdgeColour(drawing->colour).value_or(drawing->colour)), 2));
        painter.setBrush(ToQColor(kDiagramBackground));
        painter.drawEllipse(at, kRing, kRing);
        PaintNote(painter, at);
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setBrush(Qt::NoBrush);
}

void DiagramView::PaintNote(QPainter& painter, QPointF at) const {
    QFont bold = font();
    bold.setBold(true);
    const QFontMetricsF titles(bold), notes(font());
    const double wide =
        std::max(titles.horizontalAdvance(lit_->title), notes.horizontalAdvance(lit_->note));
    const double high = titles.height() + notes.height();
    const LabelBox place =
        CalloutPlace({at.x(), at.y()}, wide + 2 * kNoteEdge, high + 2 * kNoteEdge,
                     {1, 1, width() - 2.0, height() - 2.0}, kNoteGap);
    const QRectF box(place.left, place.top, place.width, place.height);
    painter.setPen(QPen(ToQColor(colours::kQuietText), 1));
    painter.setBrush(ToQColor(colours::kNotice));
    painter.drawRoundedRect(box, 3, 3);
    painter.setPen(ToQColor(colours::kText));
    const QRectF text = box.adjusted(kNoteEdge, kNoteEdge, -kNoteEdge, -kNoteEdge);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine, lit_->note);
    painter.setFont(bold);
    painter.drawText(text, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, lit_->title);
}

void DiagramView::mousePressEvent(QMouseEvent* event) {
    const bool left = event->button() == Qt::LeftButton;
    pressedNumber_ = left ? NumberAt(event->position()) : std::nullopt;
    pressedAt_ = event->position();
    emit Pressed(event->button(), ToUser(event->position()));
}

void DiagramView::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() != Qt::NoButton) {
        const QPointF dragged = event->position() - pressedAt_;
        if (dragged.manhattanLength() >= QApplication::startDragDistance()) pressedNumber_.reset();
        emit Moved(event->buttons(), ToUser(event->position()));
        return;
    }
    setCursor(NumberAt(event->position()) ? Qt::PointingHandCursor : Qt::CrossCursor);
    emit Hovered(event->position());
}

void DiagramView::mouseReleaseEvent(QMouseEvent* event) {
    emit Released(event->button(), ToUser(event->position()));
    const auto number = std::exchange(pressedNumber_, std::nullopt);
    if (number && NumberAt(event->position()) == number) emit NumberClicked(*number);
}

void DiagramView::leaveEvent(QEvent* event) {
    emit HoverEnded();
    QWidget::leaveEvent(event);
}

/// The right button measures: only the keyboard asks for a menu here.
void DiagramView::contextMenuEvent(QContextMenuEvent* event) {
    event->setAccepted(event->reason() != QContextMenuEvent::Keyboard);
}
