#pragma once
// The percent calculator and the translator between dates and day numbers.

#include "app/controller.h"

class Calculators : Controller {
  public:
    explicit Calculators(frmPPM& ppm);

  private:
    void cmdPrc_Click();
    void cmdTranslate_Click();
};
