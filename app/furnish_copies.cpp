// The safety copies: the list of them, what differs in the one that is chosen, and its button.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/qttext.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

void FurnishCopies(frmPPM& window) {
    auto* panel = window.panKopior = Named(new QGroupBox(window.centralWidget()), "panKopior");
    Placed(window, panel, places::kLeftColumn);
    window.layout.Elastic(panel, {}, {390, 5160});
    panel->setTitle(ToQt("Återställ kopia"));
    panel->hide();

    window.lstKopior = Named(new QListWidget(panel), "lstKopior");
    Placed(window, window.lstKopior, {120, 390, 3300, 2600});
    window.lstKopior->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Speak(window.lstKopior, "Säkerhetskopior, den nyaste först");

    window.lblKopia = Named(new QLabel(panel), "lblKopia");
    Placed(window, window.lblKopia, {180, 3080, 3180, 2080});
    window.lblKopia->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    window.lblKopia->setWordWrap(true);
    window.lblKopia->setTextFormat(Qt::PlainText);
    Speak(window.lblKopia, "Vad som skiljer kopian från filen nu");

    window.cmdAterstall = Named(new QPushButton(ToQt("&Återställ"), panel), "cmdAterstall");
    Placed(window, window.cmdAterstall, {1920, 5250, 1500, 405});
    Speak(window.cmdAterstall, "Återställ filen från kopian");
}
