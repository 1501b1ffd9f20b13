// Prices from a file: looked at, and stored in one step.

#include "fundfile/schema.h"
#include "platform/qttext.h"
#include "tests/window/windowtest.h"
#include "widgets/texttable.h"

#include <QAction>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace schema::holding;

class PriceImportTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        SetToday(2026, 11, 16);
        Start();
    }
    std::string File() const { return (Folder() / "kurser.csv").string(); }
    void Asked(std::string_view text) {
        std::ofstream(File(), std::ios::binary) << text;
        outside.dialogs
            .ExpectFile({.choice = FileChoice::Open,
                         .title = "Importera kurser",
                         .filter = "Kurser i textform|*.csv *.txt|Alla filer|*",
                         .folder = Folder().string(),
                         .mustExist = true})
            .Pick(File());
    }
    void Import(std::string_view text) {
        Asked(text);
        Window().mnuImportera->trigger();
    }
    void ImportInVain(std::string_view text, std::string_view why) {
        Asked(text);
        outside.dialogs.Expect(
            "Kurserna importerades inte\r\n\r\n" + File() + "\r\n\r\n" + std::string(why),
            Buttons::Ok, Icon::Exclamation);
        Window().mnuImportera->trigger();
    }
    std::string Cell(int row, int column) {
        return Window()
            .grdImport->Rows()
            .at(static_cast<std::size_t>(row))
            .cells.at(static_cast<std::size_t>(column));
    }
    std::size_t Rows() { return Window().grdImport->Rows().size(); }
    std::string Note() { return Caption(Window().lblImport); }
    bool Shown() { return Window().panImport->isVisible(); }
    std::string Notice() { return Window().staBar->Notice(); }
};

constexpr const char* kPrices =
    "Datum;Fond;Kurs\r\n"
    "2026-11-13;Vimmels Asien;112,50\r\n"
    "12/11 2026;468024;66.5\r\n"
    "20261030;Vimmels Asien;110\r\n"
    "2026-11-11;Okänd;12\r\n"
    "2026-11-10;Kvarnbo Europa;\r\n";

TEST_F(PriceImportTest, ShowsWhatItWouldStoreSkipAndRefuse) {
    const std::string before = Bytes();
    Import(kPrices);
    ASSERT_TRUE(Shown());
    EXPECT_TRUE(Bytes() == before);
    EXPECT_EQ(FromQt(Window().panImport->title()), "Importera kurser ur kurser.csv");
    EXPECT_EQ(Rows(), 5U);
    EXPECT_EQ(Window().grdImport->Rows()[0].cells,
              (std::vector<std::string>{"5", "2026-11-11", "Okänd", "", "12",
                                        "Sparas inte: ingen fond heter så"}));
    EXPECT_EQ(Window().grdImport->Rows()[0].tone, RowTone::Doubted);
    EXPECT_EQ(Window().grdImport->Rows()[1].cells,
              (std::vector<std::string>{"2", "2026-11-13", "Vimmels Asien", "Premiepension",
                                        "112,50", "12 %, +2,3 %"}));
    EXPECT_EQ(Cell(2, 2), "Kvarnbo Europa");
    EXPECT_EQ(Cell(2, 5), "33 %, +2,3 %");
    EXPECT_EQ(Cell(3, 5), "Ingen kurs på raden");
    EXPECT_EQ(Cell(4, 5), "Finns redan");
    EXPECT_EQ(Window().grdImport->Rows()[4].tone, RowTone::Quiet);
    EXPECT_EQ(Note(),
              "Enter sparar 2 kurser. 1 rad sparas inte. 1 är redan lagrad. 1 rad har ingen kurs. "
              "Esc ångrar.");
    EXPECT_TRUE(Window().grdImport->hasFocus());
    EXPECT_EQ(FromQt(Window().grdImport->accessibleDescription()), Note());
}

TEST_F(PriceImportTest, StoresAllInOneStepThatCanBeTakenBack) {
    const std::string before = Bytes();
    Import(kPrices);
    Press(Qt::Key_Return);
    EXPECT_FALSE(Shown());
    EXPECT_EQ(Notice(), "2 kurser är importerade ur kurser.csv");
    EXPECT_EQ(PointsOf(1), (std::vector<CurvePoint>{{46024, 0}, {46325, 10}, {46339, 12}}));
    EXPECT_EQ(PointsOf(2), (std::vector<CurvePoint>{{46024, 0}, {46325, 30}, {46338, 33}}));
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 112,50");
    EXPECT_EQ(Holding(0, kProcent), "12 %");
    EXPECT_EQ(Holding(1, kSenasteKurs), "Senaste : 66,50");
    EXPECT_TRUE(Faults().empty());
    EXPECT_EQ(Caption(Window().mnuAngra), "Ångra : kurserna ur kurser.csv");
    const std::string after = Bytes();
    Window().mnuAngra->trigger();
    EXPECT_EQ(PointsOf(1).size(), 2U);
    EXPECT_EQ(PointsOf(2).size(), 2U);
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 110,00");
    EXPECT_TRUE(Bytes() == before);
    Window().mnuGorOm->trigger();
    EXPECT_TRUE(Bytes() == after);
    // The same once more stores nothing.
    Import(kPrices);
    EXPECT_EQ(Note(),
              "Inget att spara. 1 rad sparas inte. 3 är redan lagrade. 1 rad har ingen kurs. Esc "
              "lämnar sidan.");
    EXPECT_FALSE(Window().cmdImportera->isEnabled());
}

TEST_F(PriceImportTest, AnEarlierDayLeavesTheSummaryAndTheOpenFundShowsIt) {
    ChooseFund(0);
    Import("2026-10-01;Vimmels Asien;105\n2026-10-02;Vimmels Asien;104\n");
    Click(Window().cmdImportera);
    EXPECT_EQ(PointsOf(1).size(), 4U);
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 110,00");
    EXPECT_EQ(Status(4), "Senaste : 110,00");
    Import("2026-11-14;Vimmels Asien;115\n");
    Press(Qt::Key_Return);
    EXPECT_EQ(Status(4), "Senaste : 115,00");
    EXPECT_EQ(FraData(0), "249 995") << "it stays open";
    EXPECT_TRUE(Faults().empty());
}

TEST_F(PriceImportTest, EscAndTheButtonLeaveItAndStoreNothing) {
    const std::string before = Bytes();
    Import(kPrices);
    Press(Qt::Key_Escape);
    EXPECT_FALSE(Shown());
    EXPECT_EQ(Rows(), 0U);
    Import(kPrices);
    Click(Window().cmdImportNej);
    EXPECT_FALSE(Shown());
    Import(kPrices);
    Press(Qt::Key_F6);
    EXPECT_FALSE(Shown());
    EXPECT_TRUE(Bytes() == before);
}

TEST_F(PriceImportTest, FarAboveTheStartIsAskedAboutOnceForAll) {
    const std::string many =
        "2026-11-10;Vimmels Asien;310\n2026-11-11;Vimmels Asien;311\n2026-11-12;Kvarnbo "
        "Europa;66\n";
    const auto asked = [&](Answer answer) {
        outside.dialogs
            .Expect("2 kurser är mer än 200 % över startkursen.\r\n\r\nVill du spara dem också ?",
                    Buttons::YesNo, Icon::Question, DefaultButton::Second)
            .Answer(answer);
    };
    Import(many);
    EXPECT_EQ(Cell(0, 5), "Stämmer det? mer än 200 % ökning");
    asked(Answer::No);
    Press(Qt::Key_Return);
    EXPECT_EQ(PointsOf(1).size(), 2U);
    EXPECT_EQ(PointsOf(2).size(), 3U);
    EXPECT_EQ(Notice(), "1 kurs är importerad ur kurser.csv");
    Import(many);
    asked(Answer::Yes);
    Press(Qt::Key_Return);
    EXPECT_EQ(PointsOf(1).size(), 4U);
    Import("2026-11-13;Vimmels Asien;320\n");
    outside.dialogs
        .Expect("1 kurs är mer än 200 % över startkursen.\r\n\r\nVill du spara den också ?",
                Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No);
    Press(Qt::Key_Return);
    EXPECT_TRUE(Shown()) << "nothing is left to store, and nothing was";
}

TEST_F(PriceImportTest, FollowsAFileThatChangesMeanwhile) {
    ChooseFund(0);
    TypePrice("111");
    Import("2026-11-16;Vimmels Asien;111\n");
    EXPECT_EQ(Cell(0, 5), "Finns redan");
    QTest::keyClick(Window().focusWidget(), Qt::Key_Z, Qt::ControlModifier);
    ASSERT_TRUE(Shown());
    EXPECT_EQ(Cell(0, 5), "11 %, +0,9 %");
    Press(Qt::Key_Return);
    EXPECT_EQ(Holding(0, kSenasteKurs), "Senaste : 111,00");
}

TEST_F(PriceImportTest, AFileThatIsNoTableOfPricesIsRefused) {
    ImportInVain(
        "hej\nhopp",
        "Det går inte att se vilka kolumner som är datum och kurs. Ge kolumnerna rubrikerna "
        "Datum, Fond och Kurs.");
    ImportInVain(std::string_view("PK\3\4\0\0", 6),
                 "Filen är ingen textfil. Spara tabellen som CSV i det program som har gjort den.");
    ImportInVain(std::string((32 << 20) + 1, ';'), "Filen är större än 32 MB.");
    std::string many;
    for (int i = 0; i < 200'001; ++i) many += "2026-11-13;Okänd;12\n";
    ImportInVain(many, "Filen har fler än 200 000 rader.");
    EXPECT_FALSE(Shown());
    outside.dialogs.ExpectFile(FileChoice::Open, "Importera kurser").Pick(Folder().string());
    outside.dialogs.Expect("Kurserna importerades inte\r\n\r\n" + Folder().string() +
                               "\r\n\r\nDisken kan inte läsas eller skrivas. Filen är som den var "
                               "före ändringen.",
                           Buttons::Ok, Icon::Exclamation);
    Window().mnuImportera->trigger();
    outside.dialogs.ExpectFile(FileChoice::Open, "Importera kurser").Cancel();
    Window().mnuImportera->trigger();
    EXPECT_FALSE(Shown());
}

TEST_F(PriceImportTest, WhatIsStrangeInAFileStaysText) {
    Import(
        "Datum;Fond;Kurs\n\"2026-11-13\n;\";\"<b>=1+1</b>\t\x01\";\"1\n2\"\n"
        "2026-11-13;Vimmels Asien;1e5\n2026-11-13;Vimmels Asien;inf\n"
        "2026-11-13;Vimmels Asien;99999999999999999999999999999999999999999999\n"
        "99999999999-1-1;Vimmels Asien;1\n2026-11-13;Vimmels Asien;-5\n");
    ASSERT_TRUE(Shown());
    EXPECT_EQ(Rows(), 6U);
    EXPECT_TRUE(Note().starts_with("Inget att spara. 6 rader sparas inte. ")) << Note();
    EXPECT_EQ(Cell(0, 2), "<b>=1+1</b>\t\x01");
}

TEST_F(PriceImportTest, ALargeFileIsShownAndStoredAtOnce) {
    std::string many = "Datum;Fond;Kurs\n";
    for (int i = 0; i < 100'000; ++i) {
        const int year = 1700 + i / 336, day = i % 28 + 1, month = i / 28 % 12 + 1;
        many += std::to_string(year) + "-" + std::to_string(month) + "-" + std::to_string(day) +
                ";Kvarnbo Europa;" + std::to_string(40 + i % 20) + "\n";
    }
    const auto begin = std::chrono::steady_clock::now();
    Import(many);
    const auto shown = std::chrono::steady_clock::now();
    ASSERT_TRUE(Shown());
    EXPECT_EQ(Rows(), 100'000U);
    Press(Qt::Key_Return);
    const auto stored = std::chrono::steady_clock::now();
    EXPECT_FALSE(Shown());
    EXPECT_GT(PointsOf(2).size(), 99'000U);
    const auto ms = [](auto from, auto to) {
        return std::to_string(
            std::chrono::duration_cast<std::chrono::milliseconds>(to - from).count());
    };
    RecordProperty("shownMs", ms(begin, shown));
    RecordProperty("storedMs", ms(shown, stored));
    EXPECT_LT(stored - begin, std::chrono::seconds(60))
        << "seconds, not minutes, on a busy machine";
}

}  // namespace
