#pragma once
// The menu items that hand the log, the notes and the help to outside programs.

#include "app/controller.h"

#include <string_view>

class OutsidePrograms : Controller {
  public:
    explicit OutsidePrograms(frmPPM& ppm);

    /// The help at the page about what the window shows.
    void ShowHelpPage();

  private:
    void mnuFLogg_Click();
    void mnuNotePad_Click();
    void mnuHelp_Click();
    void Start(std::string_view command, std::string_view file, std::string_view failure);
};
