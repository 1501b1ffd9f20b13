// What goes wrong outside the program: protected files and folders, a file that is taken away, a
// log that cannot be written, a disk that takes no more. Every failure here is a real one.

#include "fundfile/fundfile.h"
#include "jet/database.h"
#include "tests/support/ordinaryrights.h"
#include "tests/window/windowtest.h"

#include <QAction>

#include <chrono>
#include <csignal>
#include <fstream>
#include <iterator>
#include <optional>
#include <sys/resource.h>

namespace {

namespace fs = std::filesystem;
using testdata::OrdinaryRights;

constexpr fs::perms kAll = fs::perms::all;
constexpr fs::perms kReadOnly =
    fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;
constexpr fs::perms kReadAndEnter =
    kReadOnly | fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;

constexpr const char* kStoreFailed = "Fel i SQLPlott";
constexpr const char* kNoRight = "Du har inte rätt att läsa eller skriva filen.";
constexpr const char* kOnlyToSee = "\r\n\r\nDu kan se den men inte ändra något.";

class FailuresTest : public WindowTest {
  protected:
    void SetUp() override {
        MakeFile(TwoHoldings());
        jet::Database::Create(Folder() / "Db0.dat", NewFundFileDesign());
        fs::create_directory(Ut());
        for (const fs::path& path : {Folder(), Ut(), SamplePath(), Folder() / "Db0.dat"}) {
            fs::permissions(path, kAll);
        }
    }
    void TearDown() override {
        rights_.reset();
        WindowTest::TearDown();
        for (const fs::path& path : {Folder(), Ut()}) fs::permissions(path, kAll);
    }

    void Protect(const fs::path& path, fs::perms rights) {
        fs::permissions(path, rights);
        if (!rights_) rights_.emplace();
    }
    fs::path Ut() const { return Folder() / "ut"; }
    fs::path LogPath() const { return Folder() / "FonderLogg.txt"; }
    std::string LogText() const {
        std::ifstream log(LogPath(), std::ios::binary);
        return {std::istreambuf_iterator<char>(log), {}};
    }
    /// Another program has written the file: it is not overwritten.
    void LetTheFileChange() {
        fs::last_write_time(SamplePath(),
                            fs::last_write_time(SamplePath()) + std::chrono::hours(1));
    }
    void ExpectPriceRefusedAndKept() {
        ChooseFund(0);
        outside.dialogs.Expect(kStoreFailed);
        TypePrice("105");
        EXPECT_EQ(Caption(Window().txtValue), "105,00");
        EXPECT_EQ(Status(4), "Senaste : 110,00");
    }
    void Told(const std::string& failed, const fs::path& path, const std::string& why) {
        outside.dialogs.Expect(failed + "\r\n\r\n" + path.string() + "\r\n\r\n" + why, Buttons::Ok,
                               Icon::Exclamation);
    }
    void Pick(FileChoice choice, std::string_view title, const fs::path& path) {
        outside.dialogs.ExpectFile(choice, title).Pick(path.string());
    }

  private:
    std::optional<OrdinaryRights> rights_;
};

}  // namespace

// ---- Protected files and folders ----

TEST_F(FailuresTest, AFileInAProtectedFolderIsSaidToBeReadableOnlyAndNoPriceIsLost) {
    Protect(Folder(), kReadAndEnter);
    const std::string before = Bytes();
    outside.dialogs.Expect(std::string("Filens mapp är skrivskyddad.") + kOnlyToSee);
    Start();
    EXPECT_EQ(Lines().size(), 2U);
    ExpectPriceRefusedAndKept();  // the log cannot be written either, which says nothing more
    EXPECT_EQ(Bytes(), before);
    EXPECT_FALSE(fs::exists(LogPath()));
}

TEST_F(FailuresTest, AProtectedFileIsSaidToBeReadableOnlyAndNoPriceIsLost) {
    Protect(SamplePath(), kReadOnly);
    const std::string before = Bytes();
    outside.dialogs.Expect(std::string("Filen är skrivskyddad.") + kOnlyToSee);
    Start();
    ExpectPriceRefusedAndKept();
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(LogText(), "26-11-16\r\nFel i SQLPlott  3027\r\n");
}

TEST_F(FailuresTest, AStartFileThatMayNotBeReadGivesTheSampleFileWithoutAWord) {
    const fs::path secret = Folder() / "hemlig.mdb";
    WriteFundFile(secret, ManyHoldings(3));
    outside.settings.Save("Kvarnbo", "StartUp", "StartPath", secret.string());
    outside.settings.Save("Kvarnbo", "StartUp", "StartX", "7");
    Protect(secret, fs::perms::none);
    Start();
    EXPECT_EQ(Window().CurrentFile, SamplePath().string());
    EXPECT_EQ(outside.settings.Get("Kvarnbo", "StartUp", "StartPath"), SamplePath().string());
    EXPECT_EQ(outside.settings.Get("Kvarnbo", "StartUp", "StartX"), "1");
    EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(FailuresTest, OpeningAFileThatMayNotBeReadIsTold) {
    const fs::path secret = Folder() / "hemlig.mdb";
    WriteFundFile(secret, ManyHoldings(3));
    Start();
    Protect(secret, fs::perms::none);
    Pick(FileChoice::Open, "      Öppna FondFil", secret);
    Told("Filen öppnades inte", secret, kNoRight);
    Window().mnuOpen->trigger();
    EXPECT_EQ(Window().CurrentFile, SamplePath().string());
    EXPECT_EQ(Lines().size(), 2U);
}

TEST_F(FailuresTest, ANewFileInAProtectedFolderIsTold) {
    Start();
    Protect(Ut(), kReadAndEnter);
    Pick(FileChoice::Save, "    Lägg upp Ny tom  och Spara som...", Ut() / "ny.mdb");
    Told("Den nya filen skapades inte", Ut() / "ny.mdb", kNoRight);
    Window().mnuNew->trigger();
    EXPECT_TRUE(fs::is_empty(Ut()));
}

TEST_F(FailuresTest, ACopyInAProtectedFolderIsTold) {
    Start();
    Protect(Ut(), kReadAndEnter);
    Pick(FileChoice::Save, "    Spara som...", Ut() / "kopia.mdb");
    Told("Filen sparades inte", Ut() / "kopia.mdb", kNoRight);
    Window().mnuSaveAs->trigger();
    EXPECT_TRUE(fs::is_empty(Ut()));
}

TEST_F(FailuresTest, AFileInAProtectedFolderIsNotDeletedAndNothingIsSaid) {
    const fs::path kept = Ut() / "kvar.mdb";
    std::ofstream(kept) << "old";
    Start();
    Protect(Ut(), kReadAndEnter);
    Pick(FileChoice::Open, "        Raderar denna fil", kept);
    outside.dialogs
        .Expect("Du håller på att ta bort en Fondfil !\r\n\r\nÄr detta riktigt ?", Buttons::YesNo,
                Icon::Question, DefaultButton::Second)
        .Answer(Answer::Yes);
    outside.dialogs
        .Expect("Fil  " + kept.string() + "  kommer att raderas !\r\n\r\nÄr detta riktigt ?",
                Buttons::YesNo, Icon::Exclamation, DefaultButton::Second)
        .Answer(Answer::Yes);
    Window().mnuRadera->trigger();
    EXPECT_TRUE(fs::exists(kept));
}

// ---- A file that is taken away while it is open ----

TEST_F(FailuresTest, AFileThatIsTakenAwayIsNotMadeAnewByAPriceThatIsKept) {
    Start();
    fs::remove(SamplePath());
    ExpectPriceRefusedAndKept();
    EXPECT_FALSE(fs::exists(SamplePath()));
    EXPECT_NE(LogText().find("Fel i SQLPlott  "), std::string::npos);
}

TEST_F(FailuresTest, AFolderThatIsTakenAwayKeepsThePrice) {
    const fs::path stick = Folder() / "minne";
    fs::create_directory(stick);
    fs::rename(SamplePath(), stick / "fonder.mdb");
    outside.settings.Save("Kvarnbo", "StartUp", "StartPath", (stick / "fonder.mdb").string());
    Start();
    fs::rename(stick, Folder() / "borta");
    ExpectPriceRefusedAndKept();
    fs::rename(Folder() / "borta", stick);  // plugged in again
    Press(Qt::Key_Return);
    EXPECT_EQ(Caption(Window().txtValue), "");
    EXPECT_EQ(PointsOf(1).back(), (CurvePoint{Window().TodayDay, 5}));
}

TEST_F(FailuresTest, AFileThatIsTakenAwayCanBeSavedUnderAnotherName) {
    Start();
    fs::remove(SamplePath());
    Pick(FileChoice::Save, "    Spara som...", Folder() / "kopia.mdb");
    Window().mnuSaveAs->trigger();
    FundFile copy = OpenFundFile(Folder() / "kopia.mdb");
    EXPECT_EQ(copy.database->OpenRecordSet("FONDDATA")->RecordCount(), 2);
    EXPECT_EQ(copy.database->OpenRecordSet("PLOTTDATA")->RecordCount(), 4);
    CloseFundFile(copy.database);
}

// ---- A log that cannot be written ----

TEST_F(FailuresTest, AnUnwritableLogDoesNotHideWhatItWasToSay) {
    fs::create_directory(LogPath());
    Start();
    LetTheFileChange();
    ExpectPriceRefusedAndKept();
    EXPECT_TRUE(fs::is_empty(LogPath()));
}

TEST_F(FailuresTest, AProtectedLogGoesToTheCaller) {
    std::ofstream(LogPath()) << "old";
    Start();
    Protect(LogPath(), kReadOnly);
    Skipping skip;
    skip([&] { Window().WriteLogEntry("nytt"); });
    EXPECT_EQ(skip.Number(), ErrorNumber::PermissionDenied);
    EXPECT_EQ(LogText(), "old");
}

TEST_F(FailuresTest, ALogOnAFullDiskGoesToTheCaller) {
    fs::create_symlink("/dev/full", LogPath());
    Start();
    Skipping skip;
    skip([&] { Window().WriteLogEntry("nytt"); });
    EXPECT_EQ(skip.Number(), ErrorNumber::DiskFull);
}

// ---- A disk that takes no more ----

TEST_F(FailuresTest, ADiskThatTakesNoMoreLeavesTheFileWholeAndThePriceTyped) {
    Start();
    const std::string before = Bytes();
    const auto signal = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit tight{4096, limit.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    ExpectPriceRefusedAndKept();
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, signal);
    EXPECT_EQ(Bytes(), before);
    Press(Qt::Key_Return);  // with room again
    EXPECT_EQ(Caption(Window().txtValue), "");
    EXPECT_EQ(PointsOf(1).back(), (CurvePoint{Window().TodayDay, 5}));
    EXPECT_EQ(Faults(), std::vector<std::string>{});
}
