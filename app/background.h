#pragma once
// The window's background: a texture that begins with a strip at the upper left corner.

#include "app/controller.h"

#include <QPixmap>

class Background : Controller {
  public:
    explicit Background(frmPPM& ppm);

  private:
    void Form_Paint();
    void DrawStrip(qreal pixelRatio);

    QPixmap strip_;
};
