// The menu items that do what the keys do, the menus on the right button, and F1.

#include "main/mainwindow.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QGroupBox>
#include <QMenu>
#include <QPoint>
#include <QString>
#include <QTimer>

#include <string>
#include <vector>

namespace {

class MenusTest : public WindowTest {
  protected:
    void SetUp() override {
        SetToday(2026, 3, 10);
        MakeFile(TwoHoldings());
        Start();
    }
    std::string LastStarted() {
        return outside.programs.started.empty() ? "" : outside.programs.started.back();
    }
    static std::vector<std::string> Offered(const QWidget* where) {
        std::vector<std::string> names;
        for (const QAction* item : where->actions()) {
            if (!item->isSeparator()) names.push_back(FromQt(item->objectName()));
        }
        return names;
    }
    /// How many menus come up when one is asked for there.
    static int MenusOn(QWidget* where, QContextMenuEvent::Reason reason) {
        int menus = 0;
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, [&menus] {
            if (QWidget* menu = QApplication::activePopupWidget()) {
                ++menus;
                menu->close();
            }
        });
        watch.start(0);
        const QPoint at(20, 20);
        QContextMenuEvent asked(reason, at, where->mapToGlobal(at));
        QApplication::sendEvent(where, &asked);
        QApplication::processEvents();
        return menus;
    }
};

}  // namespace

TEST_F(MenusTest, NameWhatTheKeysDo) {
    EXPECT_EQ(FromQt(Window().mnuDagskurs->text()), "Ny dagskurs\tF11");
    EXPECT_EQ(FromQt(Window().mnuRita->text()), "Rita om\tF8");
    EXPECT_EQ(FromQt(Window().mnuKurvor->text()), "Välj kurvor\tF12");
    EXPECT_EQ(FromQt(Window().mnuFarg->text()), "Byt färg\tF9");
}

TEST_F(MenusTest, CurvesAreChosenWhileTheButtonsAreHiddenToo) {
    ASSERT_TRUE(Window().panListFonder->isVisible());
    ASSERT_FALSE(Window().imgGrafNr->isVisible());
    Press(Qt::Key_F12);
    ASSERT_FALSE(CollectingCurves(Window().State())) << "the key keeps its condition";
    Window().mnuKurvor->trigger();
    ASSERT_TRUE(CollectingCurves(Window().State()));
    EXPECT_TRUE(Window().imgGrafNr->isVisible()) << "it ends the choice";
    ChooseFund(1);
    Window().mnuKurvor->trigger();
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{2});
}

TEST_F(MenusTest, AColourIsChosenWhileTheButtonsAreHiddenToo) {
    Press(Qt::Key_Escape);
    ASSERT_FALSE(Window().imgColor->isVisible());
    Window().mnuFarg->trigger();
    EXPECT_EQ(Caption(Window().panListFonder), "Välj Färg för Fond  <Enter>");
    Window().mnuFarg->trigger();
    EXPECT_FALSE(Window().panListFonder->isVisible());
}

TEST_F(MenusTest, LeadFromTheHoldingsGridToo) {
    for (QAction* item : {Window().mnuKurvor, Window().mnuFarg, Window().mnuDagskurs}) {
        Window().cmdPPMData_Click();
        ASSERT_TRUE(Window().panBasData->isVisible());
        item->trigger();
        EXPECT_FALSE(Window().panBasData->isVisible());
        EXPECT_TRUE(Window().panListFonder->isVisible()) << FromQt(item->objectName());
        Press(Qt::Key_Escape);
    }
}

TEST_F(MenusTest, DrawAgainAsF8Does) {
    ChooseFund(0);
    ASSERT_EQ(Window().picDiagram->Drawings().size(), 1U);
    Window().mnuRita->trigger();
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U);
}

TEST_F(MenusTest, OnTheRightButtonOfferTheSameItems) {
    EXPECT_EQ(
        Offered(Window().lstFonder),
        (std::vector<std::string>{"mnuDagskurs", "mnuRita", "mnuKurvor", "mnuFarg", "mnuAll"}));
    EXPECT_EQ(Offered(Window().panDiagram),
              (std::vector<std::string>{"mnuRita", "mnuAll", "mnuKurvor", "mnuFarg", "mnuVeckor",
                                        "mnuMonth", "mnuPlus", "mnuMinus"}));
    for (const QWidget* grid :
         {static_cast<QWidget*>(Window().DBGrid), static_cast<QWidget*>(Window().GridPlott)}) {
        EXPECT_EQ(Offered(grid),
                  (std::vector<std::string>{"mnuDagskurs", "mnuRita", "mnuTotal", "mnuPEdit"}));
    }
}

TEST_F(MenusTest, OfThePictureComeByTheMenuKeyAndBesideIt) {
    EXPECT_EQ(MenusOn(Window().picDiagram, QContextMenuEvent::Keyboard), 1);
    EXPECT_EQ(MenusOn(Window().picDiagram, QContextMenuEvent::Mouse), 0) << "it measures";
    EXPECT_EQ(MenusOn(Window().panDiagram, QContextMenuEvent::Mouse), 1);
    EXPECT_EQ(MenusOn(Window().lstFonder, QContextMenuEvent::Keyboard), 1);
}

TEST_F(MenusTest, F1OpensTheHelpWhereOneIs) {
    const std::string file = "WinHlp32.exe " + Window().AppFolder + "Kvarnbo.hlp#";
    Press(Qt::Key_F1);
    EXPECT_EQ(LastStarted(), file + "kurs");
    ChooseFund(0);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F1);
    EXPECT_EQ(LastStarted(), file + "se-fond");
    Window().mnuPEdit->trigger();
    Press(Qt::Key_F1);
    EXPECT_EQ(LastStarted(), file + "plottdata");
    Window().cmdPPMData_Click();
    Press(Qt::Key_F1);
    EXPECT_EQ(LastStarted(), file + "andra-innehav");
}

TEST_F(MenusTest, F1WithoutAViewerSaysSo) {
    outside.programs.missing = true;
    outside.dialogs.Expect("Kunde inte hitta fil WinHelp32.exe");
    Press(Qt::Key_F1);
}
