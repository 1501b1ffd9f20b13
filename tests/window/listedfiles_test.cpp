// The fund files that the menu Arkiv offers, and the keys of its items.

#include "fundfile/fundfile.h"
#include "jet/database.h"
#include "platform/qttext.h"
#include "tests/window/windowtest.h"
#include "widgets/boundfield.h"
#include "widgets/datagrid.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

class ListedFilesTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        Age(SamplePath(), 10);
        Start();
    }
    /// The file was stored so many hours ago.
    static void Age(const fs::path& path, int hours) {
        fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(hours));
    }
    fs::path Make(const fs::path& path, int hours, const std::vector<TestHolding>& holdings) {
        fs::create_directories(path.parent_path());
        WriteFundFile(path, holdings);
        Age(path, hours);
        return path;
    }
    /// As the menu stands open, whatever was done there is over afterwards.
    void InOpenMenu(const std::function<void()>& look) {
        QMenu* menu = Window().mnuArkiv;
        menu->popup(Window().mapToGlobal(QPoint(0, 20)));
        QApplication::processEvents();
        look();
        menu->close();
    }
    Strings Offered() {
        Strings captions;
        InOpenMenu([&] {
            for (const QAction* item : Window().mnuFil) {
                if (item->isVisible()) captions.push_back(FromQt(item->text()));
            }
        });
        return captions;
    }
    /// Letter by letter: the first one opens the cell.
    void TypeInCell(const std::string& text) {
        for (const char letter : text) Type(std::string(1, letter));
    }
    void AskedAboutHalf(Answer answer) {
        outside.dialogs
            .Expect(
                "Det här är inte sparat:\r\n\r\nRaden för Halv\r\n    Kurs Kr saknas eller är "
                "inte större än 0\r\n\r\nVill du gå vidare utan det ?",
                Buttons::YesNo, Icon::Question, DefaultButton::Second)
            .Answer(answer);
    }
    std::string Heading() { return Caption(Window().lblRubrik); }
    std::string Notice() { return Window().staBar->Notice(); }
};

TEST_F(ListedFilesTest, AreThoseOfBothFoldersTheNewestFirstAndTheOpenOneIsMarked) {
    Make(Folder() / "Ny.mdb", 1, {});
    Make(Folder() / "sub" / "Hemma & borta.mdb", 5, TwoHoldings());
    std::ofstream(Folder() / "Db0.dat") << "a template";
    std::ofstream(Folder() / "Ny.mdb.lock") << "a lock";
    Make(Folder() / "Kopior" / "Ny 2026-11-10.mdb", 1, {});
    fs::create_directory(Folder() / "mapp.mdb");
    EXPECT_EQ(Offered(), (Strings{"&1  Ny", "&2  Vimmels_exempel"}));
    EXPECT_FALSE(Window().mnuFil[1]->isChecked());
    EXPECT_TRUE(Window().mnuFil[2]->isChecked());
    // The open file's folder, too; the program's file is reached by two ways, and is one.
    fs::create_symlink(Folder() / "Ny.mdb", Folder() / "sub" / "lank.mdb");
    Window().OpenChosenFile((Folder() / "sub" / "Hemma & borta.mdb").string());
    Age(Window().CurrentFile, 5);
    EXPECT_EQ(Offered(), (Strings{"&1  Ny", "&2  Hemma && borta", "&3  Vimmels_exempel"}));
    EXPECT_TRUE(Window().mnuFil[2]->isChecked());
}

TEST_F(ListedFilesTest, LeaveOutACopyEvenWhereItIsOpen) {
    const fs::path copy = Make(Folder() / "Kopior" / "Ny 2026-11-10.mdb", 1, TwoHoldings());
    Make(Folder() / "Kopior" / "egen.mdb", 2, {});
    Window().OpenChosenFile(copy.string());
    EXPECT_EQ(Offered(), (Strings{"&1  egen", "&2  Vimmels_exempel"}));
}

TEST_F(ListedFilesTest, OpenByTheirNumberAndByTheMouse) {
    Make(Folder() / "Ny.mdb", 1, {TestHolding{}});
    QTest::keyClick(&Window(), Qt::Key_A, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return Window().mnuArkiv->isVisible(); }));
    QTest::keyClick(Window().mnuArkiv, Qt::Key_1);
    EXPECT_EQ(Heading(), "Du arbetar med Ny");
    EXPECT_FALSE(Window().mnuArkiv->isVisible());
    InOpenMenu([&] {
        QMenu* menu = Window().mnuArkiv;
        QTest::mouseClick(menu, Qt::LeftButton, {},
                          menu->actionGeometry(Window().mnuFil[2]).center());
    });
    EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
    EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(ListedFilesTest, GoTheRoadOfTheOpenDialog) {
    const fs::path path = Make(Folder() / "Ny.mdb", 1, TwoHoldings());
    Window().cmdPPMData_Click();
    Window().DBGrid->setFocus();
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    TypeInCell("Halv");
    Offered();
    // A row that is half typed is asked about first.
    AskedAboutHalf(Answer::No);
    Window().mnuFil[1]->trigger();
    EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
    EXPECT_FALSE(Window().mnuFil[1]->isChecked()) << "the other one is open still";
    EXPECT_TRUE(Window().mnuFil[2]->isChecked());
    outside.dialogs.Verify();
    // A file that went meanwhile.
    fs::remove(path);
    AskedAboutHalf(Answer::Yes);
    outside.dialogs.Expect(
        "Filen öppnades inte\r\n\r\n" + path.string() + "\r\n\r\nFilen finns inte.", Buttons::Ok,
        Icon::Exclamation);
    Window().mnuFil[1]->trigger();
    EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
}

TEST_F(ListedFilesTest, SayTheWholePathWhileTheyArePointedAt) {
    const std::string name = "En fondfil med ett mycket långt namn som ingen meny rymmer 2026";
    const fs::path path = Make(Folder() / (name + ".mdb"), 1, {});
    Window().notice = "before";
    Window().ShowState();
    InOpenMenu([&] {
        EXPECT_EQ(FromQt(Window().mnuFil[1]->text()),
                  "&1  En fondfil med ett mycke…eny rymmer 2026");
        EXPECT_EQ(FromQt(Window().mnuFil[1]->toolTip()), path.string());
        QTest::mouseMove(Window().mnuArkiv,
                         Window().mnuArkiv->actionGeometry(Window().mnuFil[1]).center());
        EXPECT_TRUE(QTest::qWaitFor([&] { return Notice() == path.string(); })) << Notice();
        Window().mnuArkiv->setActiveAction(Window().mnuOpen);
        EXPECT_EQ(Notice(), "before");
        Window().mnuArkiv->setActiveAction(Window().mnuFil[2]);
        EXPECT_EQ(Notice(), SamplePath().string());
    });
    EXPECT_EQ(Notice(), "before");
}

TEST_F(ListedFilesTest, LeaveTheLettersOfTheOtherItemsAsTheyWere) {
    Strings before, after;
    const auto letters = [&](Strings& into) {
        InOpenMenu([&] {
            for (QAction* item : Window().mnuArkiv->actions()) {
                if (!item->isCheckable() && !item->isSeparator()) {
                    into.push_back(FromQt(item->text()));
                }
            }
        });
    };
    letters(before);
    Make(Folder() / "Anna.mdb", 1, {});
    letters(after);
    letters(after);
    Strings twice = before;
    twice.insert(twice.end(), before.begin(), before.end());
    EXPECT_EQ(after, twice);
}

// ---- Keys ----

class FileKeysTest : public ListedFilesTest {
  protected:
    void Ctrl(Qt::Key key) { QTest::keyClick(Window().focusWidget(), key, Qt::ControlModifier); }
    void ExpectNewAndOpen() {
        outside.dialogs.ExpectFile(FileChoice::Save, "    Lägg upp Ny tom  och Spara som...")
            .Cancel();
        Ctrl(Qt::Key_N);
        outside.dialogs.ExpectFile(FileChoice::Open, "      Öppna FondFil").Cancel();
        Ctrl(Qt::Key_O);
        outside.dialogs.Verify();
    }
};

TEST_F(FileKeysTest, StandInTheMenu) {
    EXPECT_EQ(FromQt(Window().mnuNew->shortcut().toString()), "Ctrl+N");
    EXPECT_EQ(FromQt(Window().mnuOpen->shortcut().toString()), "Ctrl+O");
    EXPECT_EQ(FromQt(Window().mnuPrint->shortcut().toString()), "Ctrl+P");
}

TEST_F(FileKeysTest, WorkFromEveryFieldAndTypeNothing) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    Type("12");
    ExpectNewAndOpen();
    EXPECT_EQ(Caption(Window().txtValue), "12");
    Window().lstFonder->setFocus();
    ExpectNewAndOpen();
    Window().picDiagram->setFocus();
    ExpectNewAndOpen();
    Window().mnuPEdit->trigger();
    const std::string translated = Caption(Window().txtTranslate);
    for (QWidget* field :
         {static_cast<QWidget*>(Window().GridPlott), static_cast<QWidget*>(Window().txtSokDag),
          static_cast<QWidget*>(Window().cboSokFond),
          static_cast<QWidget*>(Window().txtTranslate)}) {
        field->setFocus();
        ExpectNewAndOpen();
    }
    EXPECT_EQ(Caption(Window().txtTranslate), translated);
    Press(Qt::Key_F6);
    Type("11");
    ExpectNewAndOpen();
    EXPECT_EQ(Caption(Window().txtNyKurs), "11");
    Press(Qt::Key_Escape);
    Press(Qt::Key_F7);
    ExpectNewAndOpen();
    Press(Qt::Key_Escape);
}

TEST_F(FileKeysTest, WorkWhileACellOrAnAccountFieldIsTyped) {
    Window().cmdPPMData_Click();
    Window().DBGrid->setFocus();
    TypeInCell("Asp");
    ExpectNewAndOpen();
    EXPECT_EQ(FromQt(Window().focusWidget()->property("text").toString()), "Asp");
    Press(Qt::Key_Escape);
    Window().txtNamn->setFocus();
    ExpectNewAndOpen();
    EXPECT_EQ(Caption(Window().txtNamn), "Premiepension");
}

TEST_F(FileKeysTest, PrintTheReport) {
    QImage(8, 8, QImage::Format_RGB32).save(ToQt((Folder() / "Grid.dib").string()), "BMP");
    ChooseFund(0);
    Window().txtValue->setFocus();
    Ctrl(Qt::Key_P);
    EXPECT_EQ(outside.printing.files.size(), 1U);
    EXPECT_EQ(Caption(Window().txtValue), "");
}

TEST_F(FileKeysTest, WaitForTheEndOfTheStartUpPause) {
    Create();
    Show();
    for (const Qt::Key key : {Qt::Key_N, Qt::Key_O, Qt::Key_P}) {
        QTest::keyClick(&Window(), key, Qt::ControlModifier);
    }
    EXPECT_TRUE(outside.printing.files.empty());
}

TEST_F(FileKeysTest, WaitForAnAnswer) {
    QMessageBox box(&Window());
    box.setText(QStringLiteral("A question"));
    box.open();
    ASSERT_EQ(QApplication::activeModalWidget(), &box);
    QTest::keyClick(&box, Qt::Key_O, Qt::ControlModifier);
    QTest::keyClick(&Window(), Qt::Key_O, Qt::ControlModifier);
    box.close();
}

}  // namespace
