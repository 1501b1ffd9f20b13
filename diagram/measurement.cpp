#include "diagram/measurement.h"

#include "app/frmPPM.h"
#include "diagram/rules/reading.h"
#include "widgets/diagramview.h"

#include <QLabel>

#include <utility>

namespace {

bool Measures(Qt::MouseButtons buttons) {
    return buttons.testFlag(Qt::LeftButton) || buttons.testFlag(Qt::RightButton);
}

}  // namespace

Measurement::Measurement(frmPPM& ppm) : Controller(ppm) {
    On(window.picDiagram, &DiagramView::Pressed, this, &Measurement::picDiagram_MouseDown);
    On(window.picDiagram, &DiagramView::Moved, this, &Measurement::picDiagram_MouseMove);
    On(window.picDiagram, &DiagramView::Released, this, &Measurement::picDiagram_MouseUp);
}

void Measurement::picDiagram_MouseDown(Qt::MouseButton button, Point at) {
    if (!Measures(button)) return;
    window.lblXCord->setAutoFillBackground(true);
    window.lblYCord->setAutoFillBackground(true);
    window.picDiagram->HideCrossHair();
    Put(ReadingAt(at, button == Qt::RightButton));
}

void Measurement::picDiagram_MouseMove(Qt::MouseButtons buttons, Point at) {
    if (!Measures(buttons)) return;
    window.picDiagram->ShowCrossHair(at);
    if (!InsideDiagram(at, window.drawnScale)) return Put({});
    Put(ReadingAt(at, buttons.testFlag(Qt::RightButton)));
}

void Measurement::picDiagram_MouseUp(Qt::MouseButton button, Point /*at*/) {
    if (!Measures(button)) return;
    window.picDiagram->HideCrossHair();
    window.lblXCord->setAutoFillBackground(false);
    window.lblYCord->setAutoFillBackground(false);
}

Reading Measurement::ReadingAt(Point at, bool inKronor) const {
    return {DateReading(at.x, window.WindowStartDay), ValueReading(at.y, BasePrice(inKronor))};
}

void Measurement::Put(Reading reading) {
    window.reading = std::move(reading);
    window.ShowState();
}

std::optional<double> Measurement::BasePrice(bool inKronor) const {
    if (!inKronor || !window.holding) return std::nullopt;
    return window.holding->startPrice;
}
