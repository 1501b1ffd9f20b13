// The holdings panel: the grid, the account fields and the entry row of a new shares notice.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/places.h"
#include "platform/qttext.h"
#include "widgets/boundfield.h"
#include "widgets/colours.h"
#include "widgets/datagrid.h"

#include <QFont>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPalette>
#include <QPushButton>

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr float kAccountTop = 3570;
constexpr float kBottomTop = 4230;
constexpr float kBottomHeight = 1440;
constexpr int kFirstNumber = 3;  // of the boxes for a new shares notice

// Every line fits its box in the smallest window.
constexpr std::string_view kGridHelp =
    "Fyll i Fond, Fond Nr (som 249 995), Datum (2000-12-31, 01-12-31, 01/12/31) och Kurs Kr.\n"
    "Utan nummer: 999 999, aktie ett påhittat. Värde Kr är låst: Fondandelar x Kurs Kr.\n"
    "Ny fond skrivs på sista raden, som är tom. Raden sparas när du går till en annan rad.\n"
    "Ändra: lägg upp fonden en gång till med nytt datum och radera den gamla.\n"
    "Radera: markera raden längst till vänster (eller <Skift+Blank>) och tryck <Delete>.";

/// Writes it in `font`, or as much smaller as all of it needs; in no smaller one than `least`.
void FitHelp(QLabel& help, QFont font, double least) {
    help.setFont(font);
    const auto fits = [&] { return help.heightForWidth(help.width()) <= help.height(); };
    for (double points = font.pointSizeF(); points > least && !fits();) {
        points = std::max(least, points - 0.5);
        font.setPointSizeF(points);
        help.setFont(font);
    }
}

BoundField* AccountField(frmPPM& window, const char* name, float left, float width) {
    auto* field = Named(new BoundField(window.panBasData), name);
    return Placed(window, field, {left, kAccountTop + 240, width, 345});
}

void FurnishAccountFields(frmPPM& window) {
    struct Field {
        BoundField*& field;
        const char* name;
        std::string_view heading, spoken, tip;
        float left, width;
    };
    const Field fields[] = {
        {window.txtKontoNr, "txtKontoNr", "Kon&tonummer", "Kontonummer",
         "Ej Obligatorisk uppgift  ", 120, 2700},
        {window.txtPnr, "txtPnr", "Konto&innehavare", "Kontoinnehavare, personnummer",
         "Ej Obligatorisk uppgift  ", 2940, 2700},
        {window.txtNamn, "txtNamn", "&Namn på kontot", "Namn på kontot",
         "Det här fältet bör du alltid fylla i. Obs du måste marker en rad ovan    ", 5760, 5880}};
    for (const Field& one : fields) {
        one.field = AccountField(window, one.name, one.left, one.width);
        Placed(window, Heading(window.panBasData, one.heading, one.field),
               {one.left, kAccountTop, one.width, 240}, kSmallPoints);
        Speak(one.field, one.spoken);
        Tip(one.field, one.tip);
    }
}

void FurnishGridHelp(frmPPM& window) {
    auto* help = window.txtGrid = Named(new QLabel(window.panBasData), "txtGrid");
    Placed(window, help, {2100, kBottomTop, 9540, kBottomHeight}, kSmallPoints);
    help->setTextFormat(Qt::PlainText);
    help->setText(ToQt(kGridHelp));
    help->setWordWrap(true);
    help->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    window.layout.AlsoScale([help, small = window.lblMonth[1]](const Scaling& scaling) {
        help->setMargin(std::min(4, Pixels(30 * scaling.rigid.down)));
        FitHelp(*help, small->font(), static_cast<double>(scaling.smallestPoints));
    });
    help->setAutoFillBackground(true);
    help->setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette palette = help->palette();
    palette.setColor(QPalette::Window, ToQColor(colours::kNotice));
    palette.setColor(QPalette::WindowText, ToQColor(colours::kText));
    help->setPalette(palette);
    Tip(help, "Klick tar bort denna info  ");
    Speak(help, "Så fyller du i innehaven");
}

void FurnishNewShares(frmPPM& window) {
    window.cmdNyAndel =
        Named(new QPushButton(ToQt("Nya And&elar"), window.panBasData), "cmdNyAndel");
    Placed(window, window.cmdNyAndel, {120, kBottomTop, 1800, 405});
    Speak(window.cmdNyAndel, "Nya andelar för vald fond");
    Tip(window.cmdNyAndel, "Meddelande om nya andelar för fonden på den valda raden");

    auto* frame = window.fraNyAndel = Named(new QGroupBox(window.panBasData), "fraNyAndel");
    Placed(window, frame, {120, kBottomTop, 10380, kBottomHeight});
    window.layout.Elastic(frame, {120, 2340}, {0, kBottomHeight});
    frame->setTitle(ToQt("UppDatera Nya Andelar "));
    frame->hide();

    struct Box {
        std::string_view heading, tip;
        float width;
    };
    static constexpr std::array<Box, 7> kBoxes = {{{"Fond", "", 2220},
                                                   {"Fond Nr", "", 960},
                                                   {"Nytt Datum", "Nytt Datum ", 1260},
                                                   {"Nya Fondandelar", "Nya Fondandelar ", 1440},
                                                   {"Ny Kurs Kr", "Ny Kurs Kr ", 1140},
                                                   {"Nya värdet", "Nya värdet ", 1620},
                                                   {"Ny Andel i %", "Ny Andel i % ", 1140}}};
    float left = 120;
    for (int i = 0; i < static_cast<int>(kBoxes.size()); ++i) {
        const Box& box = kBoxes[static_cast<std::size_t>(i)];
        window.lblNyAndel[i] = Named(Heading(frame, box.heading), "lblNyAndel", i);
        Placed(window, window.lblNyAndel[i], {left, 450, box.width, 240}, kSmallPoints);
        auto* field = window.txtNyAndel[i] = Named(new BoundField(frame), "txtNyAndel", i);
        Placed(window, field, {left, 705, box.width, 345});
        if (i >= kFirstNumber) field->setAlignment(Qt::AlignRight);
        window.lblNyAndel[i]->setBuddy(field);
        Speak(field, box.heading);
        Tip(field, box.tip);
        field->hide();
        left += box.width + 60;
    }
    window.cmdNyOk = Named(new QPushButton(ToQt("&Ok"), window.panBasData), "cmdNyOk");
    Placed(window, window.cmdNyOk, {10620, kBottomTop + 675, 1020, 405});
    Speak(window.cmdNyOk, "Spara de nya andelarna");
    window.cmdNyOk->hide();
}

}  // namespace

void FurnishHoldings(frmPPM& window) {
    auto* panel = window.panBasData = Named(new QGroupBox(window.centralWidget()), "panBasData");
    Placed(window, panel, places::kWholeWidth);
    // The grid takes what is left; across, the last of the fields and the help do.
    window.layout.Elastic(panel, {5760, 10380}, {375, 3495});
    panel->setTitle(ToQt("PPM Start Data"));
    panel->hide();

    window.DBGrid = Named(new DataGrid(panel), "DBGrid");
    Placed(window, window.DBGrid, {120, 375, 11520, 3120}, kTextPoints, FontKind::Grid);
    Speak(window.DBGrid, "Innehav");
    FurnishAccountFields(window);
    FurnishGridHelp(window);
    FurnishNewShares(window);
}
