#pragma once
// What is typed while the fund list has the focus: a price goes to the price field, letters find a
// fund by its name.

#include "app/controller.h"
#include "app/rules/namesearch.h"

class QKeyEvent;

class ListTyping : Controller {
  public:
    explicit ListTyping(frmPPM& ppm);

  private:
    /// True swallows the key: the list has a search of its own, by number.
    bool lstFonder_KeyPress(const QKeyEvent& event);
    void TypePrice(const QKeyEvent& event);
    void FindFund(const QKeyEvent& event);
    void GoTo(int row);

    NameSearch search_;
};
