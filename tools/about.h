#pragma once
// "Om Kvarnbo": which version this is, and where its files lie.

#include "app/controller.h"

#include <string>

class About : Controller {
  public:
    explicit About(frmPPM& ppm);

  private:
    void mnuOm_Click();
    std::string Engine() const;
};
