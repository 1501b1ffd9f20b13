// The totals panel: the accounts, and the sums of the one that is chosen.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/qttext.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>

void FurnishTotals(frmPPM& window) {
    auto* panel = window.panTotal = Named(new QGroupBox(window.centralWidget()), "panTotal");
    Placed(window, panel, places::kLeftColumn);
    window.layout.Elastic(panel, {}, {390, 2790});
    panel->setTitle(ToQt("Totalt per konto"));
    panel->hide();

    window.lstTotal = Named(new QListWidget(panel), "lstTotal");
    Placed(window, window.lstTotal, {120, 390, 3300, 2400});
    window.lstTotal->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Speak(window.lstTotal, "Konton");

    window.lblTotal = Named(new QLabel(panel), "lblTotal");
    Placed(window, window.lblTotal, {180, 2910, 3180, 2760}, 10);
    window.lblTotal->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    window.lblTotal->setWordWrap(true);
    window.lblTotal->setTextFormat(Qt::PlainText);
    Speak(window.lblTotal, "Kontots summor");
}
