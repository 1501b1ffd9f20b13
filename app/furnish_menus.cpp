// The menus. The captions are the texts as given; the letters to press are found when a menu opens.

#include "app/furnish.h"
#include "app/furnishing.h"
#include "app/menuletters.h"
#include "app/rules/fileitem.h"
#include "platform/caption.h"
#include "platform/qttext.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

#include <string>
#include <string_view>
#include <vector>

namespace {

QAction* Item(QMenu* menu, const char* name, std::string_view caption) {
    QAction* action = Named(menu->addAction(ToQt(caption)), name);
    action->setMenuRole(QAction::NoRole);
    return action;
}

QMenu* Menu(frmPPM& window, const char* name, std::string_view caption) {
    QMenu* menu = Named(window.menuBar()->addMenu(ToQt(caption)), name);
    menu->menuAction()->setObjectName(menu->objectName() + QStringLiteral("_action"));
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu] { MarkLetters(*menu); });
    QObject::connect(menu, &QMenu::aboutToHide, menu, [menu] { UnmarkLetters(*menu); });
    window.layout.SetFont(menu, kTextPoints, FontKind::Control);
    return menu;
}

/// For the fund files that lie near.
void FurnishListedFiles(frmPPM& window) {
    for (int i = decltype(window.mnuFil)::kFirst; i <= decltype(window.mnuFil)::kLast; ++i) {
        QAction* item = window.mnuFil[i] =
            Named(window.mnuArkiv->addAction(ToQt(FileItemCaption(i, ""))), "mnuFil", i);
        item->setCheckable(true);
        item->setVisible(false);
        item->setMenuRole(QAction::NoRole);
    }
}

void FurnishFileMenu(frmPPM& window) {
    QMenu* file = window.mnuArkiv = Menu(window, "mnuArkiv", "&Arkiv");
    window.mnuNew = Item(file, "mnuNew", "Ny Fondfil");
    window.mnuNew->setShortcut(QKeySequence(QStringLiteral("Ctrl+N")));
    window.mnuOpen = Item(file, "mnuOpen", "Öppna");
    window.mnuOpen->setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));
    window.mnuSaveAs = Item(file, "mnuSaveAs", "Spara som..");
    window.mnuRadera = Item(file, "mnuRadera", "Radera Fondfil");
    file->addSeparator();
    window.mnuStartFile = Item(file, "mnuStartFile", "Starta Med...");
    window.mnuAterstall = Item(file, "mnuAterstall", "Återställ kopia...");
    file->addSeparator();
    window.mnuGranska = Item(file, "mnuGranska", "Förhandsgranska");
    window.mnuPrint = Item(file, "mnuPrint", "Skriv Ut");
    window.mnuPrint->setShortcut(QKeySequence(QStringLiteral("Ctrl+P")));
    window.mnuPdf = Item(file, "mnuPdf", "Spara som PDF...");
    file->addSeparator();
    window.mnuExportera = Item(file, "mnuExportera", "Exportera...");
    window.mnuImportera = Item(file, "mnuImportera", "Importera kurser...");
    file->addSeparator();
    FurnishListedFiles(window);
    file->addSeparator();
    window.mnuAvbryt = Item(file, "mnuAvbryt", "Avsluta");
}

void FurnishEditMenu(frmPPM& window) {
    QMenu* edit = window.mnuRedigera = Menu(window, "mnuRedigera", "Redi&gera");
    window.mnuAngra = Item(edit, "mnuAngra", "Ångra");
    window.mnuAngra->setShortcut(QKeySequence(QStringLiteral("Ctrl+Z")));
    window.mnuGorOm = Item(edit, "mnuGorOm", "Gör om");
    window.mnuGorOm->setShortcut(QKeySequence(QStringLiteral("Ctrl+Y")));
    edit->addSeparator();
    window.mnuSok = Item(edit, "mnuSok", "Sök punkt...");
    window.mnuSok->setShortcut(QKeySequence(QStringLiteral("Ctrl+F")));
}

void FurnishShowMenu(frmPPM& window) {
    QMenu* show = window.mnuShow = Menu(window, "mnuShow", "&Visa");
    // What the keys do; they themselves act when they are let go, by the keyboard's own rules.
    window.mnuDagskurs = Item(show, "mnuDagskurs", "Ny dagskurs\tF11");
    window.mnuRita = Item(show, "mnuRita", "Rita om\tF8");
    window.mnuKurvor = Item(show, "mnuKurvor", "Välj kurvor\tF12");
    window.mnuFarg = Item(show, "mnuFarg", "Byt färg\tF9");
    show->addSeparator();
    window.mnuAll = Item(show, "mnuAll", "Visa alla kurvor");
    show->addSeparator();
    window.mnuVeckor = Item(show, "mnuVeckor", "Visa Vecka för Vecka");
    window.mnuMonth = Item(show, "mnuMonth", "Visa Månad för Månad");
    show->addSeparator();
    window.mnuPlus = Item(show, "mnuPlus", "Zoom in..   +   Procent Skala");
    window.mnuMinus = Item(show, "mnuMinus", "Zoom ut..   --   Procent Skala");
    show->addSeparator();
    window.mnuKurser = Item(show, "mnuKurser", "Dagens kurser   F6");
    window.mnuOversikt = Item(show, "mnuOversikt", "Översikt   F7");
    window.mnuTotal = Item(show, "mnuTotal", "Totalt per konto");
    window.mnuPEdit = Item(show, "mnuPEdit", "Plott Editera");
    show->addSeparator();
    window.mnuFLogg = Item(show, "mnuFLogg", "FonderLogg");
    window.mnuNotePad = Item(show, "mnuNotePad", "Minnes Anteckningar");
}

}  // namespace

void FurnishMenus(frmPPM& window) {
    FurnishFileMenu(window);
    FurnishEditMenu(window);
    FurnishShowMenu(window);
    QMenu* help = window.mnuHjalp = Menu(window, "mnuHjalp", "&Hjälp");
    window.mnuHelp = Item(help, "mnuHelp", "Innehåll");

    // Until the start-up pause has ended.
    window.mnuArkiv->setEnabled(false);
    window.mnuRedigera->setEnabled(false);
    window.mnuShow->setEnabled(false);
}
