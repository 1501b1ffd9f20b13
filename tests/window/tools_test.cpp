// The log, the outside programs, the percent calculator and the date translator.

#include "base/codepage.h"
#include "base/version.h"
#include "main/mainwindow.h"
#include "platform/programs.h"
#include "tests/window/windowtest.h"

#include <QAction>
#include <QByteArray>
#include <QColor>
#include <QGroupBox>
#include <QLabel>
#include <QPalette>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

namespace fs = std::filesystem;

class ToolsTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        Start();
    }
    fs::path LogPath() const { return Folder() / "FonderLogg.txt"; }
    std::string LogText() const {
        std::ifstream log(LogPath(), std::ios::binary);
        return {std::istreambuf_iterator<char>(log), {}};
    }
    std::string Command(const char* program, const char* file) {
        return std::string(program) + Window().AppFolder + file;
    }
    void ShowCalculators() { Window().mnuPEdit->trigger(); }
    void Fill(EntryField* box, const char* text) {
        box->setFocus();
        box->selectAll();
        Type(text);
    }
    std::string Percent(const char* start, const char* present) {
        ShowCalculators();
        Fill(Window().txtprcStart, start);
        Fill(Window().txtprcNy, present);
        Click(Window().cmdPrc);
        return Caption(Window().lblprcSvar);
    }
    std::string Translate(const char* text) {
        ShowCalculators();
        SetCaption(Window().txtTranslate, "");
        Fill(Window().txtTranslate, text);
        Click(Window().cmdTranslate);
        return Caption(Window().txtTranslate);
    }
};

}  // namespace

TEST_F(ToolsTest, FirstLogEntryMakesTheFile) {
    ASSERT_FALSE(fs::exists(LogPath()));
    Window().WriteLogEntry("Hej");
    EXPECT_EQ(LogText(), "26-11-16\r\nHej\r\n");
}

TEST_F(ToolsTest, EntriesOfOneDayEachHaveTheirDate) {
    Window().WriteLogEntry("ett");
    Window().WriteLogEntry("två\r\nrader");
    EXPECT_EQ(DecodeCp1252(LogText()), "26-11-16\r\nett\r\n26-11-16\r\ntvå\r\nrader\r\n");
}

TEST_F(ToolsTest, EntryThatEndsWithALineBreakLeavesAnEmptyLine) {
    Window().WriteLogEntry("slut\r\n");
    EXPECT_EQ(LogText(), "26-11-16\r\nslut\r\n\r\n");
}

TEST_F(ToolsTest, LogIsInTheSingleByteCodePage) {
    Window().WriteLogEntry("å¶");
    EXPECT_EQ(LogText(), "26-11-16\r\n\xE5\xB6\r\n");
}

TEST_F(ToolsTest, LogThatCannotBeWrittenGoesToTheCaller) {
    fs::create_directory(LogPath());
    EXPECT_THROW(Window().WriteLogEntry("x"), Error);
}

TEST_F(ToolsTest, MenuItemsStartTheOutsidePrograms) {
    Window().mnuFLogg->trigger();
    Window().mnuNotePad->trigger();
    Window().mnuHelp->trigger();
    EXPECT_EQ(outside.programs.started,
              (std::vector<std::string>{Command("NotePad.exe  ", "FonderLogg.txt"),
                                        Command("NotePad.exe  ", "Anteckningar.txt"),
                                        Command("WinHlp32.exe ", "Kvarnbo.hlp")}));
}

TEST_F(ToolsTest, AboutNamesTheVersionTheFileAndTheFolder) {
    auto* about = Window().findChild<QAction*>(QStringLiteral("mnuOm"));
    ASSERT_NE(about, nullptr);
    EXPECT_EQ(FromQt(about->text()), "Om Kvarnbo");
    outside.dialogs.Expect(
        "Kvarnbo " + std::string(Version()) + "\r\n\r\nFondfil: " + Window().CurrentFile +
        "\r\nDatabasmotor: jet " + std::string(Version()) +
        ", filen har Access 2000-format\r\nProgrammets mapp: " + Window().AppFolder);
    about->trigger();
}

TEST_F(ToolsTest, ProgramsThatCannotBeStartedGiveOnlyTheirMessage) {
    outside.programs.missing = true;
    outside.dialogs.Expect("Kunde inte hitta fil NotePad.exe");
    Window().mnuFLogg->trigger();
    outside.dialogs.Expect("Kunde inte hitta fil NotePad.exe");
    Window().mnuNotePad->trigger();
    outside.dialogs.Expect("Kunde inte hitta fil WinHelp32.exe");
    Window().mnuHelp->trigger();
    EXPECT_FALSE(fs::exists(LogPath()));
}

TEST_F(ToolsTest, WithNoEditorAndNoViewerReachableTheMenuEntriesShowOnlyTheirMessage) {
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", ToQt(Folder().string()).toUtf8());
    DesktopPrograms programs;
    Platform world{outside.dialogs,    outside.clock,     outside.settings,
                   outside.printing,   programs,          outside.screen,
                   outside.keyStrokes, Folder().string(), Folder().string()};
    MainWindow window(world);
    for (QAction* entry : {window.mnuFLogg, window.mnuNotePad}) {
        outside.dialogs.Expect("Kunde inte hitta fil NotePad.exe");
        entry->trigger();
    }
    outside.dialogs.Expect("Kunde inte hitta fil WinHelp32.exe");
    window.mnuHelp->trigger();
    EXPECT_FALSE(fs::exists(LogPath()));
    qputenv("PATH", path);
}

TEST_F(ToolsTest, ARiseAndAFallAreShownWithTwoBlanksBeforeTheSign) {
    EXPECT_EQ(Percent("200", "300"), "50  %");
    EXPECT_EQ(Percent("200", "250"), "25  %");
    EXPECT_EQ(Percent("200", "150"), "-25  %");
}

TEST_F(ToolsTest, APercentageIsRoundedToTheNearestWholeNumber) {
    EXPECT_EQ(Percent("3", "4"), "33  %");
}

TEST_F(ToolsTest, AHalfPercentGoesToTheEvenNumber) {
    EXPECT_EQ(Percent("8", "9"), "12  %");
    EXPECT_EQ(Percent("200", "203"), "2  %");
}

TEST_F(ToolsTest, AStartValueOfZeroLeavesTheAnswerAsItWas) {
    EXPECT_EQ(Percent("200", "250"), "25  %");
    EXPECT_EQ(Percent("0", "9"), "25  %");
}

TEST_F(ToolsTest, PercentNeedsBothValues) {
    ShowCalculators();
    Fill(Window().txtprcNy, "9");
    Click(Window().cmdPrc);
    EXPECT_EQ(Caption(Window().lblprcSvar), "");
}

TEST_F(ToolsTest, PercentBoxesTakeNumbersOnlyAndShowTwoDecimals) {
    ShowCalculators();
    Fill(Window().txtprcStart, "-1a2.5");
    EXPECT_EQ(Caption(Window().txtprcStart), "12,5");
    Window().txtprcNy->setFocus();
    EXPECT_EQ(Caption(Window().txtprcStart), "12,50");
}

TEST_F(ToolsTest, EnterGoesFromTheStartValueToTheNewOneToTheButton) {
    ShowCalculators();
    SetCaption(Window().txtprcNy, "7");
    Fill(Window().txtprcStart, "100");
    Press(Qt::Key_Return);
    EXPECT_EQ(Window().focusWidget(), Window().txtprcNy);
    EXPECT_EQ(Caption(Window().txtprcNy), "");
    Type("110");
    Press(Qt::Key_Return);
    EXPECT_EQ(Window().focusWidget(), Window().cmdPrc);
    Press(Qt::Key_Return);
    EXPECT_EQ(Caption(Window().lblprcSvar), "10  %");
}

TEST_F(ToolsTest, BoxesShowTheirFocusByColour) {
    ShowCalculators();
    for (EntryField* box : {Window().txtprcStart, Window().txtprcNy, Window().txtTranslate}) {
        box->setFocus();
        EXPECT_EQ(box->palette().color(QPalette::Base), QColor(211, 240, 254));
        Window().cmdPrc->setFocus();
        EXPECT_EQ(box->palette().color(QPalette::Base), QColor(239, 239, 222));
    }
}

TEST_F(ToolsTest, ADateBecomesItsDayNumberAndTheDateAgain) {
    EXPECT_EQ(Translate("2006-02-24"), "38772");
    Click(Window().cmdTranslate);
    EXPECT_EQ(Caption(Window().txtTranslate), "2006-02-24");
}

TEST_F(ToolsTest, DayZeroIsTheThirtiethOfDecember1899) {
    EXPECT_EQ(Translate("0"), "1899-12-30");
}

TEST_F(ToolsTest, ADateWithATimeOfDayGoesToTheNearestDay) {
    EXPECT_EQ(Translate("2006-02-24 13:30"), "38773");
}

TEST_F(ToolsTest, TextThatIsNeitherDateNorNumberStaysAsItIs) {
    EXPECT_EQ(Translate("i går"), "i går");
    EXPECT_EQ(Translate("99999999"), "99999999");
    EXPECT_EQ(Translate(""), "");
}

TEST_F(ToolsTest, EnterInTheTranslatorIsDropped) {
    ShowCalculators();
    Fill(Window().txtTranslate, "abc");
    Press(Qt::Key_Return);
    EXPECT_EQ(Caption(Window().txtTranslate), "abc");
    EXPECT_EQ(Window().focusWidget(), Window().txtTranslate);
}
