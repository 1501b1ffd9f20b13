// The heading band and the status bar.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "app/rules/texts.h"
#include "fundfile/rules/texts.h"
#include "widgets/statuspanels.h"
#include "widgets/valuelabel.h"

#include <QFont>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>

#include <string_view>

void FurnishHeading(frmPPM& window) {
    auto* band = window.panRubrik = Named(new QFrame(window.centralWidget()), "panRubrik");
    Placed(window, band, places::kHeading);
    Speak(band, "Rubrik");
    band->hide();

    window.lblRubrik = Named(new ValueLabel(band), "lblRubrik");
    Placed(window, window.lblRubrik, {180, 30, 6900, 450}, 13);
    window.lblRubrik->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    QFont bold = window.lblRubrik->font();
    bold.setBold(true);
    window.lblRubrik->setFont(bold);

    window.lblPanDatum = Named(new QLabel(band), "lblPanDatum");
    Placed(window, window.lblPanDatum, {7200, 30, 4380, 450}, 10);
    window.lblPanDatum->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Speak(window.lblPanDatum, "Dagens datum");
}

/// Keys and the mouse go through it; it stands over all panels.
void FurnishDropFrame(frmPPM& window) {
    auto* frame = window.fraSlapp = Named(new QGroupBox(window.centralWidget()), "fraSlapp");
    Placed(window, frame, places::kWholeWindow);
    frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    frame->hide();
    window.setAcceptDrops(true);
}

void FurnishStatusBar(frmPPM& window) {
    struct Panel {
        int number;
        float widthTwips;
        int share;
    };
    static constexpr Panel kPanels[] = {{1, 120, 0},  {2, 2400, 2}, {3, 2400, 1},
                                        {4, 2100, 1}, {5, 1050, 0}, {6, 1500, 1}};
    window.staBar = Named(new StatusPanels(std::ssize(kPanels), window.centralWidget()), "staBar");
    Placed(window, window.staBar, places::kStatusBar);
    Speak(window.staBar, "Statusrad");
    StatusPanels* bar = window.staBar;
    const std::string_view kEmpty[] = {texts::NoFund, texts::StartPrice, texts::LatestPrice,
                                       texts::NoPercent, texts::NoValue};
    for (int i = 0; i < 5; ++i) bar->SetText(i + 2, kEmpty[i]);
    bar->SetSpokenName(statuspanel::kFund, "Fond");
    bar->SetSpokenName(statuspanel::kChange, "Ändring");
    bar->SetSpokenName(statuspanel::kValue, "Värde i kronor");
    window.layout.AlsoScale([bar](const Scaling& scaling) {
        for (const Panel& panel : kPanels) {
            const int width = Pixels(panel.widthTwips * scaling.window.across);
            bar->SetMinimumPanelWidth(panel.number, width, panel.share);
        }
    });
}
