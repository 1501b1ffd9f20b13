#pragma once
// One change of the fund file as the user sees it: what is stored while one of these lives is taken
// back in one go.

#include "app/frmPPM.h"
#include "app/rules/changename.h"

#include <utility>

class Change {
  public:
    /// Inside another change it is a part of that one.
    Change(frmPPM& window, ChangeName name) : window_(window) {
        window_.BeginChange(std::move(name));
    }
    /// What follows from the last one, and belongs to it.
    explicit Change(frmPPM& window) : window_(window) { window_.ContinueChange(); }
    ~Change() { window_.EndChange(); }
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;

  private:
    frmPPM& window_;
};
