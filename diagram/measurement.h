#pragma once
// Measuring with the mouse: a cross-hair follows the pointer while a button is held, and two labels
// say the date and the value under it.

#include "app/controller.h"
#include "app/rules/windowstate.h"
#include "widgets/rules/stroke.h"

#include <Qt>

#include <optional>

class Measurement : Controller {
  public:
    explicit Measurement(frmPPM& ppm);

  private:
    void picDiagram_MouseDown(Qt::MouseButton button, Point at);
    void picDiagram_MouseMove(Qt::MouseButtons buttons, Point at);
    void picDiagram_MouseUp(Qt::MouseButton button, Point at);

    Reading ReadingAt(Point at, bool inKronor) const;
    void Put(Reading reading);
    std::optional<double> BasePrice(bool inKronor) const;
};
