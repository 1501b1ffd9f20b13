// The plot data panel: the grid of points, the percent calculator and the date translator.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/qttext.h"
#include "widgets/datagrid.h"
#include "widgets/entryfield.h"
#include "widgets/speech.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

#include <string_view>

namespace {

EntryField* Field(frmPPM& window, const char* name, const TwipRect& rect, std::string_view spoken) {
    auto* field = Named(new EntryField(window.panPlottData), name);
    Placed(window, field, rect);
    field->setAlignment(Qt::AlignRight);
    Speak(field, spoken);
    return field;
}

/// Above the grid: whose points it shows, and the day to go to.
void FurnishSearch(frmPPM& window) {
    window.cboSokFond = Named(new QComboBox(window.panPlottData), "cboSokFond");
    Placed(window, window.cboSokFond, {60, 375, 1950, 345}, kSmallPoints);
    window.cboSokFond->setMinimumContentsLength(1);
    // A screen reader calls it by its choice; what it chooses is said by a label that nobody sees.
    Heading(window.panPlottData, "Fond vars punkter visas", window.cboSokFond)->hide();
    Speak(window.cboSokFond, "Fond vars punkter visas");
    Tip(window.cboSokFond, "Visa bara en fonds punkter");
    window.txtSokDag = Field(window, "txtSokDag", {2070, 375, 1410, 345}, "Dag att gå till");
    window.txtSokDag->setPlaceholderText(ToQt("Dag"));
    Tip(window.txtSokDag, "Skriv en dag, till exempel 2026-11-13, och tryck Enter");
}

/// Under it: the current point in kronor.
void FurnishPoint(frmPPM& window) {
    window.lblPunkt = Named(new QLabel(window.panPlottData), "lblPunkt");
    Placed(window, window.lblPunkt, {60, 3570, 2190, 330}, kSmallPoints);
    window.lblPunkt->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Speak(window.lblPunkt, "Punktens dag och ändring i procent");
    window.txtPunktKr =
        Field(window, "txtPunktKr", {2310, 3570, 900, 330}, "Punktens kurs i kronor");
    Tip(window.txtPunktKr, "Skriv rätt kurs och tryck Enter");
    auto* unit = Named(new QLabel(ToQt("kr"), window.panPlottData), "lblPunktKr");
    Placed(window, unit, {3255, 3570, 225, 330}, kSmallPoints);
    speech::Silence(unit);  // the field's name has it
}

void FurnishPercentCalculator(frmPPM& window) {
    window.txtprcStart =
        Field(window, "txtprcStart", {120, 4260, 1020, 345}, "Procent: startvärde");
    window.txtprcNy = Field(window, "txtprcNy", {1230, 4260, 1020, 345}, "Procent: nytt värde");
    window.cmdPrc = Named(new QPushButton(ToQt("&Räkna"), window.panPlottData), "cmdPrc");
    Placed(window, window.cmdPrc, {2340, 4260, 1080, 345});
    Speak(window.cmdPrc, "Räkna ut ändringen i procent");
    window.lblprcSvar = Named(new QLabel(window.panPlottData), "lblprcSvar");
    Placed(window, window.lblprcSvar, {2340, 4005, 1080, 240}, 10);
    window.lblprcSvar->setAlignment(Qt::AlignCenter);
    Speak(window.lblprcSvar, "Ändring i procent");
    Placed(window, Heading(window.panPlottData, "&Startvärde", window.txtprcStart),
           {120, 4005, 1080, 240}, kSmallPoints);
    Placed(window, Heading(window.panPlottData, "N&ytt värde", window.txtprcNy),
           {1230, 4005, 1080, 240}, kSmallPoints);
}

void FurnishTranslator(frmPPM& window) {
    window.txtTranslate =
        Field(window, "txtTranslate", {120, 5130, 2130, 345}, "Datum eller dagnummer");
    window.cmdTranslate =
        Named(new QPushButton(ToQt("Översä&tt"), window.panPlottData), "cmdTranslate");
    Placed(window, window.cmdTranslate, {2340, 5130, 1080, 345});
    Speak(window.cmdTranslate, "Översätt mellan datum och dagnummer");
    Placed(window, Heading(window.panPlottData, "Dagnummer &eller datum", window.txtTranslate),
           {120, 4875, 3300, 240}, kSmallPoints);
}

}  // namespace

void FurnishPlotData(frmPPM& window) {
    auto* panel = window.panPlottData =
        Named(new QGroupBox(window.centralWidget()), "panPlottData");
    Placed(window, panel, places::kLeftColumn);
    Speak(panel, "Plottdata");
    window.layout.Elastic(panel, {}, {780, 3510});
    panel->hide();

    window.lblRecCount = Named(new QLabel(panel), "lblRecCount");
    Placed(window, window.lblRecCount, {150, 75, 3240, 270});
    Speak(window.lblRecCount, "Antal poster");
    FurnishSearch(window);
    window.GridPlott = Named(new DataGrid(panel), "GridPlott");
    Placed(window, window.GridPlott, {60, 780, 3420, 2730}, kSmallPoints, FontKind::Grid);
    window.GridPlott->SetGridCaption(ToQt("X och Y koordinater för plotting"));
    Speak(window.GridPlott, "Kurvornas punkter");
    FurnishPoint(window);
    FurnishPercentCalculator(window);
    FurnishTranslator(window);
}
