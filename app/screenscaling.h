#pragma once
// The window on screens and in sizes other than the design's: everything keeps its proportions.

#include "app/controller.h"

#include <QSize>

class ScreenScaling : Controller {
  public:
    explicit ScreenScaling(frmPPM& ppm);

    void ScaleToScreen(float factor);
    /// Makes the window as it comes up no larger than `room`, and as wide as that, which the
    /// diagram gets; its fonts stay as they are.
    void FitInto(const QSize& room);

  private:
    void Form_Resize(const QSize& size);
    void ComeUpIn(const QSize& size);

    float factor_ = 1;  ///< the screen's, which the fonts were chosen for
    QSize
        unresized_;  ///< the window's size on that screen, without what it is wider than the design
};
