// Holdings and points written as tables, and imported again.

#include "base/csv.h"
#include "platform/qttext.h"
#include "tests/support/samplefiles.h"
#include "tests/window/windowtest.h"
#include "widgets/texttable.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

class ExportTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        Start();
    }
    std::string In(const std::string& name) const { return (Folder() / name).string(); }
    static std::string Contents(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    ScriptedDialogs::FileStep Asked() {
        return outside.dialogs.ExpectFile({.choice = FileChoice::Save,
                                           .title = "Exportera innehav och kurser",
                                           .filter = "Tabeller för kalkylark|*.csv",
                                           .folder = Folder().string(),
                                           .defaultExtension = "csv",
                                           .fileName = "Vimmels_exempel.csv"});
    }
    std::string Notice() { return Window().staBar->Notice(); }
};

TEST_F(ExportTest, WritesTwoTables) {
    Asked().Pick(In("ut.csv"));
    Window().mnuExportera->trigger();
    EXPECT_EQ(Notice(), "Exporterat : ut innehav.csv och ut kurser.csv");
    const std::string holdings = Contents(In("ut innehav.csv"));
    EXPECT_TRUE(
        holdings.starts_with("\xEF\xBB\xBF"
                             "Nr;Fond;Fondnr;Datum;"));
    EXPECT_NE(holdings.find("\r\n1;Vimmels Asien;249 995;2026-01-02;10;100;1000;50;Premiepension;;;"
                            "2026-10-30;110,00;10;1100\r\n"),
              std::string::npos)
        << holdings;
    EXPECT_EQ(Contents(In("ut kurser.csv")),
              "\xEF\xBB\xBF"
              "Datum;Nr;Fondnr;Fond;Konto;Procent;Kronor\r\n"
              "2026-01-02;1;249 995;Vimmels Asien;Premiepension;0;100,00\r\n"
              "2026-10-30;1;249 995;Vimmels Asien;Premiepension;10;110,00\r\n"
              "2026-01-02;2;468 024;Kvarnbo Europa;Premiepension;0;50,00\r\n"
              "2026-10-30;2;468 024;Kvarnbo Europa;Premiepension;30;65,00\r\n");
    EXPECT_FALSE(fs::exists(In("ut.csv")));
    outside.clock.Pass(std::chrono::seconds(8));
    EXPECT_EQ(Notice(), "");
}

TEST_F(ExportTest, AsksOnceBeforeItReplacesAndLeavesBothWhereOneFails) {
    std::ofstream(In("ut kurser.csv")) << "an earlier one";
    const auto asked = [&](Answer answer) {
        Asked().Pick(In("ut kurser.csv"));
        outside.dialogs
            .Expect("ut kurser.csv finns redan.\r\n\r\nVill du ersätta det som finns ?",
                    Buttons::YesNo, Icon::Exclamation, DefaultButton::Second)
            .Answer(answer);
        Window().mnuExportera->trigger();
    };
    asked(Answer::No);
    EXPECT_EQ(Contents(In("ut kurser.csv")), "an earlier one");
    fs::create_directory(In("ut innehav.csv"));
    Asked().Pick(In("ut.csv"));
    outside.dialogs
        .Expect(
            "ut innehav.csv finns redan.\r\nut kurser.csv finns redan.\r\n\r\nVill du ersätta "
            "det som finns ?",
            Buttons::YesNo, Icon::Exclamation, DefaultButton::Second)
        .Answer(Answer::Yes);
    outside.dialogs.Expect("Tabellerna sparades inte\r\n\r\n" + In("ut innehav.csv") + "\r\n" +
                               In("ut kurser.csv") +
                               "\r\n\r\nDu har inte rätt att läsa eller skriva filen.",
                           Buttons::Ok, Icon::Exclamation);
    Window().mnuExportera->trigger();
    EXPECT_EQ(Contents(In("ut kurser.csv")), "an earlier one");
    EXPECT_EQ(Notice(), "");
    fs::remove(In("ut innehav.csv"));
    asked(Answer::Yes);
    EXPECT_NE(Contents(In("ut kurser.csv")), "an earlier one");
    EXPECT_TRUE(fs::exists(In("ut innehav.csv")));
    Asked().Cancel();
    Window().mnuExportera->trigger();
}

TEST_F(ExportTest, IsNotOfferedWithoutAFile) {
    fs::remove(SamplePath());
    std::ofstream(SamplePath()) << "torn";
    Start();
    EXPECT_FALSE(Window().mnuExportera->isEnabled());
    EXPECT_FALSE(Window().mnuImportera->isEnabled());
}

/// Each of our own fund files.
class ExportedTest : public ExportTest, public ::testing::WithParamInterface<const char*> {
  protected:
    void SetUp() override {}
};

TEST_P(ExportedTest, ImportedAgainStoresNothingNew) {
    CopySample(GetParam());
    SetToday(2026, 11, 16);
    Start();
    if (!Window().hasHoldings) return;
    Asked().Pick(In("ut.csv"));
    Window().mnuExportera->trigger();
    const std::size_t lines = ReadCsv(DecodeForeignText(Contents(In("ut kurser.csv")))).size();
    if (lines < 2) return;
    const std::string before = Bytes();
    outside.dialogs.ExpectFile(FileChoice::Open, "Importera kurser").Pick(In("ut kurser.csv"));
    Window().mnuImportera->trigger();
    ASSERT_TRUE(Window().panImport->isVisible());
    EXPECT_GE(Window().grdImport->Rows().size(), lines - 1);
    EXPECT_TRUE(Caption(Window().lblImport).starts_with("Inget att spara. "))
        << Caption(Window().lblImport) << Window().grdImport->Rows().front().cells.back();
    EXPECT_FALSE(Window().cmdImportera->isEnabled());
    Press(Qt::Key_Return);
    EXPECT_TRUE(Bytes() == before);
}

INSTANTIATE_TEST_SUITE_P(OurFiles, ExportedTest,
                         ::testing::Values("access97", "konton", "liten", "raderad", "svensk",
                                           "textindex", "tom", "utan_index", "valuta"));

}  // namespace
