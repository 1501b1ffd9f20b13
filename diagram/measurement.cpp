#include "diagram/measurement.h"

#include "app/frmPPM.h"
#include "base/number.h"
#include "diagram/diagramview.h"
#include "diagram/rules/reading.h"
#include "platform/caption.h"

#include <QLabel>

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
    ShowReading(at, button == Qt::RightButton);
}

void Measurement::picDiagram_MouseMove(Qt::MouseButtons buttons, Point at) {
    if (!Measures(buttons)) return;
    window.picDiagram->ShowCrossHair(at);
    // The labels, and not the stored scale, say what the picture shows: a zoom that was not drawn
    // changes only what is stored.
    const ScaleRange labelled{ParseInteger(Caption(window.lblVertical[6])),
                              ParseInteger(Caption(window.lblVertical[1]))};
    if (!InsideDiagram(at, labelled)) {
        SetCaption(window.lblXCord, "");
        SetCaption(window.lblYCord, "");
        return;
    }
    ShowReading(at, buttons.testFlag(Qt::RightButton));
}

void Measurement::picDiagram_MouseUp(Qt::MouseButton button, Point /*at*/) {
    if (!Measures(button)) return;
    window.picDiagram->HideCrossHair();
    window.lblXCord->setAutoFillBackground(false);
    window.lblYCord->setAutoFillBackground(false);
}

void Measurement::ShowReading(Point at, bool inKronor) {
    SetCaption(window.lblXCord, DateReading(at.x, window.WindowStartDay));
    SetCaption(window.lblYCord, ValueReading(at.y, BasePrice(inKronor)));
}

std::optional<float> Measurement::BasePrice(bool inKronor) const {
    if (!inKronor || !window.markers.HoldingChosen()) return std::nullopt;
    return window.markers.StartPrice();
}
