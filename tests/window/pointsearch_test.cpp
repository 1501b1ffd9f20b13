// Finding a point of one fund by its day, mending it in kronor, and the summary that follows.

#include "diagram/texts.h"
#include "fundfile/fundfile.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/entryfield.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTableView>

namespace {

using namespace schema::holding;

class PointSearchTest : public WindowTest {
  protected:
    void SetUp() override {
        auto holdings = TwoHoldings();
        holdings[0].points = {{46024, 0}, {46100, 20}, {46325, 10}};
        MakeFile(holdings);
        SetToday(2026, 11, 16);
        Start();
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Find() { Key(Qt::Key_F, Qt::ControlModifier); }
    void Go(const std::string& day) {
        Window().txtSokDag->setFocus();
        Window().txtSokDag->selectAll();
        Type(day);
        Press(Qt::Key_Return);
    }
    void Mend(const std::string& price) {
        Window().txtPunktKr->setFocus();
        Window().txtPunktKr->selectAll();
        Type(price);
        Press(Qt::Key_Return);
    }
    std::string Count() { return Caption(Window().lblRecCount); }
    std::string Line() { return Caption(Window().lblPunkt); }
    std::string Kronor() { return Caption(Window().txtPunktKr); }
};

TEST_F(PointSearchTest, CtrlFOpensThePointsOfTheOpenFund) {
    ChooseFund(0);
    Find();
    EXPECT_TRUE(Window().panPlottData->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), Window().cboSokFond);
    EXPECT_EQ(FromQt(Window().cboSokFond->currentText()), " 1. Vimmels Asien");
    EXPECT_EQ(Count(), "Listan innehåller 3 poster");
    EXPECT_EQ(Line(), "2026-10-30 = 10 % =");
}

TEST_F(PointSearchTest, WithoutAnOpenFundTheListHoldsAllUntilOneIsChosen) {
    Find();
    EXPECT_EQ(FromQt(Window().cboSokFond->currentText()), "Alla fonder");
    EXPECT_EQ(Count(), "Listan innehåller 5 poster");
    Key(Qt::Key_Down);
    Key(Qt::Key_Down);
    EXPECT_EQ(FromQt(Window().cboSokFond->currentText()), " 2. Kvarnbo Europa");
    EXPECT_EQ(Count(), "Listan innehåller 2 poster");
    EXPECT_EQ(Window().GridPlott->CellText(0, 3), "2");
    Key(Qt::Key_Home);
    EXPECT_EQ(Count(), "Listan innehåller 5 poster");
}

TEST_F(PointSearchTest, TheMenuOpensAllPointsAsBefore) {
    ChooseFund(0);
    Find();
    Press(Qt::Key_Escape);
    EXPECT_EQ(Window().dtaPlott->RecordCount(), 5) << "everybody else works with all points";
    Window().mnuPEdit->trigger();
    EXPECT_EQ(Count(), "Listan innehåller 5 poster");
    EXPECT_EQ(FromQt(Window().cboSokFond->currentText()), "Alla fonder");
}

TEST_F(PointSearchTest, ACopyIsSavedWithAllPointsWhateverTheGridShows) {
    jet::Database::Create(Folder() / "Db0.dat", NewFundFileDesign());
    ChooseFund(0);
    Find();
    outside.dialogs.ExpectFile(FileChoice::Save, "    Spara som...")
        .Pick((Folder() / "kopia.mdb").string());
    Window().mnuSaveAs->trigger();
    const auto copy = jet::Database::LoadCopy(Folder() / "kopia.mdb");
    EXPECT_EQ(copy->StoredRowCount("PLOTTDATA"), 5);
}

TEST_F(PointSearchTest, ADayLeadsToItsPointInKronor) {
    ChooseFund(0);
    Find();
    Go("2026-03-19");
    EXPECT_EQ(Line(), "2026-03-19 = 20 % =");
    EXPECT_EQ(Kronor(), "120,00");
    EXPECT_EQ(QApplication::focusWidget(), Window().txtPunktKr);
    Go("26-03-19");
    EXPECT_EQ(Line(), "2026-03-19 = 20 % =");
    Go("2026-03-20");
    EXPECT_EQ(Window().notice, "Det finns ingen punkt den 2026-03-20");
    EXPECT_EQ(Line(), "2026-03-19 = 20 % =");
    Go("igår");
    EXPECT_EQ(Window().notice, texts::NoDay);
    Go("2026-03-19");
    EXPECT_EQ(Window().notice, "");
}

TEST_F(PointSearchTest, TheCurrentRowIsTheOneThatIsSaid) {
    ChooseFund(0);
    Find();
    Window().GridPlott->setFocus();
    Key(Qt::Key_Up);
    EXPECT_EQ(Line(), "2026-03-19 = 20 % =");
    Key(Qt::Key_Up);
    EXPECT_EQ(Kronor(), "100,00");
}

TEST_F(PointSearchTest, KronorMendAnEarlierPointAndLeaveTheSummary) {
    ChooseFund(0);
    const std::string latest = Holding(0, kSenasteKurs);
    Find();
    Go("2026-03-19");
    Mend("130,4");
    EXPECT_EQ(PointsOf(1)[1].value, 30);
    EXPECT_EQ(Line(), "2026-03-19 = 30 % =");
    EXPECT_EQ(Holding(0, kSenasteKurs), latest);
    EXPECT_EQ(Window().notice, "");
    EXPECT_TRUE(Faults().empty());
}

TEST_F(PointSearchTest, KronorFarAboveTheStartPriceAreAskedAboutAsAnyPrice) {
    const auto asked = [this](Answer answer) {
        outside.dialogs
            .Expect("Kontrollera din inmatning !\r\nmer än 200 % ökning ?", Buttons::OkCancel,
                    Icon::Question)
            .Answer(answer);
    };
    ChooseFund(0);
    Find();
    Go("2026-03-19");
    asked(Answer::Cancel);
    Mend("1301");
    EXPECT_EQ(PointsOf(1)[1].value, 20);
    EXPECT_EQ(Kronor(), "1301") << "what was typed can be put right";
    EXPECT_EQ(FromQt(Window().txtPunktKr->selectedText()), "1301");
    asked(Answer::Ok);
    outside.dialogs.Expect("Mer än 1000 % ökning\r\nEj tillåtet", Buttons::Ok, Icon::Exclamation);
    Mend("1301");
    EXPECT_EQ(PointsOf(1)[1].value, 20);
    asked(Answer::Ok);
    Mend("301");
    EXPECT_EQ(PointsOf(1)[1].value, 201);
}

TEST_F(PointSearchTest, TheSummaryFollowsTheLastPoint) {
    ChooseFund(0);
    Find();
    Mend("117,36");
    EXPECT_EQ(PointsOf(1)[2].value, 17);
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 117,36");
    EXPECT_EQ(Holding(0, kProcent), "17 %");
    EXPECT_EQ(Holding(0, kKursVarde), "1174");
    EXPECT_EQ(Status(4), "Senaste : 117,36");
    EXPECT_EQ(Status(5), "17 %");
    EXPECT_EQ(Status(6), "1174");
    EXPECT_EQ(Kronor(), "117,36");
    EXPECT_EQ(Window().notice,
              "Vimmels Asien : sammanfattningen följer med  Senaste : 117,36  17 %");
    // To the öre, within the same percentage.
    Mend("117,4");
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 117,40");
    EXPECT_EQ(Holding(0, kProcent), "17 %");
    // One step each.
    Window().mnuAngra->trigger();
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 117,36");
    Window().mnuAngra->trigger();
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 110,00");
    EXPECT_EQ(PointsOf(1)[2].value, 10);
}

TEST_F(PointSearchTest, TheSummaryFollowsADeletedLastPoint) {
    ChooseFund(0);
    Find();
    DataGrid& grid = *Window().GridPlott;
    grid.setFocus();
    QHeaderView* header = grid.View().verticalHeader();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      {header->width() / 2, header->sectionViewportPosition(2) + 8});
    Key(Qt::Key_Delete);
    EXPECT_EQ(PointsOf(1).size(), 2U);
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 120,00");
    EXPECT_EQ(Holding(0, kSenasteDag), "46100");
    EXPECT_EQ(Status(5), "20 %");
}

TEST_F(PointSearchTest, WhatIsNoPriceIsRefusedAndStaysForCorrection) {
    ChooseFund(0);
    Find();
    const std::string before = Bytes();
    for (const std::string typed : {"0", ",", "1,2,3"}) {
        outside.dialogs.Expect(texts::NoPointPrice);
        Mend(typed);
        EXPECT_EQ(Kronor(), typed);
    }
    EXPECT_TRUE(Bytes() == before);
}

}  // namespace
