// How the window comes up, and goes.

#include "app/fileexists.h"
#include "app/texts.h"
#include "base/daynumber.h"
#include "entry/texts.h"
#include "fundfile/texts.h"
#include "main/mainwindow.h"
#include "platform/datasource.h"
#include "tests/support/otherprocess.h"
#include "tests/window/windowtest.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"
#include "widgets/imagebutton.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QSysInfo>
#include <QTableView>

#include <chrono>
#include <fstream>
#include <functional>
#include <string>
#include <utility>

namespace {

using Days = std::vector<std::string>;

class StartUpTest : public WindowTest {
  protected:
    std::string Setting(std::string_view key) {
        return outside.settings.Get("Kvarnbo", "StartUp", key);
    }
    void Save(std::string_view key, std::string_view text) {
        outside.settings.Save("Kvarnbo", "StartUp", key, text);
    }
    Days Months() {
        Days months;
        for (QLabel* label : Window().lblMonth) months.push_back(Caption(label));
        return months;
    }
};

/// The desktop makes another window the active one, then ours again.
void LeaveAndComeBack(QWidget& window, const std::function<void()>& meanwhile) {
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    meanwhile();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

}  // namespace

TEST_F(StartUpTest, FirstStartOpensTheSampleFileAndWritesBothSettings) {
    MakeFile(TwoHoldings());
    Create();
    EXPECT_EQ(Window().CurrentFile, SamplePath().string());
    EXPECT_EQ(Setting("StartPath"), SamplePath().string());
    EXPECT_EQ(Setting("StartX"), "1");
    EXPECT_NE(Window().FundDb, nullptr);
}

TEST_F(StartUpTest, MissingStartFileGivesTheSampleFileAndWritesBothSettings) {
    MakeFile(TwoHoldings());
    Save("StartPath", (Folder() / "Borta.mdb").string());
    Save("StartX", "7");
    Create();
    EXPECT_EQ(Window().CurrentFile, SamplePath().string());
    EXPECT_EQ(Setting("StartPath"), SamplePath().string());
    EXPECT_EQ(Setting("StartX"), "1");
    EXPECT_EQ(Window().DayStep, 1);
}

TEST_F(StartUpTest, WithoutSettingsAndWithoutSampleFileBothSettingsAreWritten) {
    Create();
    EXPECT_EQ(Setting("StartPath"), SamplePath().string());
    EXPECT_EQ(Setting("StartX"), "1");
}

TEST_F(StartUpTest, SettingsThatCannotBeWrittenDoNotStopTheStart) {
    outside.settings.broken = true;
    Start();
    EXPECT_TRUE(Window().panDiagram->isVisible());
}

TEST_F(StartUpTest, StartPathIsOpened) {
    const auto other = Folder() / "Annan.mdb";
    WriteFundFile(other, ManyHoldings(3));
    Save("StartPath", other.string());
    Start();
    EXPECT_EQ(Window().CurrentFile, other.string());
    EXPECT_EQ(Lines().size(), 3U);
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med Annan");
}

TEST_F(StartUpTest, WeekOrMonthStepReadsDayByDayInBothMenuItems) {
    MakeFile(TwoHoldings());
    Save("StartPath", SamplePath().string());
    for (const char* step : {"7", "30"}) {
        Save("StartX", step);
        Create();
        EXPECT_EQ(Caption(Window().mnuVeckor), "Visa Dag för Dag") << step;
        EXPECT_EQ(Caption(Window().mnuMonth), "Visa Dag för Dag") << step;
        EXPECT_EQ(Window().DayStep, step[0] == '7' ? 7 : 30);
    }
}

TEST_F(StartUpTest, DailyStepKeepsTheDesignCaptions) {
    MakeFile(TwoHoldings());
    Create();
    EXPECT_EQ(Caption(Window().mnuVeckor), "Visa Vecka för Vecka");
    EXPECT_EQ(Caption(Window().mnuMonth), "Visa Månad för Månad");
}

TEST_F(StartUpTest, StepThatIsNoNumberOrZeroIsOne) {
    MakeFile(TwoHoldings());
    Save("StartPath", SamplePath().string());
    for (const char* step : {"", "sju", "0", "-7"}) {
        Save("StartX", step);
        Create();
        EXPECT_EQ(Window().DayStep, 1) << step;
    }
}

TEST_F(StartUpTest, OneHoldingIsOpenedAtOnce) {
    MakeFile(ManyHoldings(1));
    Start();
    EXPECT_EQ(FraData(0), "249 995");
    EXPECT_EQ(Tag(Window().panListFonder), "idxY");
    EXPECT_EQ(Window().SelectedCurves, std::vector<std::int32_t>{1});
}

TEST_F(StartUpTest, SeveralHoldingsHighlightTheFirstLineWithoutOpeningIt) {
    MakeFile(TwoHoldings());
    Start();
    EXPECT_EQ(Window().lstFonder->currentRow(), 0);
    EXPECT_EQ(FraData(0), "");
    EXPECT_EQ(Tag(Window().panListFonder), "");
}

TEST_F(StartUpTest, NumbersBelowTenHaveALeadingBlankInTheList) {
    MakeFile(ManyHoldings(11));
    Start();
    EXPECT_EQ(Lines().front(), " 1. Fond 1");
    EXPECT_EQ(Lines().at(8), " 9. Fond 9");
    EXPECT_EQ(Lines().at(9), "10. Fond 10");
    EXPECT_EQ(Lines().at(10), "11. Fond 11");
}

TEST_F(StartUpTest, DecemberShowsThisYearOnly) {
    MakeFile(TwoHoldings());
    SetToday(2026, 12, 10);
    Start();
    EXPECT_EQ(FormatDay(Window().WindowStartDay), "2026-01-01");
    EXPECT_EQ(Caption(Window().lbLeftYear), "2026");
    EXPECT_EQ(Caption(Window().lblRightYear), "2026");
}

TEST_F(StartUpTest, MarchShowsAprilToMarch) {
    MakeFile(TwoHoldings());
    SetToday(2026, 3, 10);
    Start();
    EXPECT_EQ(FormatDay(Window().WindowStartDay), "2025-04-01");
    EXPECT_EQ(Caption(Window().lbLeftYear), "2025");
    EXPECT_EQ(Caption(Window().lblRightYear), "2026");
    EXPECT_EQ(Months(), (Days{"April", "Maj", "Juni", "Juli", "Aug", "Sep", "Okt", "Nov", "Dec",
                              "Jan", "Feb", "Mars"}));
}

TEST_F(StartUpTest, FromTheSixteenthTheAxisStandsOneMonthAhead) {
    MakeFile(TwoHoldings());
    SetToday(2026, 3, 15);
    Start();
    EXPECT_EQ(FormatDay(Window().WindowStartDay), "2025-04-01");
    SetToday(2026, 3, 16);
    Start();
    EXPECT_EQ(FormatDay(Window().WindowStartDay), "2025-05-01");
    EXPECT_EQ(Months().front(), "Maj");
}

TEST_F(StartUpTest, CurvesStandInTheFinalTwelveMonths) {
    MakeFile(TwoHoldings());
    SetToday(2026, 11, 16);
    Start();
    ASSERT_EQ(Window().picDiagram->Drawings().size(), 2U);
    const double day = 46325 - Window().WindowStartDay;
    EXPECT_DOUBLE_EQ(Window().picDiagram->Drawings()[0].line.back().x, day);
}

TEST_F(StartUpTest, SeveralCurvesScaleIsTheLargestOfTheListed) {
    MakeFile(TwoHoldings());
    Start();
    EXPECT_EQ(Window().SelectedCurves, (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(Window().Scale.top, 45);
    EXPECT_EQ(Window().Scale.bottom, -30);
    EXPECT_EQ(Window().AllScale.top, 45);
    EXPECT_EQ(Window().AllScale.bottom, -30);
    EXPECT_EQ(Caption(Window().lblVertical[1]), "-30");
    EXPECT_EQ(Caption(Window().lblVertical[6]), "45");
}

TEST_F(StartUpTest, WithoutListedCurvesTheScaleIsTheDefault) {
    MakeFile(ManyHoldings(3));
    Start();
    EXPECT_TRUE(Window().SelectedCurves.empty());
    EXPECT_EQ(Window().Scale.top, 15);
    EXPECT_EQ(Window().Scale.bottom, -10);
}

TEST_F(StartUpTest, ListedCurveThatIsGoneIsPassedOver) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "7.2./15/-10";
    MakeFile(holdings);
    Start();
    EXPECT_EQ(Window().Scale.top, 45);
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 1U);
}

TEST_F(StartUpTest, FileWithoutScalesGetsThemRowByRow) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "";
    holdings[1].skala = "";
    MakeFile(holdings);
    Start();
    EXPECT_EQ(Holding(0, 16), "./15/-10");
    EXPECT_EQ(Holding(1, 16), "45/-30");
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(StartUpTest, ScreenAsWideAsTheDesignIsNotScaled) {
    MakeFile(TwoHoldings());
    Start();
    EXPECT_EQ(Window().size(), QSize(800, 600));
    EXPECT_EQ(Window().lblRubrik->geometry(), QRect(12, 2, 460, 30));
    EXPECT_EQ(Window().lblRubrik->font().pointSizeF(), 13);
    EXPECT_EQ(Window().lstFonder->font().pointSizeF(), 9);
    EXPECT_EQ(Window().GridPlott->font().pointSizeF(), 8);
}

TEST_F(StartUpTest, SecondActivationChangesNothing) {
    MakeFile(TwoHoldings());
    Start();
    ChooseFund(1);
    const std::string caption = Caption(&Window());
    QEvent again(QEvent::WindowActivate);
    QApplication::sendEvent(&Window(), &again);
    EXPECT_EQ(Caption(&Window()), caption);
    EXPECT_EQ(FraData(0), "468 024");
    EXPECT_EQ(Window().lstFonder->currentRow(), 1);
}

TEST_F(StartUpTest, ActivationRunAgainDoesItsWorkAgain) {
    MakeFile(TwoHoldings());
    Start();
    ChooseFund(1);
    Window().Activate();
    EXPECT_EQ(Caption(&Window()), "  Kvarnbo  ");
    EXPECT_EQ(Window().lstFonder->currentRow(), 0);
    EXPECT_EQ(Lines().size(), 2U);
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U);
}

TEST_F(StartUpTest, HeadingDateAndCaptionAreShown) {
    MakeFile(TwoHoldings());
    Start();
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med Vimmels_exempel");
    EXPECT_EQ(Caption(Window().lblPanDatum), "Måndag 16 November 2026");
    EXPECT_EQ(Caption(&Window()), "  Kvarnbo  ");
    EXPECT_EQ(Caption(Window().panListFonder), "Ny DagsKurs för...");
}

TEST_F(StartUpTest, PanelsAndMenusWaitForTheEndOfThePause) {
    MakeFile(TwoHoldings());
    Create();
    Show();
    const auto ready = [&] {
        return std::vector<bool>{
            Window().mnuArkiv->isEnabled(),   Window().mnuShow->isEnabled(),
            Window().panControl->isVisible(), Window().panRubrik->isVisible(),
            Window().panDiagram->isVisible(), Window().panListFonder->isVisible()};
    };
    EXPECT_EQ(ready(), std::vector<bool>(6, false));
    outside.clock.Pass(std::chrono::milliseconds(2999));
    EXPECT_EQ(ready(), std::vector<bool>(6, false));
    outside.clock.Pass(std::chrono::milliseconds(1));
    EXPECT_EQ(ready(), std::vector<bool>(6, true));
    EXPECT_TRUE(outside.clock.Running().empty()) << "the timer ticks once";
}

TEST_F(StartUpTest, DamagedStartFileIsToldByTheEmptyWindowAndNotByABox) {
    const std::pair<std::string, std::string> kinds[] = {
        {"not a database", "Filen är ingen databas i Access-format. Den är inte ändrad."},
        {"", "Filen är ingen databas i Access-format. Den är inte ändrad."}};
    const std::string skrot = (Folder() / "skrot.mdb").string();
    Save("StartPath", skrot);
    for (const auto& [bytes, why] : kinds) {
        std::ofstream(skrot) << bytes;
        Start();
        EXPECT_EQ(Window().FundDb, nullptr);
        EXPECT_EQ(Lines().size(), 0U);
        EXPECT_TRUE(Window().panDiagram->isVisible());
        EXPECT_TRUE(Window().lblIngenFil->isVisible());
        EXPECT_EQ(Caption(Window().lblIngenFil),
                  "Fondfilen kunde inte öppnas :\n" + skrot + "\n\n" + why +
                      "\n\nÖppna en annan fondfil med Arkiv, Öppna, eller lägg upp en ny med "
                      "Arkiv, Ny Fondfil.");
        EXPECT_EQ(Caption(Window().lblRubrik), "Ingen fondfil är öppen");
    }
}

TEST_F(StartUpTest, WithoutAnyFileTheEmptyWindowSaysWhichOneIsMissing) {
    Start();
    EXPECT_NE(Caption(Window().lblIngenFil).find("Vimmels_exempel.mdb\n\nFilen finns inte."),
              std::string::npos);
}

TEST_F(StartUpTest, WithAFileOpenNothingStandsOverThePicture) {
    MakeFile(TwoHoldings());
    Start();
    EXPECT_FALSE(Window().lblIngenFil->isVisible());
}

TEST_F(StartUpTest, EscapeLeavesThePanelsAndClearsTheTotals) {
    MakeFile(TwoHoldings());
    Start();
    Window().panTotal->show();
    Window().panPlottData->show();
    Window().imgColor->show();
    Window().imgGrafNr->show();
    Window().cmdFondList->setEnabled(false);
    SetCaption(Window().lblTotal, "något");
    Window().lstFonder->setFocus();
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window().panListFonder->isVisible());
    EXPECT_FALSE(Window().panTotal->isVisible());
    EXPECT_FALSE(Window().panPlottData->isVisible());
    EXPECT_FALSE(Window().imgColor->isVisible());
    EXPECT_FALSE(Window().imgGrafNr->isVisible());
    EXPECT_EQ(Caption(Window().lblTotal), "");
    EXPECT_TRUE(Window().cmdFondList->isEnabled());
    EXPECT_EQ(Window().focusWidget(), Window().picDiagram);
}

TEST_F(StartUpTest, ClosingReleasesTheFile) {
    MakeFile(TwoHoldings());
    Start();
    CloseWindow();
    EXPECT_EQ(Window().FundDb, nullptr);
    EXPECT_FALSE(Window().dtaPlott->IsAttached());
    EXPECT_FALSE(Window().isVisible());
}

TEST_F(StartUpTest, ClosingStoresWhatIsTypedInTheGrid) {
    MakeFile(TwoHoldings());
    Start();
    Click(Window().cmdPPMData);
    QTableView& grid = Window().DBGrid->View();
    Window().DBGrid->setFocus();
    grid.setCurrentIndex(grid.model()->index(0, 3));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    CloseWindow();
    Start();
    EXPECT_EQ(Holding(0, 4), "7");
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(StartUpTest, ClosingStoresAnAccountFieldThatIsTyped) {
    MakeFile(TwoHoldings());
    Start();
    Click(Window().cmdPPMData);
    Window().txtNamn->setFocus();
    Window().txtNamn->selectAll();
    Type("Nytt namn");
    CloseWindow();
    Start();
    EXPECT_EQ(Holding(0, 10), "Nytt namn");
}

TEST_F(StartUpTest, ARowThatCannotBeStoredKeepsTheWindowOpenUntilItIsGivenUp) {
    MakeFile(TwoHoldings());
    Start();
    Click(Window().cmdPPMData);
    Window().DBGrid->setFocus();
    GoToNewRow(*Window().DBGrid);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("N"));
    outside.dialogs
        .Expect(
            "Det här är inte sparat:\r\n\r\nRaden för N\r\n"
            "    Kurs Kr saknas eller är inte större än 0\r\n\r\nVill du gå vidare utan det ?",
            Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No);
    Window().mnuAvbryt->trigger();
    EXPECT_TRUE(Window().isVisible());
    ASSERT_NE(Window().FundDb, nullptr);
    EXPECT_EQ(Window().DBGrid->CellText(2, 0), "N");
    outside.dialogs
        .Expect(texts::AskGiveUpRow, Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::Yes);
    Press(Qt::Key_Escape);
    CloseWindow();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_EQ(Window().FundDb, nullptr);
}

TEST_F(StartUpTest, QuitClosesTheWindow) {
    MakeFile(TwoHoldings());
    Start();
    Window().mnuAvbryt->trigger();
    EXPECT_FALSE(Window().isVisible());
    EXPECT_EQ(Window().FundDb, nullptr);
}

TEST_F(StartUpTest, ClosingTwiceDoesNotFail) {
    MakeFile(TwoHoldings());
    Start();
    CloseWindow();
    Window().Unload();
    EXPECT_EQ(Window().FundDb, nullptr);
}

TEST_F(StartUpTest, SecondWindowOnTheSameFileShowsTheSameRows) {
    MakeFile(TwoHoldings());
    Start();
    FakePlatform other;
    other.settings.Save("Kvarnbo", "StartUp", "StartPath", SamplePath().string());
    MainWindow second(other.platform);
    second.show();
    EXPECT_EQ(second.lstFonder->count(), 2);
}

TEST_F(StartUpTest, TheWindowThatIsActivatedAfterMidnightShowsTheNewDay) {
    MakeFile(TwoHoldings());
    SetToday(2026, 11, 15);
    Start();
    ASSERT_EQ(Caption(Window().lblMonth[12]), "Nov");
    LeaveAndComeBack(Window(), [this] { SetToday(2026, 11, 16); });
    EXPECT_EQ(Window().TodayDay, 46342);
    EXPECT_EQ(Caption(Window().lblPanDatum), "Måndag 16 November 2026");
    EXPECT_EQ(Caption(Window().lblMonth[12]), "Dec") << "the second half shows the next month";
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 2U);
    LeaveAndComeBack(Window(), [this] { SetToday(2026, 12, 1); });
    EXPECT_EQ(Window().CurrentMonth, 12);
    EXPECT_EQ(Caption(Window().lblMonth[12]), "Dec");
}

TEST_F(StartUpTest, MonthsThatWereScrolledStayOverMidnight) {
    MakeFile(TwoHoldings());
    SetToday(2026, 11, 15);
    Start();
    Window().Image4_MouseUp(Qt::LeftButton);
    const std::int32_t start = Window().WindowStartDay;
    LeaveAndComeBack(Window(), [this] { SetToday(2026, 11, 16); });
    EXPECT_EQ(Window().WindowStartDay, start);
    EXPECT_EQ(Caption(Window().lblPanDatum), "Måndag 16 November 2026");
}

TEST_F(StartUpTest, FileOfAnotherRunningCopyIsSaidToBeReadableOnlyAndNotHarmed) {
    MakeFile(TwoHoldings());
    const testdata::OtherCopy other(SamplePath());
    const std::string before = Bytes();
    FundFile theirs;
    theirs.right = WriteRight::OtherCopy;
    theirs.owner = "process " + std::to_string(other.Process()) + ", dator " +
                   QSysInfo::machineHostName().toStdString();
    outside.dialogs.Expect(fundtexts::Explain(theirs));
    Start();
    EXPECT_EQ(Lines().size(), 2U);
    ChooseFund(0);
    outside.dialogs.Expect("Fel i SQLPlott");
    TypePrice("105");
    EXPECT_EQ(Caption(Window().txtValue), "105,00");
    EXPECT_EQ(Bytes(), before);
}

TEST_F(StartUpTest, FileWithoutScalesThatCanOnlyBeReadShowsItsCurves) {
    auto holdings = TwoHoldings();
    holdings[0].skala = "";
    MakeFile(holdings);
    const testdata::OtherCopy other(SamplePath());
    Create();
    Show();
    EXPECT_EQ(Lines().size(), 2U);
    EXPECT_EQ(Window().Scale.top, 15);
    ChooseFund(1);
    EXPECT_EQ(Window().picDiagram->Drawings().size(), 1U);
}

TEST(FileExists, SaysNoForMissingFilesFoldersAndNothing) {
    QTemporaryDir folder;
    const std::string path = FromQt(folder.filePath(QStringLiteral("a.mdb")));
    EXPECT_FALSE(FileExists(path));
    std::ofstream(path) << "x";
    EXPECT_TRUE(FileExists(path));
    EXPECT_FALSE(FileExists(FromQt(folder.path())));
    EXPECT_FALSE(FileExists(""));
}

TEST_F(StartUpTest, BackgroundRepeatsTheStripAtTheUpperLeftCorner) {
    MakeFile(TwoHoldings());
    Create();
    Show();
    const QImage picture = Window().centralWidget()->grab().toImage();
    ASSERT_GT(picture.height(), 320);
    for (const QPoint at : {QPoint(3, 5), QPoint(11, 200), QPoint(19, 299)}) {
        EXPECT_EQ(picture.pixel(at), picture.pixel(at + QPoint(20, 0)));
        EXPECT_EQ(picture.pixel(at), picture.pixel(at + QPoint(780, 0)));
        if (at.y() + 300 < picture.height()) {
            EXPECT_EQ(picture.pixel(at), picture.pixel(at + QPoint(0, 300)));
        }
    }
}
