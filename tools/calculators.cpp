#include "tools/calculators.h"

#include "app/frmPPM.h"
#include "base/error.h"
#include "base/keyfilter.h"
#include "base/pastedtext.h"
#include "platform/caption.h"
#include "tools/rules/percent.h"
#include "tools/rules/translate.h"
#include "widgets/entryfield.h"

#include <QLabel>
#include <QPushButton>

#include <string>

namespace {

void ShowTwoDecimals(EntryField& box) {
    const std::string text = Caption(&box);
    if (!text.empty()) SetCaption(&box, WithTwoDecimals(text));
}

}  // namespace

Calculators::Calculators(frmPPM& ppm) : Controller(ppm) {
    for (EntryField* box : {window.txtprcStart, window.txtprcNy}) {
        box->SetFilter(kPercentKeys);
        box->SetPasteFilter(PastedNumber);
        On(box, &EntryField::Left, [box] { ShowTwoDecimals(*box); });
    }
    window.txtprcStart->SetEnter([this] {
        SetCaption(window.txtprcNy, "");
        window.txtprcNy->setFocus();
    });
    window.txtprcNy->SetEnter([this] { window.cmdPrc->setFocus(); });
    window.txtTranslate->SetEnter([] {});
    On(window.cmdPrc, &QPushButton::clicked, [this] { cmdPrc_Click(); });
    On(window.cmdTranslate, &QPushButton::clicked, [this] { cmdTranslate_Click(); });
}

void Calculators::cmdPrc_Click() {
    const std::string start = Caption(window.txtprcStart);
    const std::string present = Caption(window.txtprcNy);
    if (start.empty() || present.empty()) return;
    Skipping skip;
    skip([&] { SetCaption(window.lblprcSvar, PercentAnswer(start, present)); });
}

void Calculators::cmdTranslate_Click() {
    const std::string text = Caption(window.txtTranslate);
    if (text.empty()) return;
    Skipping skip;
    skip([&] { SetCaption(window.txtTranslate, Translated(text)); });
}
