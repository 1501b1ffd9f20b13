// The page of the day's round: the table with its field, how far the round has come, and what is
// said of the price.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "widgets/entryfield.h"
#include "widgets/texttable.h"
#include "widgets/valuelabel.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

namespace {

void FurnishTable(frmPPM& window) {
    auto* table = window.grdKurser = Named(new TextTable(window.panKurser), "grdKurser");
    Placed(window, table, {120, 735, 11520, 4455}, kTextPoints, FontKind::Grid);
    table->SetColumns({{"Nr", true, 4},
                       {"Fond", false, 21},
                       {"Konto", false, 15},
                       {"Senaste, kr", true, 11},
                       {"Dag", false, 11, "2026-11-13"},
                       {"Ny kurs, kr", true, 12},
                       {"Ändring", false, 22}});
    table->setFocusPolicy(Qt::ClickFocus);
    Speak(table, "Dagens kurser");

    auto* field = window.txtNyKurs = Named(new EntryField(table), "txtNyKurs");
    field->setAlignment(Qt::AlignRight);
    field->setFrame(false);
    window.layout.SetFont(field, kTextPoints, FontKind::Grid);
    Speak(field, "Ny kurs");
}

void FurnishDay(frmPPM& window) {
    auto* days = window.cboDag = Named(new QComboBox(window.panKurser), "cboDag");
    Placed(window, days, {7980, 345, 3660, 360});
    days->setMaxVisibleItems(16);
    Speak(days, "Dag som kurserna gäller");
    Tip(days, "Dag som kurserna gäller: idag, eller en vardag de senaste 60 dagarna");
    QLabel* heading = Heading(window.panKurser, "Da&g", days);
    heading->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Placed(window, heading, {6900, 345, 960, 360});
}

}  // namespace

void FurnishDayPrices(frmPPM& window) {
    auto* panel = window.panKurser = Named(new QGroupBox(window.centralWidget()), "panKurser");
    Placed(window, panel, places::kWholeWidth);
    window.layout.Elastic(panel, {3180, 6900}, {735, 5190});
    panel->hide();

    window.lblKlara = Named(new ValueLabel(panel), "lblKlara");
    Placed(window, window.lblKlara, {180, 375, 3000, 330}, 10);
    window.lblKlara->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Speak(window.lblKlara, "Så långt har du kommit");
    FurnishDay(window);
    FurnishTable(window);
    window.lblKursBesked = Named(new ValueLabel(panel), "lblKursBesked");
    Placed(window, window.lblKursBesked, {120, 5265, 11520, 360}, 10);
    window.lblKursBesked->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    window.lblKursBesked->setIndent(4);
    Speak(window.lblKursBesked, "Besked om kursen");
}
