#include "platform/commondialog.h"

#include "platform/qttext.h"
#include "tests/support/fakeplatform.h"

#include <QTemporaryDir>

#include <fstream>
#include <gtest/gtest.h>
#include <string>

namespace {

class CommonDialogTest : public ::testing::Test {
  protected:
    ScriptedDialogs dialogs_;
    CommonDialog dialog_{dialogs_};
};

TEST_F(CommonDialogTest, AsksWithAllItsSettings) {
    dialog_.filter = "Access97 mdb|*.mdb";
    dialog_.initialFolder = "/tmp/";
    dialog_.defaultExtension = "*.mdb";
    dialog_.title = "      Öppna FondFil";
    dialog_.flags = 4096;
    dialogs_
        .ExpectFile({.choice = FileChoice::Open,
                     .title = "      Öppna FondFil",
                     .filter = "Access97 mdb|*.mdb",
                     .folder = "/tmp/",
                     .defaultExtension = "mdb",
                     .mustExist = true})
        .Pick("/tmp/a.mdb");
    dialog_.ShowOpen();
    EXPECT_EQ(dialog_.fileName, "/tmp/a.mdb");
}

TEST_F(CommonDialogTest, FlagTwoAsksBeforeOverwriting) {
    dialog_.flags = 2;
    dialogs_.ExpectFile(FileChoice::Save, "").Cancel();
    dialog_.ShowSave();
    EXPECT_TRUE(dialogs_.LastFileRequest().askBeforeOverwriting);
    EXPECT_FALSE(dialogs_.LastFileRequest().mustExist);
}

TEST_F(CommonDialogTest, ItsSettingsOutliveAUse) {
    dialog_.flags = 4096;
    dialog_.title = "Titel";
    dialogs_.ExpectFile(FileChoice::Open, "Titel").Cancel();
    dialogs_.ExpectFile(FileChoice::Open, "Titel").Cancel();
    dialog_.ShowOpen();
    dialog_.ShowOpen();
    EXPECT_TRUE(dialogs_.LastFileRequest().mustExist);
}

TEST_F(CommonDialogTest, ACancelledDialogLeavesTheFileName) {
    dialog_.fileName = "";
    dialogs_.ExpectFile(FileChoice::Open, "").Cancel();
    dialog_.ShowOpen();
    EXPECT_EQ(dialog_.fileName, "");
    dialog_.fileName = "förut.mdb";
    dialogs_.ExpectFile(FileChoice::Open, "").Cancel();
    dialog_.ShowOpen();
    EXPECT_EQ(dialog_.fileName, "förut.mdb");
}

struct Extension {
    const char* name;
    const char* defaultExtension;
    const char* picked;
    const char* expected;
};

void PrintTo(const Extension& tested, std::ostream* out) {
    *out << tested.name;
}

class DefaultExtension : public CommonDialogTest,
                         public ::testing::WithParamInterface<Extension> {};

TEST_P(DefaultExtension, IsAddedWhereNoneIs) {
    dialog_.defaultExtension = GetParam().defaultExtension;
    dialogs_.ExpectFile(FileChoice::Save, "").Pick(GetParam().picked);
    dialog_.ShowSave();
    EXPECT_EQ(dialog_.fileName, GetParam().expected);
}

TEST_F(CommonDialogTest, ANameTypedInOrderToOpenIsCompletedAsForSaving) {
    dialog_.defaultExtension = "*.mdb";
    dialogs_.ExpectFile(FileChoice::Open, "").Pick("/tmp/Kopia 2026.11.21");
    dialog_.ShowOpen();
    EXPECT_EQ(dialog_.fileName, "/tmp/Kopia 2026.11.21.mdb");
}

TEST(ExistingFile, IsTheOneThatIsThere) {
    const QTemporaryDir folder;
    const std::string at = FromQt(folder.path()) + "/";
    for (const char* name : {"prov.2026.mdb", "bara", "kopia.bak", "gammal.old.mdb"}) {
        std::ofstream(at + name) << "x";
    }
    EXPECT_EQ(ExistingFile(at + "prov.2026", "mdb"), at + "prov.2026.mdb");
    EXPECT_EQ(ExistingFile(at + "prov.2026.mdb", "mdb"), at + "prov.2026.mdb");
    EXPECT_EQ(ExistingFile(at + "bara", "mdb"), at + "bara");
    EXPECT_EQ(ExistingFile(at + "kopia.bak", "mdb"), at + "kopia.bak");
    EXPECT_EQ(ExistingFile(at + "gammal.old", "mdb"), at + "gammal.old.mdb");
    EXPECT_EQ(ExistingFile(at + "borta", "mdb"), at + "borta.mdb");
    EXPECT_EQ(ExistingFile("", "mdb"), "");
}

INSTANTIATE_TEST_SUITE_P(
    All, DefaultExtension,
    ::testing::Values(
        Extension{"Pattern", "*.mdb", "/tmp/ny", "/tmp/ny.mdb"},
        Extension{"Bare", "mdb", "/tmp/ny", "/tmp/ny.mdb"},
        Extension{"ThereAlready", "*.mdb", "/tmp/ny.mdb", "/tmp/ny.mdb"},
        Extension{"Another", "*.mdb", "/tmp/ny.dat", "/tmp/ny.dat"},
        Extension{"PointInTheFolder", "*.mdb", "/tmp/a.b/ny", "/tmp/a.b/ny.mdb"},
        Extension{"DateInTheName", "*.mdb", "/tmp/Kopia 2026.11.21", "/tmp/Kopia 2026.11.21.mdb"},
        Extension{"PointInTheName", "*.mdb", "/tmp/Fonder f.d. Elsa", "/tmp/Fonder f.d. Elsa.mdb"},
        Extension{"PointAtTheEnd", "*.mdb", "/tmp/Fonder.", "/tmp/Fonder..mdb"},
        Extension{"Capitals", "*.mdb", "/tmp/NY.MDB", "/tmp/NY.MDB"},
        Extension{"None", "", "/tmp/ny", "/tmp/ny"}),
    [](const auto& one) { return one.param.name; });

}  // namespace
