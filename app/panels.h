#pragma once
// The one writer of what the window shows: visibility, enabledness, captions, tags and focus of the
// panels and of every control that more than one concern's events change. Decides nothing: the
// table in rules/shown.h does.

#include "app/controls.h"
#include "app/rules/shown.h"

#include <vector>

class QMainWindow;

class Panels {
  public:
    Panels(QMainWindow& window, Controls& controls) : window_(window), controls_(controls) {}

    /// Sets what differs from what the controls show, and nothing else. New panels come before the
    /// old ones go, so that the keys never fall to a control by chance.
    void Show(const Shown& shown);

  private:
    void ShowCaptions(const Shown::Captions& captions);
    void ShowCurves(const Shown& shown);
    void ShowFiles(const std::vector<Shown::FileItem>& files);
    void ShowTags(const Shown::Tags& tags);
    void ShowFundPanel(const HoldingView& view);
    void ShowStatus(const StatusTexts& texts);
    void ShowListColour(ListUse use);
    void Enable(const Shown::Enabled& enabled, bool which);
    void Reveal(const Shown::Visible& visible, bool which);
    void GiveFocus(Focus focus);
    void KeepFocusInSight(const Shown& shown);

    QMainWindow& window_;
    Controls& controls_;
};
