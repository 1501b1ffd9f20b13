#pragma once
// The fund files that lie near, in the menu.

#include "app/controller.h"

#include <string>

class QAction;

class FileList : Controller {
  public:
    explicit FileList(frmPPM& window);

  private:
    void mnuArkiv_Open();
    void mnuFil_Click(int number);
    void mnuArkiv_Hover(QAction* item);
    void PointAt(const std::string& path);
};
