// Files that are dragged over the window and dropped there.

#include "jet/database.h"
#include "platform/qttext.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"

#include <QApplication>
#include <QDragEnterEvent>
#include <QDragLeaveEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QList>
#include <QMessageBox>
#include <QMimeData>
#include <QPixmap>
#include <QUrl>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

class FileDropTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        other_ = Folder() / "sub" / "Andra.mdb";
        fs::create_directory(other_.parent_path());
        WriteFundFile(other_, {TestHolding{}, TestHolding{}, TestHolding{}});
        Start();
        Hold({other_});
    }
    void Hold(const std::vector<fs::path>& paths) {
        QList<QUrl> urls;
        for (const fs::path& path : paths) urls << QUrl::fromLocalFile(ToQt(path.string()));
        data_.setUrls(urls);
        // As a file manager has it: what a field would take as its text.
        data_.setText(urls.empty() ? QString() : urls.front().toString());
    }
    bool Enters(QWidget* where, Qt::DropActions actions = Qt::CopyAction | Qt::MoveAction) {
        QDragEnterEvent event(QPoint(5, 5), actions, &data_, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(where, &event);
        if (event.isAccepted()) {
            EXPECT_NE(event.dropAction(), Qt::MoveAction) << "the file stays";
        }
        return event.isAccepted();
    }
    bool Moves(QWidget* where) {
        QDragMoveEvent event(QPoint(6, 6), Qt::CopyAction, &data_, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(where, &event);
        return event.isAccepted();
    }
    void Leaves(QWidget* where) {
        QDragLeaveEvent event;
        QApplication::sendEvent(where, &event);
    }
    /// Where it is refused when it enters, the system drops nothing.
    bool Drops(QWidget* where) {
        if (!Enters(where)) return false;
        QDropEvent event(QPointF(6, 6), Qt::CopyAction | Qt::MoveAction, &data_, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(where, &event);
        return event.isAccepted();
    }
    void AskedAboutHalf(Answer answer) {
        outside.dialogs
            .Expect(
                "Det här är inte sparat:\r\n\r\nRaden för Halv\r\n    Kurs Kr saknas eller är "
                "inte större än 0\r\n\r\nVill du gå vidare utan det ?",
                Buttons::YesNo, Icon::Question, DefaultButton::Second)
            .Answer(answer);
    }
    void LetItOpen() { outside.clock.Pass(std::chrono::milliseconds(0)); }
    std::string Notice() { return Window().staBar->Notice(); }
    std::string Heading() { return Caption(Window().lblRubrik); }
    bool Framed() { return Window().fraSlapp->isVisible(); }

    fs::path other_;
    QMimeData data_;
};

TEST_F(FileDropTest, AFundFileOpensWhereverItIsDropped) {
    ChooseFund(0);
    for (QWidget* where :
         {static_cast<QWidget*>(&Window()), static_cast<QWidget*>(Window().txtValue)}) {
        EXPECT_TRUE(Enters(where));
        EXPECT_TRUE(Framed());
        EXPECT_EQ(Notice(), "Släpp filen för att öppna Andra.mdb");
        EXPECT_TRUE(Moves(where));
        EXPECT_TRUE(Drops(where));
        EXPECT_FALSE(Framed());
        EXPECT_EQ(Caption(Window().txtValue), "");
        LetItOpen();
        EXPECT_EQ(Heading(), "Du arbetar med Andra");
        EXPECT_EQ(Lines().size(), 3U);
        EXPECT_TRUE(fs::exists(other_));
        Window().OpenChosenFile(SamplePath().string());
    }
}

TEST_F(FileDropTest, TheFrameIsInSightAndGoesWithTheFile) {
    const QImage before = Window().grab().toImage();
    Enters(&Window());
    const QImage framed = Window().grab().toImage();
    EXPECT_NE(framed.pixelColor(1, 200), before.pixelColor(1, 200));
    Leaves(&Window());
    EXPECT_FALSE(Framed());
    EXPECT_EQ(Notice(), "");
    EXPECT_TRUE(Window().grab().toImage() == before);
    LetItOpen();
    EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
}

TEST_F(FileDropTest, GoesTheRoadOfTheOpenDialog) {
    Window().cmdPPMData_Click();
    Window().DBGrid->setFocus();
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    for (const char* letter : {"H", "a", "l", "v"}) Type(letter);
    EXPECT_TRUE(Drops(&Window()));
    AskedAboutHalf(Answer::No);
    LetItOpen();
    EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
    outside.dialogs.Verify();
    AskedAboutHalf(Answer::Yes);
    EXPECT_TRUE(Drops(&Window()));
    LetItOpen();
    EXPECT_EQ(Heading(), "Du arbetar med Andra");
}

TEST_F(FileDropTest, AFileThatIsNoFundFileIsToldAsByTheOpenDialog) {
    const fs::path torn = Folder() / "trasig.mdb";
    std::ofstream(torn) << "no database";
    Hold({torn});
    EXPECT_TRUE(Drops(&Window()));
    outside.dialogs.Expect(
        "Filen öppnades inte\r\n\r\n" + torn.string() +
            "\r\n\r\nFilen är ingen databas i Access-format. Den är inte ändrad.",
        Buttons::Ok, Icon::Exclamation);
    LetItOpen();
    EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
}

TEST_F(FileDropTest, OtherFilesAndSeveralAreRefusedWithAWord) {
    const struct {
        std::vector<fs::path> paths;
        std::string word;
    } rows[] = {{{Folder() / "bild.png"}, "Bara en fondfil, som slutar på .mdb, kan öppnas här"},
                {{Folder() / "Db0.dat"}, "Bara en fondfil, som slutar på .mdb, kan öppnas här"},
                {{other_, SamplePath()}, "Bara en fil i taget kan öppnas"}};
    for (const auto& row : rows) {
        Hold(row.paths);
        EXPECT_FALSE(Enters(Window().picDiagram));
        EXPECT_EQ(Notice(), row.word);
        EXPECT_FALSE(Moves(Window().txtValue));
        EXPECT_FALSE(Framed());
        Leaves(&Window());
        EXPECT_EQ(Notice(), row.word) << "it stays to be read";
        EXPECT_FALSE(Drops(&Window()));
        LetItOpen();
        EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
        outside.clock.Pass(std::chrono::seconds(8));
        EXPECT_EQ(Notice(), "");
    }
    data_.setUrls({QUrl(QStringLiteral("https://example.org/a.mdb"))});
    EXPECT_FALSE(Drops(&Window()));
    EXPECT_EQ(Notice(), "Bara en fondfil, som slutar på .mdb, kan öppnas här");
}

TEST_F(FileDropTest, IsNotTakenByAMove) {
    EXPECT_FALSE(Enters(&Window(), Qt::MoveAction));
    EXPECT_TRUE(Enters(&Window(), Qt::LinkAction));
    Leaves(&Window());
}

TEST_F(FileDropTest, TextsAreDraggedIntoFieldsAsBefore) {
    ChooseFund(0);
    QMimeData text;
    text.setText(QStringLiteral("12,5"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window().txtValue, &enter);
    EXPECT_FALSE(Framed());
    QDropEvent event(QPointF(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(Window().txtValue, &event);
    EXPECT_EQ(Caption(Window().txtValue), "12,5");
}

TEST_F(FileDropTest, WaitsWhileAQuestionStands) {
    QMessageBox box(&Window());
    box.open();
    EXPECT_FALSE(Enters(&Window()));
    EXPECT_FALSE(Drops(&Window()));
    EXPECT_FALSE(Framed());
    box.close();
    EXPECT_TRUE(Enters(&Window()));
    EXPECT_TRUE(Drops(&Window()));
    box.open();
    LetItOpen();
    EXPECT_EQ(Heading(), "Du arbetar med Vimmels_exempel");
    box.close();
    outside.clock.Pass(std::chrono::milliseconds(100));
    EXPECT_EQ(Heading(), "Du arbetar med Andra") << "after the answer";
}

TEST_F(FileDropTest, InTheStartUpPauseOpensWhenThatHasEnded) {
    Create();
    Show();
    EXPECT_TRUE(Drops(&Window()));
    LetItOpen();
    EXPECT_EQ(Window().CurrentFile, SamplePath().string());
    PassPause();
    outside.clock.Pass(std::chrono::milliseconds(100));
    EXPECT_EQ(Heading(), "Du arbetar med Andra");
    EXPECT_TRUE(Window().panListFonder->isVisible());
}

}  // namespace
