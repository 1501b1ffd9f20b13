// Safety copies: made before a day's first change and never for who only looks, and restored.

#include "fundfile/schema.h"
#include "fundfile/texts.h"
#include "platform/datasource.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"

#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <sstream>

namespace {

namespace fs = std::filesystem;
using namespace schema::holding;

class SafetyCopiesTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        SetToday(2026, 11, 16);
        Start();
    }
    fs::path Copies() const { return Folder() / "Kopior"; }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        if (!fs::is_directory(Copies())) return names;
        for (const auto& entry : fs::directory_iterator(Copies())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string BytesOf(const std::string& copy) const {
        std::ifstream file(Copies() / copy, std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }
    std::string Notice() { return Window().notice; }
    std::string LineAt(int row) { return FromQt(Window().lstKopior->item(row)->text()); }
    void AskRestore(const std::string& date, Answer answer) {
        outside.dialogs
            .Expect(
                std::string(fundtexts::AskRestore) + date + std::string(fundtexts::RestoreReplaces),
                Buttons::YesNo, Icon::Exclamation, DefaultButton::Second)
            .Answer(answer);
    }
};

using Strings = std::vector<std::string>;

TEST_F(SafetyCopiesTest, AreNotMadeForWhoOnlyLooks) {
    ChooseFund(0);
    Window().mnuTotal->trigger();
    Window().mnuPEdit->trigger();
    Window().mnuAterstall->trigger();
    Click(Window().cmdPPMData);
    Click(Window().cmdPPMData);
    Press(Qt::Key_F8);
    CloseWindow();
    EXPECT_FALSE(fs::exists(Copies()));
}

TEST_F(SafetyCopiesTest, AreMadeOnceADayBeforeItsFirstChange) {
    const std::string before = Bytes();
    ChooseFund(0);
    TypePrice("110");
    ASSERT_NE(Bytes(), before);
    EXPECT_EQ(Names(), Strings{"Vimmels_exempel 2026-11-16.mdb"});
    EXPECT_TRUE(BytesOf("Vimmels_exempel 2026-11-16.mdb") == before);
    ChooseFund(1);
    TypePrice("111");
    // Opened anew on the same day.
    Start();
    ChooseFund(0);
    TypePrice("112");
    EXPECT_EQ(Names(), Strings{"Vimmels_exempel 2026-11-16.mdb"});
    EXPECT_TRUE(BytesOf("Vimmels_exempel 2026-11-16.mdb") == before);
    EXPECT_EQ(Notice(), "");
    // Open over midnight.
    const std::string evening = Bytes();
    SetToday(2026, 11, 17);
    ChooseFund(1);
    TypePrice("113");
    EXPECT_EQ(Names().size(), 2U);
    EXPECT_TRUE(BytesOf("Vimmels_exempel 2026-11-17.mdb") == evening);
}

TEST_F(SafetyCopiesTest, ThatCannotBeMadeAreToldOnceAndStopNothing) {
    std::ofstream(Copies()) << "in the way";
    ChooseFund(0);
    TypePrice("110");
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 110,00");
    outside.clock.Pass(std::chrono::milliseconds(0));
    EXPECT_EQ(Notice(), fundtexts::NoSafetyCopy);
    ChooseFund(1);
    EXPECT_EQ(Notice(), "");
    TypePrice("111");
    outside.clock.Pass(std::chrono::milliseconds(0));
    EXPECT_EQ(Notice(), "") << "said once";
    EXPECT_EQ(Holding(1, kSenasteKurs), "Senaste : 111,00");
    // As soon as it can be written there is one.
    fs::remove(Copies());
    TypePrice("112");
    EXPECT_EQ(Names().size(), 1U);
}

TEST_F(SafetyCopiesTest, WithoutOneTheMenuSaysSo) {
    Window().mnuAterstall->trigger();
    EXPECT_TRUE(Window().panKopior->isVisible());
    EXPECT_EQ(Caption(Window().lblKopia), fundtexts::NoCopiesYet);
    EXPECT_FALSE(Window().cmdAterstall->isEnabled());
    Press(Qt::Key_Return);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Window().panKopior->isVisible());
}

TEST_F(SafetyCopiesTest, AreListedWithDateHoldingsPointsAndWhatDiffersFromNow) {
    ChooseFund(0);
    TypePrice("110");
    SetToday(2026, 11, 17);
    TypePrice("120");
    Window().mnuAterstall->trigger();
    EXPECT_EQ(QApplication::focusWidget(), Window().lstKopior);
    ASSERT_EQ(Window().lstKopior->count(), 2);
    const auto points = [&] { return std::to_string(Window().dtaPlott->RecordCount() - 1); };
    EXPECT_EQ(LineAt(0), "2026-11-17\n    2 innehav, " + points() + " punkter");
    EXPECT_EQ(LineAt(1).substr(0, 10), "2026-11-16");
    EXPECT_EQ(Caption(Window().lblKopia), "Innehav som ändrats sedan dess: 1 - " +
                                              Holding(0, kFond) +
                                              "\nPunkter som saknas i kopian: 1");
    Press(Qt::Key_Down);
    EXPECT_EQ(Window().lstKopior->currentRow(), 1);
    EXPECT_NE(Caption(Window().lblKopia).find("Punkter som saknas i kopian: 2"), std::string::npos);
}

TEST_F(SafetyCopiesTest, ThatCannotBeReadSaySoAndAreNotRestored) {
    fs::create_directory(Copies());
    std::ofstream(Copies() / "Vimmels_exempel 2026-11-10.mdb") << "no database";
    const std::string before = Bytes();
    Window().mnuAterstall->trigger();
    EXPECT_EQ(LineAt(0), "2026-11-10\n    kan inte läsas");
    EXPECT_EQ(Caption(Window().lblKopia), fundtexts::Explain(ErrorNumber::ForeignFormat));
    AskRestore("2026-11-10", Answer::Yes);
    outside.dialogs.Expect(
        fundtexts::Failure(fundtexts::NotRestored,
                           (Copies() / "Vimmels_exempel 2026-11-10.mdb").string(),
                           fundtexts::Explain(ErrorNumber::ForeignFormat)),
        Buttons::Ok, Icon::Exclamation);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Bytes() == before);
    ChooseFund(0);
    TypePrice("110");
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 110,00") << "the file is open as before";
}

TEST_F(SafetyCopiesTest, AreRestoredAfterAQuestionAndTheFormerStateIsCopiedFirst) {
    const std::string before = Bytes();
    ChooseFund(0);
    TypePrice("110");
    const std::string after = Bytes();
    Window().mnuAterstall->trigger();
    AskRestore("2026-11-16", Answer::No);
    Click(Window().cmdAterstall);
    EXPECT_TRUE(Bytes() == after);
    EXPECT_EQ(Names().size(), 1U);
    AskRestore("2026-11-16", Answer::Yes);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Bytes() == before);
    EXPECT_TRUE(BytesOf("Vimmels_exempel 2026-11-16 nr 2.mdb") == after);
    EXPECT_EQ(Notice(),
              "Filen är återställd från kopian 2026-11-16 : som den var finns i "
              "Vimmels_exempel 2026-11-16 nr 2.mdb");
    EXPECT_FALSE(Window().panKopior->isVisible());
    EXPECT_TRUE(Window().panListFonder->isVisible());
    // And back again.
    Window().mnuAterstall->trigger();
    EXPECT_EQ(LineAt(0).substr(0, 16), "2026-11-16  nr 2");
    AskRestore("2026-11-16  nr 2", Answer::Yes);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Bytes() == after);
    ChooseFund(1);
    TypePrice("111");
    EXPECT_TRUE(Faults().empty());
}

TEST_F(SafetyCopiesTest, AreNotRestoredWhereTheFormerStateCannotBeCopied) {
    ChooseFund(0);
    TypePrice("110");
    Window().mnuAterstall->trigger();
    const std::string after = Bytes();
    const fs::path aside = Folder() / "undan";
    fs::rename(Copies(), aside);
    std::ofstream(Copies()) << "in the way";
    AskRestore("2026-11-16", Answer::Yes);
    outside.dialogs.Expect(
        fundtexts::Failure(fundtexts::NotRestored,
                           (Copies() / "Vimmels_exempel 2026-11-16.mdb").string(),
                           fundtexts::Explain(ErrorNumber::PathNotFound)),
        Buttons::Ok, Icon::Exclamation);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Bytes() == after);
}

}  // namespace
