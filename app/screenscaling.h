#pragma once
// The window on screens and in sizes other than the design's: everything keeps its proportions.

#include "app/controller.h"

#include <QSize>

class ScreenScaling : Controller {
  public:
    explicit ScreenScaling(frmPPM& window);

    void ScaleToScreen(float factor);

  private:
    void Form_Resize(const QSize& size);
    /// A frame round a window as large as the screen would push its lower edge out of sight.
    void FitFrame();

    float factor_ = 1;  ///< the screen's, which the fonts were chosen for
    bool fitted_ = false;
};
