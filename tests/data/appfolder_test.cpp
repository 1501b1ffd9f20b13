#include "fundfile/appfolder.h"

#include "tests/data/support.h"

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

class AppFolderTest : public testing::Test {
  protected:
    AppFolderTest() {
        fs::create_directories(folders.program);
        fs::create_directories(folders.installed);
    }
    static void Put(const fs::path& folder, const std::string& content) {
        for (const char* name : {"Db0.dat", "Vimmels_exempel.mdb", "Rusken_Kina.mdb", "Grid.dib"}) {
            testdata::WriteText(folder / name, content);
        }
    }

    testdata::TemporaryFolder folder;
    ProgramFolders folders{folder / "bin", folder / "share/kvarnbo", folder / "hem/Kvarnbo"};
};

TEST_F(AppFolderTest, IsTheProgramsFolderWhenItHoldsTheFiles) {
    Put(folders.program, "beside");
    EXPECT_EQ(AppFolder(folders), folders.program.string() + "/");
    EXPECT_FALSE(fs::exists(folders.personal));
}

TEST_F(AppFolderTest, AnInstalledProgramGetsAPersonalFolderWithTheFiles) {
    Put(folders.installed, "installed");
    testdata::WriteText(folders.installed / "Kvarnbo.hlp", "help");
    EXPECT_EQ(AppFolder(folders), folders.personal.string() + "/");
    EXPECT_EQ(
        testdata::NamesIn(folders.personal),
        (Names{"Db0.dat", "Grid.dib", "Kvarnbo.hlp", "Rusken_Kina.mdb", "Vimmels_exempel.mdb"}));
    EXPECT_EQ(testdata::BytesOf(folders.personal / "Db0.dat"), "installed");
}

TEST_F(AppFolderTest, TheUsersOwnSampleFilesAreNeverReplaced) {
    Put(folders.installed, "installed");
    AppFolder(folders);
    testdata::WriteText(folders.personal / "Vimmels_exempel.mdb", "prices typed by the user");
    Put(folders.installed, "newer");
    AppFolder(folders);
    EXPECT_EQ(testdata::BytesOf(folders.personal / "Vimmels_exempel.mdb"),
              "prices typed by the user");
    EXPECT_EQ(testdata::BytesOf(folders.personal / "Rusken_Kina.mdb"), "installed");
}

TEST_F(AppFolderTest, TemplatePictureAndHelpFollowTheInstalledOnes) {
    Put(folders.installed, "installed");
    AppFolder(folders);
    Put(folders.installed, "newer");
    AppFolder(folders);
    EXPECT_EQ(testdata::BytesOf(folders.personal / "Db0.dat"), "newer");
    EXPECT_EQ(testdata::BytesOf(folders.personal / "Grid.dib"), "newer");
}

TEST_F(AppFolderTest, AFileIsAnotherThatDiffersInItsLastByteAlone) {
    const std::string old(100'000, 'x'), other = old.substr(1) + 'y';
    Put(folders.installed, old);
    AppFolder(folders);
    testdata::WriteText(folders.installed / "Db0.dat", other);
    AppFolder(folders);
    EXPECT_EQ(testdata::BytesOf(folders.personal / "Db0.dat"), other);
}

TEST_F(AppFolderTest, AFileThatIsTheSameIsNotWrittenAgain) {
    Put(folders.installed, std::string(100'000, 'x'));
    AppFolder(folders);
    const fs::path own = folders.personal / "Db0.dat";
    const fs::file_time_type before = fs::last_write_time(own) - std::chrono::hours(1);
    fs::last_write_time(own, before);
    AppFolder(folders);
    EXPECT_EQ(fs::last_write_time(own), before);
}

TEST_F(AppFolderTest, AMissingSampleFileComesBack) {
    Put(folders.installed, "installed");
    AppFolder(folders);
    fs::remove(folders.personal / "Vimmels_exempel.mdb");
    AppFolder(folders);
    EXPECT_TRUE(fs::exists(folders.personal / "Vimmels_exempel.mdb"));
}

TEST_F(AppFolderTest, CopiesOfProtectedFilesCanBeWritten) {
    Put(folders.installed, "installed");
    for (const fs::directory_entry& entry : fs::directory_iterator(folders.installed)) {
        fs::permissions(entry.path(), fs::perms::owner_read);
    }
    AppFolder(folders);
    EXPECT_NE(
        fs::status(folders.personal / "Vimmels_exempel.mdb").permissions() & fs::perms::owner_write,
        fs::perms::none);
}

TEST_F(AppFolderTest, StaysWhenASampleWasDeleted) {
    Put(folders.program, "beside");
    testdata::WriteText(folders.program / "FonderLogg.txt", "what the saver did");
    for (const char* sample : {"Rusken_Kina.mdb", "Vimmels_exempel.mdb"}) {
        fs::remove(folders.program / sample);
        EXPECT_EQ(AppFolder(folders), folders.program.string() + "/") << sample;
        EXPECT_FALSE(fs::exists(folders.personal));
    }
}

TEST_F(AppFolderTest, ADeletedSampleIsMadeAgainFromTheInstalledOneAndNothingElseIsTouched) {
    Put(folders.program, "beside");
    Put(folders.installed, "installed");
    fs::remove(folders.program / "Vimmels_exempel.mdb");
    AppFolder(folders);
    EXPECT_EQ(testdata::BytesOf(folders.program / "Vimmels_exempel.mdb"), "installed");
    EXPECT_EQ(testdata::BytesOf(folders.program / "Db0.dat"), "beside");
}

TEST_F(AppFolderTest, StaysWithAnythingOfTheSaversInIt) {
    for (const char* own : {"FonderLogg.txt", "Anteckningar.txt", "mina.MDB"}) {
        testdata::WriteText(folders.program / own, "the saver's");
        EXPECT_EQ(AppFolder(folders), folders.program.string() + "/") << own;
        fs::remove(folders.program / own);
    }
    EXPECT_EQ(AppFolder(folders), folders.personal.string() + "/");
}

TEST_F(AppFolderTest, AProtectedProgramFolderIsNotUsed) {
    Put(folders.program, "beside");
    fs::create_directories(folders.personal);
    fs::permissions(folder.Path(), fs::perms::all);
    fs::permissions(folder / "hem", fs::perms::all);
    fs::permissions(folders.personal, fs::perms::all);
    fs::permissions(folders.program, fs::perms::owner_read | fs::perms::owner_exec |
                                         fs::perms::others_read | fs::perms::others_exec);
    testdata::Child user([&] { return AppFolder(folders); }, testdata::Child::As::OrdinaryUser);
    EXPECT_EQ(user.Run(), folders.personal.string() + "/");
    EXPECT_EQ(testdata::BytesOf(folders.personal / "Db0.dat"), "beside");
    fs::permissions(folders.program, fs::perms::owner_all);
}

TEST_F(AppFolderTest, WithoutAnyPlaceToWriteTheInstalledCopiesServe) {
    Put(folders.installed, "installed");
    testdata::WriteText(folder / "hem", "a file where the home folder should be");
    EXPECT_EQ(AppFolder(folders), folders.installed.string() + "/");
}

TEST_F(AppFolderTest, ThePersonalFolderIsTheSystemsPlaceForData) {
    const ProgramFolders found = FindProgramFolders();
    EXPECT_EQ(found.personal.filename(), "Kvarnbo");
    EXPECT_EQ(found.installed.filename(), "kvarnbo");
    EXPECT_TRUE(found.program.is_absolute());
}

}  // namespace
