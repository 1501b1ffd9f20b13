// Every control is there under its name, and can be reached and understood without a mouse and
// without seeing it.

#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"
#include "widgets/swatch.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QColor>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPalette>
#include <QVBoxLayout>

#include <set>

namespace {

class ControlsTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        Start();
    }
    std::vector<QAction*> Items(QMenu* menu) {
        std::vector<QAction*> items;
        for (QAction* action : menu->actions()) {
            if (!action->isSeparator()) items.push_back(action);
        }
        return items;
    }
};

const char* const kNames[] = {
    "panListFonder", "lstFonder",    "lblGrafNr",     "lblPlottInfo",  "panControl",
    "cmdFondList",   "cmdPPMData",   "txtValue",      "imgColor",      "imgGrafNr",
    "imgScreen",     "panDiagram",   "picDiagram",    "lblXCord",      "lblYCord",
    "lbLeftYear",    "lblRightYear", "Image4",        "Image5",        "panRubrik",
    "lblRubrik",     "lblPanDatum",  "fraStartData",  "shaPlottColor", "lblColorNr",
    "panBasData",    "DBGrid",       "txtKontoNr",    "txtPnr",        "txtNamn",
    "txtGrid",       "cmdNyAndel",   "cmdNyOk",       "panPlottData",  "GridPlott",
    "lblRecCount",   "txtprcStart",  "txtprcNy",      "cmdPrc",        "lblprcSvar",
    "txtTranslate",  "cmdTranslate", "panTotal",      "lstTotal",      "lblTotal",
    "staBar",        "dtaBasData",   "dtaPlott",      "dtaSQL",        "mnuArkiv",
    "mnuNew",        "mnuOpen",      "mnuSaveAs",     "mnuRadera",     "mnuStartFile",
    "mnuPrint",      "mnuAvbryt",    "mnuShow",       "mnuAll",        "mnuPlus",
    "mnuMinus",      "mnuVeckor",    "mnuMonth",      "mnuTotal",      "mnuPEdit",
    "mnuFLogg",      "mnuNotePad",   "mnuHelp",       "lblFraData_0",  "lblFraData_9",
    "lblMonth_1",    "lblMonth_12",  "lblVertical_1", "lblVertical_6", "txtNyAndel_0",
    "txtNyAndel_6",  "Line1",        "Line20",        "lblIngenFil",   "lblForhand",
    "panKurser",     "grdKurser",    "txtNyKurs",     "cboDag",        "lblKlara",
    "lblKursBesked", "panOversikt",  "grdOversikt",   "panKort",       "grdKort",
    "axlSaknas",     "mnuKurser",    "mnuOversikt",   "lstLegend",     "mnuDagskurs",
    "mnuRita",       "mnuKurvor",    "mnuFarg"};

/// The letter after "&", upper case; none without one.
QChar Mnemonic(const QString& text) {
    const qsizetype at = text.indexOf(QLatin1Char('&'));
    return at < 0 ? QChar() : text.at(at + 1).toUpper();
}

}  // namespace

TEST_F(ControlsTest, EveryControlHasItsName) {
    for (const char* name : kNames) {
        EXPECT_NE(Window().findChild<QObject*>(QString::fromLatin1(name)), nullptr) << name;
    }
}

TEST_F(ControlsTest, EveryControlThatTakesTheFocusSaysWhatItIs) {
    for (QWidget* control : Window().centralWidget()->findChildren<QWidget*>()) {
        if (control->objectName().isEmpty() || control->focusPolicy() == Qt::NoFocus) continue;
        if (control->objectName().startsWith(QStringLiteral("qt_"))) continue;
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(control);
        EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty())
            << control->objectName().toStdString();
    }
}

TEST_F(ControlsTest, TooltipsAreAsGiven) {
    EXPECT_EQ(FromQt(Window().Image4->toolTip()), "Flytta vänster kvartal / år  <pil vänster> ");
    EXPECT_EQ(FromQt(Window().Image5->toolTip()), "Flytta höger kvartal / år  <pil höger>   ");
    EXPECT_EQ(FromQt(Window().imgColor->toolTip()), "Färgknapp  Välj färg till Fondkurva  ");
    EXPECT_EQ(FromQt(Window().imgGrafNr->toolTip()), "Diagramknapp  Välj Fonder att visa      ");
}

TEST_F(ControlsTest, MenuItemsShowTheirLettersOnlyWhileTheMenuIsOpen) {
    for (QMenu* menu : {Window().mnuArkiv, Window().mnuShow, Window().mnuHjalp}) {
        emit menu->aboutToShow();
        std::set<QChar> letters;
        for (const QAction* item : Items(menu)) {
            const QChar letter = Mnemonic(item->text());
            EXPECT_FALSE(letter.isNull()) << FromQt(item->text());
            EXPECT_TRUE(letters.insert(letter).second) << FromQt(item->text());
        }
        emit menu->aboutToHide();
        for (const QAction* item : Items(menu)) {
            EXPECT_TRUE(Mnemonic(item->text()).isNull()) << FromQt(item->text());
        }
    }
    EXPECT_EQ(Caption(Window().mnuPlus), "Zoom in..   +   Procent Skala");
    EXPECT_EQ(Caption(Window().mnuMinus), "Zoom ut..   --   Procent Skala");
}

TEST_F(ControlsTest, LettersOfMenusAndButtonsDoNotClash) {
    std::set<QChar> letters;
    for (const QAction* action : Window().menuBar()->actions()) {
        EXPECT_TRUE(letters.insert(Mnemonic(action->text())).second) << FromQt(action->text());
    }
    for (const QPushButton* button : Window().findChildren<QPushButton*>()) {
        EXPECT_FALSE(Mnemonic(button->text()).isNull()) << button->objectName().toStdString();
        EXPECT_TRUE(letters.insert(Mnemonic(button->text())).second)
            << button->objectName().toStdString();
    }
}

TEST_F(ControlsTest, TextsAreReadableUnderADarkDesktopTheme) {
    const QPalette before = QApplication::palette();
    QPalette dark(Qt::white, QColor(40, 40, 40));
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    QApplication::setPalette(dark);
    Start();
    for (const QLabel* label : Window().centralWidget()->findChildren<QLabel*>()) {
        if (label->parentWidget() == Window().panRubrik) continue;
        EXPECT_LT(label->palette().color(QPalette::WindowText).lightness(), 128)
            << label->objectName().toStdString();
    }
    EXPECT_LT(Window().lstFonder->palette().color(QPalette::Base).lightness(), 64);
    QApplication::setPalette(before);
}

// The print dialog has frames of its own, with the room for their titles that the desktop gives.
TEST_F(ControlsTest, TheWindowsFramesAreNotThoseOfItsDialogs) {
    const auto lineUnderTitle = [](QWidget* parent) {
        QDialog dialog(parent);
        auto* frame = new QGroupBox(QStringLiteral("Skrivare"), &dialog);
        auto* line = new QLabel(QStringLiteral("Namn"), frame);
        (new QVBoxLayout(frame))->addWidget(line);
        (new QVBoxLayout(&dialog))->addWidget(frame);
        dialog.show();
        QApplication::processEvents();
        return line->mapTo(frame, line->rect().topLeft());
    };
    EXPECT_EQ(lineUnderTitle(&Window()), lineUnderTitle(nullptr));
}

TEST_F(ControlsTest, MonthLabelTagHoldsTwoYearsAndAJanuary) {
    EXPECT_EQ(Window().MonthNames.size(), 25U);
    EXPECT_EQ(Window().MonthNames.front(), "Jan");
    EXPECT_EQ(Window().MonthNames.back(), "Jan");
}
