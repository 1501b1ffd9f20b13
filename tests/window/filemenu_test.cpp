// The menu's file commands: new, open, save a copy, delete, and the file to start with.

#include "entry/texts.h"
#include "fundfile/fundfile.h"
#include "fundfile/schema.h"
#include "jet/database.h"
#include "platform/commondialog.h"
#include "platform/settings.h"
#include "tests/support/otherprocess.h"
#include "tests/window/windowtest.h"
#include "widgets/datagrid.h"
#include "widgets/tag.h"

#include <QAbstractItemModel>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTableView>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <span>

namespace {

namespace fs = std::filesystem;
using testdata::OtherCopy;

constexpr const char* kDeleteFirst =
    "Du håller på att ta bort en Fondfil !\r\n\r\nÄr detta riktigt ?";
constexpr const char* kOpenNew = "Vill du Öppna med den Nya filen  ?";

class FileMenuTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        jet::Database::Create(Folder() / "Db0.dat", NewFundFileDesign());
        Start();
    }

    std::string In(const std::string& name) const { return (Folder() / name).string(); }
    std::string AppFolder() const { return Folder().string() + "/"; }

    FileRequest Request(FileChoice choice, const std::string& title) const {
        return {.choice = choice,
                .title = title,
                .filter = "Access97 mdb|*.mdb",
                .folder = AppFolder(),
                .defaultExtension = "mdb",
                .fileName = ""};
    }
    FileRequest SaveRequest(const std::string& title) const {
        FileRequest request = Request(FileChoice::Save, title);
        request.askBeforeOverwriting = true;
        return request;
    }
    FileRequest OpenRequest(const std::string& title) const {
        FileRequest request = Request(FileChoice::Open, title);
        request.mustExist = true;
        return request;
    }

    void New(const std::string& pick) {
        outside.dialogs.ExpectFile(SaveRequest("    Lägg upp Ny tom  och Spara som...")).Pick(pick);
    }
    void Open(const std::string& pick) {
        outside.dialogs.ExpectFile(OpenRequest("      Öppna FondFil")).Pick(pick);
    }
    void SaveAs(const std::string& pick) {
        outside.dialogs.ExpectFile(SaveRequest("    Spara som...")).Pick(pick);
    }
    void Delete(const std::string& pick) {
        outside.dialogs.ExpectFile(FileChoice::Open, "        Raderar denna fil").Pick(pick);
    }
    ScriptedDialogs::FileStep StartFile(const std::string& pick) {
        return outside.dialogs.ExpectFile(OpenRequest("      StartFil skall vara..")).Pick(pick);
    }
    void AskedToDelete(const std::string& path, Answer first, Answer second) {
        outside.dialogs.Expect(kDeleteFirst, Buttons::YesNo, Icon::Question, DefaultButton::Second)
            .Answer(first);
        if (first == Answer::Yes) {
            outside.dialogs
                .Expect("Fil  " + path + "  kommer att raderas !\r\n\r\nÄr detta riktigt ?",
                        Buttons::YesNo, Icon::Exclamation, DefaultButton::Second)
                .Answer(second);
        }
    }
    void Told(const std::string& failed, const std::string& path, const std::string& why) {
        outside.dialogs.Expect(failed + "\r\n\r\n" + path + "\r\n\r\n" + why, Buttons::Ok,
                               Icon::Exclamation);
    }

    std::string Setting(std::string_view key) const {
        return outside.settings.Get("Kvarnbo", "StartUp", key);
    }
    static std::string Contents(const fs::path& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    static void Write(const fs::path& path, std::string_view bytes) {
        std::ofstream(path, std::ios::binary) << bytes;
    }
    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(Folder())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    /// The window works on the sample file as before: chosen fund,
    /// list, and prices that are stored.
    void ExpectStillOnSample() {
        EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med Vimmels_exempel");
        EXPECT_EQ(Window().CurrentFile, SamplePath().string());
        ASSERT_TRUE(Window().FundDb);
        EXPECT_TRUE(Window().FundDb->IsOpen());
        EXPECT_EQ(Lines(), (std::vector<std::string>{" 1. Vimmels Asien", " 2. Kvarnbo Europa"}));
    }
};

// ---- The menu ----

TEST_F(FileMenuTest, TheItemsReadAsGiven) {
    EXPECT_EQ(Caption(Window().mnuNew), "Ny Fondfil");
    EXPECT_EQ(Caption(Window().mnuOpen), "Öppna");
    EXPECT_EQ(Caption(Window().mnuSaveAs), "Spara som..");
    EXPECT_EQ(Caption(Window().mnuRadera), "Radera Fondfil");
    EXPECT_EQ(Caption(Window().mnuStartFile), "Starta Med...");
}

TEST_F(FileMenuTest, TheItemsStandInTheFileMenu) {
    const QList<QAction*> items = Window().mnuArkiv->actions();
    for (QAction* item : {Window().mnuNew, Window().mnuOpen, Window().mnuSaveAs, Window().mnuRadera,
                          Window().mnuStartFile}) {
        EXPECT_TRUE(items.contains(item)) << Caption(item);
        EXPECT_TRUE(item->isEnabled()) << Caption(item);
    }
}

// ---- New ----

TEST_F(FileMenuTest, ANewFileIsACopyOfTheTemplate) {
    New(In("ny.mdb"));
    outside.dialogs.Expect(kOpenNew, Buttons::YesNo, Icon::Question).Answer(Answer::No);
    Window().mnuNew->trigger();
    EXPECT_EQ(Contents(In("ny.mdb")), Contents(In("Db0.dat")));
    ExpectStillOnSample();
}

TEST_F(FileMenuTest, ANewFileReplacesAnOldOneOfItsName) {
    Write(In("ny.mdb"), "old");
    New(In("ny.mdb"));
    outside.dialogs.Expect(kOpenNew, Buttons::YesNo, Icon::Question).Answer(Answer::No);
    Window().mnuNew->trigger();
    EXPECT_EQ(Contents(In("ny.mdb")), Contents(In("Db0.dat")));
}

TEST_F(FileMenuTest, ACancelledNewDoesNothing) {
    const auto before = Names();
    New("");
    Window().mnuNew->trigger();
    EXPECT_EQ(Names(), before);
    ExpectStillOnSample();
}

TEST_F(FileMenuTest, YesOpensTheOpenDialogWithAnEmptyName) {
    New(In("ny.mdb"));
    outside.dialogs.Expect(kOpenNew, Buttons::YesNo, Icon::Question).Answer(Answer::Yes);
    Open(In("ny.mdb"));
    Window().mnuNew->trigger();
    EXPECT_EQ(Window().CurrentFile, In("ny.mdb"));
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med ny");
    EXPECT_EQ(Window().lstFonder->count(), 0);
}

TEST_F(FileMenuTest, WithoutTheTemplateNoFileIsMadeAndTheUserIsTold) {
    fs::remove(In("Db0.dat"));
    New(In("ny.mdb"));
    Told("Den nya filen skapades inte", In("ny.mdb"), "Filen finns inte.");
    Window().mnuNew->trigger();
    EXPECT_FALSE(fs::exists(In("ny.mdb")));
}

TEST_F(FileMenuTest, ANewFileNeverReplacesTheOpenOne) {
    New(SamplePath().string());
    Told("Den nya filen skapades inte", SamplePath().string(),
         "Filen är öppen, här eller i ett annat exemplar av Kvarnbo.");
    Window().mnuNew->trigger();
    ExpectStillOnSample();
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(FileMenuTest, ANewFileNeverReplacesTheTemplate) {
    const std::string before = Contents(In("Db0.dat"));
    New(In("Db0.dat"));
    Told("Den nya filen skapades inte", In("Db0.dat"),
         "Filen är mallen som nya fondfiler görs av. Välj ett annat namn.");
    Window().mnuNew->trigger();
    EXPECT_EQ(Contents(In("Db0.dat")), before);
}

TEST_F(FileMenuTest, ANewFileInAMissingFolderIsTold) {
    New(In("borta/ny.mdb"));
    Told("Den nya filen skapades inte", In("borta/ny.mdb"), "Mappen finns inte.");
    Window().mnuNew->trigger();
}

// ---- Open ----

class OpenTest : public FileMenuTest {
  protected:
    void SetUp() override {
        FileMenuTest::SetUp();
        TestHolding holding;
        holding.fond = "Annan fond";
        holding.skala = "./15/-10";
        WriteFundFile(In("annan.mdb"), {holding, holding, holding});
    }
};

TEST_F(OpenTest, AnotherFileTakesThePlaceOfTheFormer) {
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().CurrentFile, In("annan.mdb"));
    EXPECT_EQ(Window().FundDb->Path().filename(), "annan.mdb");
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med annan");
    EXPECT_EQ(Lines(),
              (std::vector<std::string>{" 1. Annan fond", " 2. Annan fond", " 3. Annan fond"}));
    EXPECT_EQ(Caption(Window().lblRecCount), "Listan innehåller 6 poster");
    EXPECT_FALSE(Window().panListFonder->isHidden());
    EXPECT_TRUE(Window().panBasData->isHidden());
}

TEST_F(OpenTest, TheFormerFileIsFreeForOthersAfterwards) {
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    OtherCopy other(SamplePath());
    EXPECT_EQ(other.Right(), WriteRight::Ours);
}

TEST_F(OpenTest, NoFundIsChosenUntilTheUserChoosesOne) {
    ChooseFund(1);
    ASSERT_NE(FraData(0), "");
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(FraData(0), "");
    EXPECT_EQ(Status(2), "Fond");
    TypePrice("150");
    EXPECT_EQ(Caption(Window().txtValue), "");
    for (std::int32_t kontoId = 1; kontoId <= 3; ++kontoId) {
        EXPECT_EQ(PointsOf(kontoId).size(), 2U);
    }
}

TEST_F(OpenTest, TheListHasTheFocusAsAfterTheStart) {
    EXPECT_EQ(Window().focusWidget(), Window().lstFonder);
    Window().picDiagram->setFocus();
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().focusWidget(), Window().lstFonder);
    Press(Qt::Key_Return);
    EXPECT_EQ(Status(2), "Annan fond");
}

TEST_F(OpenTest, APriceTypedForTheFormerFileIsGone) {
    ChooseFund(0);
    Window().txtValue->setFocus();
    Type("105");
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Caption(Window().txtValue), "");
}

TEST_F(OpenTest, APriceGoesToTheFileThatWasOpened) {
    const std::string before = Contents(SamplePath());
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    ChooseFund(2);
    TypePrice("150");
    EXPECT_EQ(PointsOf(3).back(), (CurvePoint{Window().TodayDay, 50}));
    EXPECT_EQ(Contents(SamplePath()), before);
}

TEST_F(OpenTest, ACancelledOpenLeavesEverythingAsItWas) {
    ChooseFund(1);
    const std::string chosen = FraData(0);
    Open("");
    Window().mnuOpen->trigger();
    ExpectStillOnSample();
    EXPECT_EQ(FraData(0), chosen);
    TypePrice("75");
    EXPECT_EQ(PointsOf(2).back(), (CurvePoint{Window().TodayDay, 50}));
}

TEST_F(OpenTest, TheOpenFileCanBeOpenedOnceMore) {
    Open(SamplePath().string());
    Window().mnuOpen->trigger();
    ExpectStillOnSample();
    EXPECT_FALSE(Window().FundDb->ReadOnly());
}

TEST_F(OpenTest, AFileWithOneHoldingOpensThatHolding) {
    TestHolding only;
    only.fond = "Ensam";
    only.skala = "./15/-10";
    WriteFundFile(In("ensam.mdb"), {only});
    Open(In("ensam.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(FraData(0), "249 995");
    EXPECT_EQ(Status(2), "Ensam");
}

TEST_F(OpenTest, AnEmptyFileOpensIntoTheEntryOfTheFirstFund) {
    SetCaption(Window().lblRecCount, "as it was");
    Open(In("Db0.dat"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().lstFonder->count(), 0);
    EXPECT_TRUE(Window().picDiagram->Drawings().empty());
    EXPECT_FALSE(Window().panBasData->isHidden());
    EXPECT_TRUE(Window().panListFonder->isHidden());
    EXPECT_EQ(Caption(Window().lblRecCount), "as it was");
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med Db0");
}

TEST_F(OpenTest, AnEmptyFileOpensIntoThatEntryFromTheHoldingsGridToo) {
    Window().cmdPPMData_Click();
    ASSERT_FALSE(Window().panBasData->isHidden());
    Open(In("Db0.dat"));
    Window().mnuOpen->trigger();
    EXPECT_FALSE(Window().panBasData->isHidden());
}

TEST_F(OpenTest, AFileOpenedFromTheHoldingsGridShowsItsListAndDiagram) {
    Window().cmdPPMData_Click();
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_TRUE(Window().panBasData->isHidden());
    EXPECT_FALSE(Window().panListFonder->isHidden());
    EXPECT_TRUE(Window().cmdFondList->isEnabled());
}

TEST_F(OpenTest, AFileThatAnotherCopyHasOpenIsShownAndTheUserIsTold) {
    OtherCopy other(In("annan.mdb"));
    Open(In("annan.mdb"));
    outside.dialogs.Expect("Filen är öppen i ett annat exemplar av Kvarnbo (" +
                           OpenFundFile(In("annan.mdb")).owner +
                           ").\r\n\r\nDu kan se den men inte ändra något.");
    Window().mnuOpen->trigger();
    EXPECT_EQ(Lines().size(), 3U);
    EXPECT_TRUE(Window().FundDb->ReadOnly());
}

/// The holdings grid with a text typed into the first cell of a row, which is not left.
class TypedRowTest : public OpenTest {
  protected:
    void TypeName(int row, const std::string& name) {
        Click(Window().cmdPPMData);
        QTableView& view = Window().DBGrid->View();
        view.setFocus();
        view.setCurrentIndex(view.model()->index(row, 0));
        for (const QChar character : ToQt(name)) {
            QTest::sendKeyEvent(QTest::Click, QApplication::focusWidget(),
                                static_cast<Qt::Key>(character.toUpper().unicode()), character,
                                Qt::NoModifier);
        }
    }
    std::string FirstFondIn(const fs::path& path) {
        FundFile file = OpenFundFile(path);
        std::string fond = file.database->OpenRecordSet("FONDDATA")->Field("Fond").Text();
        CloseFundFile(file.database);
        return fond;
    }
};

TEST_F(TypedRowTest, IsStoredInTheFileThatItBelongsTo) {
    TypeName(0, "Omdopt");
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().CurrentFile, In("annan.mdb"));
    EXPECT_EQ(FirstFondIn(SamplePath()), "Omdopt");
    EXPECT_EQ(Lines().front(), " 1. Annan fond");
}

TEST_F(TypedRowTest, IsPartOfASavedCopy) {
    TypeName(0, "Omdopt");
    SaveAs(In("kopia.mdb"));
    Window().mnuSaveAs->trigger();
    EXPECT_EQ(FirstFondIn(In("kopia.mdb")), "Omdopt");
}

TEST_F(TypedRowTest, ThatCannotBeStoredIsCorrectedBeforeAnotherFileIsOpened) {
    TypeName(2, "Utan kurs");
    Open(In("annan.mdb"));
    outside.dialogs
        .Expect(
            "Det här är inte sparat:\r\n\r\nRaden för Utan kurs\r\n"
            "    Kurs Kr saknas eller är inte större än 0\r\n\r\nVill du gå vidare utan det ?",
            Buttons::YesNo, Icon::Question, DefaultButton::Second)
        .Answer(Answer::No);
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().CurrentFile, SamplePath().string());
    EXPECT_TRUE(Window().DBGrid->RowTyped());
    Window().DBGrid->CancelRow();
}

struct BadFile {
    std::string name, bytes, why;
};

void PrintTo(const BadFile& tested, std::ostream* out) {
    *out << tested.name;
}

class BadFileTest : public OpenTest, public testing::WithParamInterface<BadFile> {};

TEST_P(BadFileTest, IsToldByItsKindAndLeavesTheUserWhereHeWas) {
    ChooseFund(1);
    Write(In("fel.mdb"), GetParam().bytes);
    Open(In("fel.mdb"));
    Told("Filen öppnades inte", In("fel.mdb"), GetParam().why);
    Window().mnuOpen->trigger();
    ExpectStillOnSample();
    EXPECT_EQ(Contents(In("fel.mdb")), GetParam().bytes);
    EXPECT_FALSE(fs::exists(In("fel.mdb.lock")));
    TypePrice("75");  // goes to the holding that was chosen before
    EXPECT_EQ(PointsOf(2).back(), (CurvePoint{Window().TodayDay, 50}));
    EXPECT_EQ(PointsOf(1).size(), 2U);
}

std::string Header(std::string_view name, char version) {
    std::string bytes(8192, '\0');
    bytes.replace(1, 1, "\1");
    bytes.replace(4, name.size(), name);
    bytes[0x14] = version;
    return bytes;
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, BadFileTest,
    testing::Values(BadFile{"Text", "Anteckningar om fonder",
                            "Filen är ingen databas i Access-format. Den är inte ändrad."},
                    BadFile{"Newer", Header("Standard ACE DB", 2),
                            "Filen har ett nyare format (.accdb). Spara den i formatet Access 2000 "
                            "till 2003 (.mdb)."},
                    BadFile{"Damaged", Header("Standard Jet DB", 1),
                            "Filen är skadad och kan inte läsas. Den är inte ändrad."}),
    [](const auto& file) { return file.param.name; });

TEST_F(OpenTest, ADatabaseThatIsNoFundFileIsToldSo) {
    const std::vector<jet::TableDesign> design = NewFundFileDesign();
    jet::Database::Create(In("annat.mdb"), std::span(design).last(1));
    Open(In("annat.mdb"));
    Told("Filen öppnades inte", In("annat.mdb"),
         "Filen är en databas men ingen fondfil: tabellen FONDDATA eller PLOTTDATA saknas.");
    Window().mnuOpen->trigger();
    ExpectStillOnSample();
}

TEST_F(OpenTest, ATypedNameIsCompleted) {
    fs::rename(In("annan.mdb"), In("prov.2026.mdb"));
    Open(In("prov.2026"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().CurrentFile, In("prov.2026.mdb"));
    EXPECT_EQ(Lines().size(), 3U);
}

TEST_F(OpenTest, TheListIsFilledOnce) {
    int filled = 0;
    QObject::connect(Window().lstFonder->model(), &QAbstractItemModel::rowsInserted,
                     [&filled] { ++filled; });
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(filled, 3) << "one line after the other, each once";
}

TEST_F(OpenTest, AnotherProgramsLockIsToldInTheStatusBar) {
    Write(In("annan.ldb"), "theirs");
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().staBar->Notice(),
              "annan.ldb ligger bredvid filen : ett annat program kan ha den öppen");
    ChooseFund(1);
    EXPECT_EQ(Window().staBar->Notice(), "");
}

class OtherComputerTest : public OpenTest {
  protected:
    void SetUp() override {
        OpenTest::SetUp();
        Write(In("annan.mdb.lock"), "4711\nkvarnbo\nHALLA\nffffffffffffffffffffffffffffffff\n\n");
    }
    void Asked(Answer answer) {
        outside.dialogs
            .Expect(
                "Filen är låst av Kvarnbo på en annan dator (dator HALLA). Den kan vara öppen "
                "där, eller så blev låset kvar efter ett avbrott.\r\n\r\nDu kan se den men "
                "inte ändra något.\r\n\r\nÄr du säker på att Kvarnbo inte är igång där kan du "
                "ta över filen.\r\n\r\nVill du ta över den ?",
                Buttons::YesNo, Icon::Exclamation, DefaultButton::Second)
            .Answer(answer);
    }
};

TEST_F(OtherComputerTest, NoLeavesItsLockAndTheFileReadable) {
    Open(In("annan.mdb"));
    Asked(Answer::No);
    Window().mnuOpen->trigger();
    EXPECT_TRUE(Window().FundDb->ReadOnly());
    EXPECT_EQ(Lines().size(), 3U);
    EXPECT_TRUE(fs::exists(In("annan.mdb.lock")));
}

TEST_F(OtherComputerTest, YesTakesTheFileOver) {
    Open(In("annan.mdb"));
    Asked(Answer::Yes);
    Window().mnuOpen->trigger();
    EXPECT_FALSE(Window().FundDb->ReadOnly());
    ChooseFund(2);
    TypePrice("150");
    EXPECT_EQ(PointsOf(3).back(), (CurvePoint{Window().TodayDay, 50}));
}

TEST_F(OtherComputerTest, TheFileToStartWithIsOfferedToo) {
    outside.settings.Save("Kvarnbo", "StartUp", "StartPath", In("annan.mdb"));
    Asked(Answer::Yes);
    Start();
    EXPECT_FALSE(Window().FundDb->ReadOnly());
    EXPECT_EQ(Lines().size(), 3U);
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med annan");
}

TEST_F(OpenTest, TheOpenFileThatIsDamagedMeanwhileLeavesAnEmptyWindowWithTheReason) {
    Write(SamplePath(), "no database any more");
    Open(SamplePath().string());
    Told("Filen öppnades inte", SamplePath().string(),
         "Filen är ingen databas i Access-format. Den är inte ändrad.");
    Window().mnuOpen->trigger();
    EXPECT_EQ(Caption(Window().lblRubrik), "Ingen fondfil är öppen");
    EXPECT_FALSE(Window().lblIngenFil->isHidden());
    EXPECT_TRUE(Lines().empty());
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_TRUE(Window().lblIngenFil->isHidden());
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med annan");
}

TEST_F(OpenTest, AFileThatIsGoneIsToldSo) {
    Open(In("borta.mdb"));
    Told("Filen öppnades inte", In("borta.mdb"), "Filen finns inte.");
    Window().mnuOpen->trigger();
    ExpectStillOnSample();
}

// ---- Save a copy ----

TEST_F(FileMenuTest, ACopyHoldsTheSameRowsAndTheProgramStaysWhereItWas) {
    ChooseFund(1);
    SaveAs(In("kopia.mdb"));
    Window().mnuSaveAs->trigger();
    ExpectStillOnSample();
    EXPECT_EQ(Status(2), "Kvarnbo Europa");
    FundFile copy = OpenFundFile(In("kopia.mdb"));
    for (const char* table : {"FONDDATA", "PLOTTDATA"}) {
        const auto rows = copy.database->OpenRecordSet(table);
        const auto own = Window().FundDb->OpenRecordSet(table);
        ASSERT_EQ(rows->RecordCount(), own->RecordCount());
        for (std::int32_t row = 0; row < own->RecordCount(); ++row) {
            for (std::size_t column = 0; column < own->FieldCount(); ++column) {
                EXPECT_EQ(rows->At(row, column).Text(), own->At(row, column).Text());
            }
        }
    }
    EXPECT_EQ(copy.database->Verify(), std::vector<std::string>{});
    CloseFundFile(copy.database);
    TypePrice("75");
    EXPECT_EQ(PointsOf(2).back(), (CurvePoint{Window().TodayDay, 50}));
}

TEST_F(FileMenuTest, ASavedCopyIsTold) {
    SaveAs(In("kopia.mdb"));
    Window().mnuSaveAs->trigger();
    EXPECT_EQ(Window().staBar->Notice(), "Kopian är sparad : kopia.mdb");
    outside.clock.Pass(std::chrono::seconds(8));
    EXPECT_EQ(Window().staBar->Notice(), "");
}

TEST_F(FileMenuTest, AReceiptEndsWhenTheStatusBarHasSomethingElseToSay) {
    SaveAs(In("kopia.mdb"));
    Window().mnuSaveAs->trigger();
    ChooseFund(1);
    EXPECT_EQ(Window().staBar->Notice(), "");
    EXPECT_EQ(Status(2), "Kvarnbo Europa");
}

TEST_F(FileMenuTest, ACancelledSaveAsMakesNoFile) {
    const auto before = Names();
    SaveAs("");
    Window().mnuSaveAs->trigger();
    EXPECT_EQ(Names(), before);
}

TEST_F(FileMenuTest, ACopyNeverReplacesTheOpenFile) {
    SaveAs(SamplePath().string());
    Told("Filen sparades inte", SamplePath().string(),
         "Filen är öppen, här eller i ett annat exemplar av Kvarnbo.");
    Window().mnuSaveAs->trigger();
    ExpectStillOnSample();
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}

TEST_F(FileMenuTest, ACopyNeverReplacesTheTemplateByWhateverName) {
    const std::string before = Contents(In("Db0.dat"));
    fs::create_symlink("Db0.dat", In("mall.mdb"));
    fs::create_directory(In("undermapp"));
    for (const std::string name : {"Db0.dat", "mall.mdb", "undermapp/../Db0.dat"}) {
        SaveAs(In(name));
        Told("Filen sparades inte", In(name),
             "Filen är mallen som nya fondfiler görs av. Välj ett annat namn.");
        Window().mnuSaveAs->trigger();
        EXPECT_EQ(Contents(In("Db0.dat")), before);
    }
    ExpectStillOnSample();
}

TEST_F(FileMenuTest, AFailingCopyLeavesNothingBehind) {
    fs::remove(In("Db0.dat"));
    const auto before = Names();
    SaveAs(In("kopia.mdb"));
    Told("Filen sparades inte", In("kopia.mdb"), "Filen finns inte.");
    Window().mnuSaveAs->trigger();
    EXPECT_EQ(Names(), before);
}

TEST_F(FileMenuTest, ACopyIntoATemplateThatIsTooNarrowKeepsTheOldFile) {
    std::vector<jet::TableDesign> narrow = NewFundFileDesign();
    narrow[0].columns[schema::holding::kFond].size = 3;
    jet::Database::Create(In("Db0.dat"), narrow);
    Write(In("kopia.mdb"), "what the user had there");
    const auto before = Names();
    SaveAs(In("kopia.mdb"));
    Told("Filen sparades inte", In("kopia.mdb"), "Texten är längre än fältet i filen.");
    Window().mnuSaveAs->trigger();
    EXPECT_EQ(Contents(In("kopia.mdb")), "what the user had there");
    EXPECT_EQ(Names(), before);
}

// ---- Delete ----

TEST_F(FileMenuTest, TwoYesDeleteTheFile) {
    Write(In("gammal.mdb"), "old");
    Delete(In("gammal.mdb"));
    AskedToDelete(In("gammal.mdb"), Answer::Yes, Answer::Yes);
    Window().mnuRadera->trigger();
    EXPECT_FALSE(fs::exists(In("gammal.mdb")));
    EXPECT_FALSE(fs::exists(In("gammal.mdb.lock")));
    EXPECT_EQ(outside.dialogs.LastFileRequest().filter, "Access mdb|*.mdb");
    EXPECT_EQ(outside.dialogs.LastFileRequest().folder, AppFolder());
    EXPECT_EQ(outside.dialogs.LastFileRequest().defaultExtension, "mdb");
    EXPECT_EQ(outside.dialogs.LastFileRequest().fileName, "");
}

TEST_F(FileMenuTest, NoToTheFirstQuestionLeavesTheFile) {
    Write(In("gammal.mdb"), "old");
    Delete(In("gammal.mdb"));
    AskedToDelete(In("gammal.mdb"), Answer::No, Answer::No);
    Window().mnuRadera->trigger();
    EXPECT_TRUE(fs::exists(In("gammal.mdb")));
}

TEST_F(FileMenuTest, NoToTheSecondQuestionLeavesTheFile) {
    Write(In("gammal.mdb"), "old");
    Delete(In("gammal.mdb"));
    AskedToDelete(In("gammal.mdb"), Answer::Yes, Answer::No);
    Window().mnuRadera->trigger();
    EXPECT_TRUE(fs::exists(In("gammal.mdb")));
}

TEST_F(FileMenuTest, TheOpenFileIsNotDeleted) {
    Delete(SamplePath().string());
    AskedToDelete(SamplePath().string(), Answer::Yes, Answer::Yes);
    outside.dialogs.Expect("Filen Raderades Inte\r\n\r\nFilen är Öppen");
    Window().mnuRadera->trigger();
    EXPECT_TRUE(fs::exists(SamplePath()));
    ExpectStillOnSample();
}

TEST_F(FileMenuTest, AFileThatAnotherCopyHasOpenIsNotDeleted) {
    WriteFundFile(In("annan.mdb"), TwoHoldings());
    OtherCopy other(In("annan.mdb"));
    Delete(In("annan.mdb"));
    AskedToDelete(In("annan.mdb"), Answer::Yes, Answer::Yes);
    outside.dialogs.Expect("Filen Raderades Inte\r\n\r\nFilen är Öppen");
    Window().mnuRadera->trigger();
    EXPECT_TRUE(fs::exists(In("annan.mdb")));
}

TEST_F(FileMenuTest, ACancelledDeleteAsksNothing) {
    const auto before = Names();
    Delete("");
    Window().mnuRadera->trigger();
    EXPECT_EQ(Names(), before);
}

TEST_F(FileMenuTest, NobodyIsAskedAboutAFileThatIsNotThere) {
    Delete(In("borta.mdb"));
    Told("Filen raderades inte", In("borta.mdb"), "Filen finns inte.");
    Window().mnuRadera->trigger();
}

TEST_F(FileMenuTest, DeleteCompletesATypedName) {
    Write(In("prov.2026.mdb"), "old");
    Delete(In("prov.2026"));
    AskedToDelete(In("prov.2026.mdb"), Answer::Yes, Answer::Yes);
    Window().mnuRadera->trigger();
    EXPECT_FALSE(fs::exists(In("prov.2026.mdb")));
}

TEST_F(FileMenuTest, TheDeleteDialogKeepsTheFlagsOfTheLastUse) {
    Delete("");
    Window().mnuRadera->trigger();
    EXPECT_FALSE(outside.dialogs.LastFileRequest().askBeforeOverwriting);
    EXPECT_FALSE(outside.dialogs.LastFileRequest().mustExist);

    SaveAs("");
    Window().mnuSaveAs->trigger();
    Delete("");
    Window().mnuRadera->trigger();
    EXPECT_TRUE(outside.dialogs.LastFileRequest().askBeforeOverwriting);

    Open("");
    Window().mnuOpen->trigger();
    Delete("");
    Window().mnuRadera->trigger();
    EXPECT_TRUE(outside.dialogs.LastFileRequest().mustExist);
}

// ---- The file to start with ----

class StartFileTest : public FileMenuTest, public testing::WithParamInterface<std::string> {};

TEST_P(StartFileTest, IsAlwaysTheSameWhateverWasPicked) {
    StartFile(In(GetParam()));
    Window().mnuStartFile->trigger();
    EXPECT_EQ(Setting("StartPath"), AppFolder() + "Rusken_Kina.mdb");
    EXPECT_EQ(Setting("StartX"), "1");
    EXPECT_EQ(Window().CmDialog->tag, "");
    EXPECT_EQ(Window().staBar->Notice(), "Nästa gång startar Kvarnbo med Rusken_Kina.mdb");
    ExpectStillOnSample();
}

INSTANTIATE_TEST_SUITE_P(Picks, StartFileTest, testing::Values("annan.mdb", "Vimmels_exempel.mdb"));

TEST_F(FileMenuTest, ACancelledStartFileStoresNothing) {
    const std::string before = Setting("StartPath");
    Window().DayStep = 7;
    StartFile("");
    Window().mnuStartFile->trigger();
    EXPECT_EQ(Setting("StartPath"), before);
    EXPECT_EQ(Setting("StartX"), "1");
    EXPECT_EQ(Window().staBar->Notice(), "");
    ExpectStillOnSample();
}

TEST_F(FileMenuTest, HeadingGoesOnNamingTheOpenFileAfterAStartFileWasChosen) {
    StartFile(In("annan.mdb"));
    Window().mnuStartFile->trigger();
    Window().Activate();
    EXPECT_EQ(Caption(Window().lblRubrik), "Du arbetar med Vimmels_exempel");
}

TEST_F(FileMenuTest, WhileTheStartFileIsChosenDialogAndListAreMarkedAndThenAsBefore) {
    ChooseFund(1);
    std::string dialog, list;
    StartFile("").Meanwhile([&] {
        dialog = Window().CmDialog->tag;
        list = Tag(Window().panListFonder);
    });
    Window().mnuStartFile->trigger();
    EXPECT_EQ(dialog, "Start");
    EXPECT_EQ(list, "Start");
    EXPECT_EQ(Window().CmDialog->tag, "");
    EXPECT_EQ(Tag(Window().panListFonder), "idxY") << "zooming goes on with the fund's own scale";
}

TEST_F(FileMenuTest, TheStartFileTakesEffectAtTheNextStartOnly) {
    ChooseFund(1);
    StartFile(In("annan.mdb"));
    Window().mnuStartFile->trigger();
    EXPECT_EQ(Window().FundDb->Path().filename(), "Vimmels_exempel.mdb");
    EXPECT_EQ(Lines().size(), 2U);
    TypePrice("75");
    EXPECT_EQ(PointsOf(2).back(), (CurvePoint{Window().TodayDay, 50}));
}

TEST_F(FileMenuTest, ADayStepOfZeroIsStoredAsOne) {
    Window().DayStep = 0;
    StartFile(In("annan.mdb"));
    Window().mnuStartFile->trigger();
    EXPECT_EQ(Setting("StartX"), "1");
    EXPECT_EQ(Window().DayStep, 1);
}

TEST_F(FileMenuTest, TheWeekViewIsStoredAsSeven) {
    Window().DayStep = 7;
    StartFile(In("annan.mdb"));
    Window().mnuStartFile->trigger();
    EXPECT_EQ(Setting("StartX"), "7");
}

TEST_F(FileMenuTest, AfterTheStartFileWasChosenOpenOpensAgain) {
    WriteFundFile(In("annan.mdb"), TwoHoldings());
    StartFile(In("annan.mdb"));
    Window().mnuStartFile->trigger();
    Open(In("annan.mdb"));
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().CurrentFile, In("annan.mdb"));
    EXPECT_EQ(Setting("StartPath"), AppFolder() + "Rusken_Kina.mdb");
}

TEST_F(FileMenuTest, ASettingsStoreThatCannotBeWrittenIsToldAndTheNextOpenIsAnOrdinaryOne) {
    outside.settings.broken = true;
    StartFile(In("annan.mdb"));
    Told("Valet av startfil sparades inte", In("Rusken_Kina.mdb"),
         "Programmets inställningar kan inte skrivas. Kvarnbo startar med samma fil som förut.");
    Window().mnuStartFile->trigger();
    EXPECT_EQ(Window().CmDialog->tag, "");
    EXPECT_EQ(Window().staBar->Notice(), "");
}

}  // namespace
