#pragma once
// The yearly notice of new shares for the holding that is current in the grid: its entry row, and
// what is written over the holding.

#include "app/controller.h"
#include "entry/rules/newshares.h"

class NewSharesNotice : Controller {
  public:
    explicit NewSharesNotice(frmPPM& ppm);

  private:
    void cmdNyAndel_Click();
    void cmdNyOk_Click();
    /// Box 5 alone has work of its own; txtNyAndel_KeyPress and txtNyAndel_LostFocus, the key
    /// filter and the colours, are those of every EntryField.
    void txtNyAndel_GotFocus(int index);

    void OpenRow();
    void CloseRow();
    void ForgetTyping();
    NoticeBoxes Texts() const;
    void Store(const Notice& notice);
    void ShowOpenHoldingAgain();
};
