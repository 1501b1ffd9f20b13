#include "app/frmPPM.h"

#include "app/furnish.h"
#include "app/panels.h"
#include "platform/commondialog.h"
#include "platform/platform.h"
#include "widgets/diagramview.h"

#include <utility>

frmPPM::frmPPM(Platform& outside, QWidget* parent)
    : QMainWindow(parent),
      platform(outside),
      messages(outside.dialogs),
      dialog_(std::make_unique<CommonDialog>(outside.dialogs)),
      panels_(std::make_unique<Panels>(*this, *this)) {
    CmDialog = dialog_.get();
    Furnish(*this);
}

frmPPM::~frmPPM() = default;

void frmPPM::Put(WindowState next) {
    const Picture change = std::exchange(next.picture, Picture::Stays);
    static_cast<WindowState&>(*this) = std::move(next);
    ShowState();
    if (change == Picture::Stays) return;
    picDiagram->Clear();
    if (change == Picture::Restored) PlotCurves();
}

void frmPPM::ShowState() {
    showAgain_ = true;
    if (showing_) return;
    showing_ = true;
    while (std::exchange(showAgain_, false)) {
        const Shown shown = ShownBy(*this);
        focus = Focus::Stays;
        typedPrice = TypedPrice::Stays;
        news.clear();
        panels_->Show(shown);
    }
    showing_ = false;
}
