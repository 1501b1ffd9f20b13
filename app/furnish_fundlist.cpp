// The column at the left: the fund list with its two hints, and the panel with buttons and price
// field under it.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/look.h"
#include "app/places.h"
#include "platform/qttext.h"
#include "widgets/colours.h"
#include "widgets/entryfield.h"
#include "widgets/imagebutton.h"
#include "widgets/listlines.h"
#include "widgets/tag.h"
#include "widgets/titledframe.h"

#include <QFrame>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QVBoxLayout>

#include <string_view>

namespace {

ImageButton* Image(frmPPM& window, const QString& picture, float left, std::string_view spoken,
                   std::string_view tip) {
    auto* button = PictureButton(window, window.panControl, {left, 1140, 420, 390}, picture);
    Speak(button, spoken);
    Tip(button, tip);
    return button;
}

QLabel* Hint(QWidget* parent, const char* name) {
    auto* label = Named(new QLabel(parent), name);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->hide();
    return label;
}

}  // namespace

void FurnishFundList(frmPPM& window) {
    auto* panel = Named(new TitledFrame(window.centralWidget()), "panListFonder");
    panel->SetUntitled(ToQt("Fonder"));
    window.panListFonder = panel;
    Placed(window, panel, places::kLeftColumn);
    panel->hide();

    // The hints take room from the list only while they show.
    window.lstFonder = Named(new QListWidget(panel), "lstFonder");
    window.lblGrafNr = Hint(panel, "lblGrafNr");
    window.lblPlottInfo = Hint(panel, "lblPlottInfo");
    auto* column = new QVBoxLayout(panel);
    column->addWidget(window.lstFonder, 1);
    column->addWidget(window.lblGrafNr);
    column->addWidget(window.lblPlottInfo);
    window.layout.AlsoScale([column](const Scaling& scaling) {
        const int side = Pixels(120 * scaling.rigid.across);
        column->setContentsMargins(side, Pixels(390 * scaling.rigid.down), side,
                                   Pixels(120 * scaling.rigid.down));
        column->setSpacing(Pixels(90 * scaling.rigid.down));
    });
    window.layout.SetFont(window.lstFonder, kTextPoints, FontKind::List);
    QListWidget* list = window.lstFonder;
    window.layout.AlsoScale(
        [list](const Scaling& scaling) { list->setSpacing(Pixels(15 * scaling.rigid.down) - 1); });
    window.lstFonder->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    Named(window.lstFonder->verticalScrollBar(), "lstFonderBar");
    window.lstFonder->setItemDelegate(new ListLines(window.lstFonder));
    window.lstFonder->setTextElideMode(Qt::ElideRight);
    window.lstFonder->setUniformItemSizes(true);
    look::SetTextColour(*window.lstFonder, colours::kListGreen);
    Speak(panel, "Fondlista");
    Speak(window.lstFonder, "Fonder");
    Speak(window.lblGrafNr, "Valda kurvor");
    Speak(window.lblPlottInfo, "Anvisning");
}

void FurnishControlPanel(frmPPM& window) {
    auto* panel = window.panControl = Named(new QFrame(window.centralWidget()), "panControl");
    Placed(window, panel, places::kControls);
    Speak(panel, "Kurs och knappar");
    panel->hide();

    window.cmdFondList = Named(new QPushButton(ToQt("Ny Dags&kurs"), panel), "cmdFondList");
    Placed(window, window.cmdFondList, {150, 135, 1575, 405});
    Speak(window.cmdFondList, "Ny dagskurs");
    Tip(window.cmdFondList, "Öppnar eller stänger fondlistan  <F11>");

    window.cmdPPMData = Named(new QPushButton(ToQt("&PPM Data"), panel), "cmdPPMData");
    Placed(window, window.cmdPPMData, {1815, 135, 1575, 405});
    Tip(window.cmdPPMData, "Växlar mellan diagrammet och innehaven");

    window.txtValue = Named(new EntryField(panel), "txtValue");
    Placed(window, window.txtValue, {1815, 645, 1575, 390}, 10);
    window.txtValue->setAlignment(Qt::AlignRight);
    Speak(window.txtValue, "Dagens kurs i kronor");
    Tip(window.txtValue, "Skriv dagens kurs och tryck <Enter>");
    QLabel* heading = Heading(panel, "Dagens k&urs, kr", window.txtValue);
    Placed(window, heading, {150, 645, 1590, 390});

    window.imgScreen = Named(Image(window, QStringLiteral(":/icons/screen.svg"), 150,
                                   "Rita om diagrammet", "Visar de valda kurvorna igen  <F8>"),
                             "imgScreen");
    window.imgColor = Named(Image(window, QStringLiteral(":/icons/colour.svg"), 660, "Färgknapp",
                                  "Färgknapp  Välj färg till Fondkurva  "),
                            "imgColor");
    window.imgGrafNr = Named(Image(window, QStringLiteral(":/icons/curves.svg"), 1170,
                                   "Diagramknapp", "Diagramknapp  Välj Fonder att visa      "),
                             "imgGrafNr");
    // Their tips begin with their names.
    window.imgColor->setAccessibleDescription(ToQt("Välj färg till fondkurva  <F9>"));
    window.imgGrafNr->setAccessibleDescription(ToQt("Välj fonder att visa  <F12>"));
    for (ImageButton* button : {window.imgColor, window.imgGrafNr}) {
        SetTag(button, "0");
        button->hide();
    }
}
