#include "jet/storage/pagefile.h"

#include "jet/error.h"
#include "jet/files.h"
#include "jet/storage/filestore.h"
#include "jet/storage/header.h"
#include "jet/storage/systemfile.h"
#include "tests/jet/ledger.h"
#include "tests/jet/memoryfile.h"
#include "tests/jet/versions.h"

#include <fcntl.h>
#include <functional>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace jet::detail;
using jet::Error;
using jet::ErrorNumber;
using jettest::CopyInto;
using jettest::ReadText;
using jettest::Sample;
using jettest::WriteText;

ErrorNumber NumberOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const Error& error) {
        return error.Number();
    }
    return ErrorNumber::None;
}

/// A file of three pages with a sound header, for changing a byte of.
std::string SmallFile(const Layout& layout) {
    std::vector<std::uint8_t> header(layout.pageSize, 0);
    PutU32(header, 0, 0x100);
    const std::string_view signature("Standard Jet DB");
    for (std::size_t i = 0; i < signature.size(); ++i) {
        header[4 + i] = static_cast<std::uint8_t>(signature[i]);
    }
    PutU32(header, 0x14, layout.formatByte);
    PutU32(header, 0x18, 0x100);
    PutU32(header, 0x20, 2);
    PutU16(header, 0x3C, 1252);
    PutU16(header, layout.collation, 1033);
    if (layout.passwordMixedWithDate) {
        PutF64(header, layout.creationDate, 42329.9);
        for (std::size_t i = 0; i < layout.passwordSize; i += 4) PutU32(header, 0x42 + i, 42329);
    }
    MaskHeader(layout, header);
    std::string bytes(header.begin(), header.end());
    bytes.resize(3 * layout.pageSize, '\0');
    bytes[2 * layout.pageSize] = 2;
    bytes[2 * layout.pageSize + 1] = 1;
    return bytes;
}

ErrorNumber Opening(const std::string& bytes) {
    return NumberOf([&] { PageFile::FromImage(jettest::ImageOf(bytes)); });
}

class Header : public testing::TestWithParam<const Layout*> {};
INSTANTIATE_FOR_BOTH_VERSIONS(Header);

TEST_P(Header, OfASoundFileTellsItsTextForm) {
    const auto file = PageFile::FromImage(jettest::ImageOf(SmallFile(*GetParam())));
    EXPECT_EQ(&file->Format(), GetParam());
    EXPECT_EQ(file->Header().codePage, 1252);
    EXPECT_EQ(file->Header().collation, 1033);
    EXPECT_FALSE(file->ReadOnly());
}

TEST_P(Header, OfALaterVersionIsNewer) {
    std::string bytes = SmallFile(*GetParam());
    bytes[0x14] = 2;
    EXPECT_EQ(Opening(bytes), ErrorNumber::NewerFormat);
    bytes.replace(4, 15, "Standard ACE DB");
    EXPECT_EQ(Opening(bytes), ErrorNumber::NewerFormat);
}

TEST_P(Header, OfAnotherProductIsForeign) {
    std::string bytes = SmallFile(*GetParam());
    bytes.replace(4, 15, "MSISAM Database");
    EXPECT_EQ(Opening(bytes), ErrorNumber::ForeignFormat);
    EXPECT_EQ(Opening("PK\x03\x04"), ErrorNumber::ForeignFormat);
    EXPECT_EQ(Opening(""), ErrorNumber::ForeignFormat);
    EXPECT_EQ(Opening(std::string(100000, 'x')), ErrorNumber::ForeignFormat);
}

TEST_P(Header, WithAnEncodingKeyIsEncrypted) {
    std::string bytes = SmallFile(*GetParam());
    bytes[0x3E] = static_cast<char>(bytes[0x3E] ^ 0x55);
    EXPECT_EQ(Opening(bytes), ErrorNumber::Encrypted);
}

TEST_P(Header, WithAPasswordIsRefusedAsSuch) {
    for (std::size_t at = 0x42; at < 0x42 + GetParam()->passwordSize; ++at) {
        std::string bytes = SmallFile(*GetParam());
        bytes[at] = static_cast<char>(bytes[at] ^ 'a');
        EXPECT_EQ(Opening(bytes), ErrorNumber::PasswordProtected) << at;
    }
}

TEST_P(Header, DamagedIsNoDatabase) {
    const std::string sound = SmallFile(*GetParam());
    for (const std::size_t at : {std::size_t{0}, std::size_t{0x16}, std::size_t{0x18},
                                 std::size_t{0x20}, 2 * GetParam()->pageSize}) {
        std::string bytes = sound;
        bytes[at] = static_cast<char>(bytes[at] ^ 0x10);
        EXPECT_EQ(Opening(bytes), ErrorNumber::NotADatabase) << at;
    }
    EXPECT_EQ(Opening(sound.substr(0, 1000)), ErrorNumber::NotADatabase);
    EXPECT_EQ(Opening(sound.substr(0, 2 * GetParam()->pageSize)), ErrorNumber::NotADatabase);
}

TEST_P(Header, OfAFileWithAPieceOfAPageOpensForReading) {
    const auto file =
        PageFile::FromImage(jettest::ImageOf(SmallFile(*GetParam()) + std::string(10, 'x')));
    EXPECT_TRUE(file->ReadOnly());
    EXPECT_EQ(file->PageCount(), 3u);
    EXPECT_EQ(NumberOf([&] { file->EditPage(1); }), ErrorNumber::ReadOnly);
    EXPECT_EQ(NumberOf([&] { file->AppendPage(); }), ErrorNumber::ReadOnly);
}

TEST(Header, MaskIsTheKnownKeyStream) {
    std::vector<std::uint8_t> page(kJet4.pageSize, 0);
    MaskHeader(kJet4, page);
    const std::vector<std::uint8_t> start(page.begin() + 0x18, page.begin() + 0x18 + 8);
    EXPECT_EQ(start, (std::vector<std::uint8_t>{0xB5, 0x6F, 0x03, 0x62, 0x61, 0x08, 0xC2, 0x55}));
    EXPECT_EQ(page[0x97], 0xD4);
    EXPECT_EQ(page[0x98], 0);
    EXPECT_EQ(page[0x17], 0);
}

TEST(PageFile, OpensEverySampleFile) {
    for (const auto& path : jet::test::SampleFiles()) {
        const auto file = PageFile::Open(path);
        EXPECT_EQ(file->ByteCount(), jettest::fs::file_size(path));
        EXPECT_EQ(file->Header().codePage, 1252);
    }
}

/// Pages 3 and up may be changed freely.
std::unique_ptr<PageFile> Editable(std::uint32_t pages) {
    auto file = PageFile::New(kJet4);
    while (file->PageCount() < pages) file->EditPage(file->AppendPage())[0] = 0x11;
    return file;
}

TEST(PageFile, RollbackTakesBackEditsAndNewPages) {
    const auto file = Editable(5);
    file->Begin();
    file->EditPage(3)[0] = 0x22;
    file->EditPage(file->AppendPage())[0] = 0x33;
    file->Rollback();
    EXPECT_EQ(file->Page(3)[0], 0x11);
    EXPECT_EQ(file->PageCount(), 5u);
    EXPECT_EQ(file->ByteCount(), 5 * kJet4.pageSize);
}

TEST(PageFile, APageAppendedAgainAfterRollbackIsZero) {
    const auto file = Editable(5);
    file->Begin();
    file->EditPage(file->AppendPage())[9] = 0x33;
    file->Rollback();
    EXPECT_EQ(file->Page(file->AppendPage())[9], 0);
}

TEST(PageFile, AFailedStatementUndoesOnlyItself) {
    const auto file = Editable(5);
    file->Begin();
    file->EditPage(3)[0] = 0x22;
    file->Begin();
    file->EditPage(3)[0] = 0x33;
    file->EditPage(4)[0] = 0x33;
    file->AppendPage();
    file->Rollback();
    EXPECT_EQ(file->Page(3)[0], 0x22);
    EXPECT_EQ(file->Page(4)[0], 0x11);
    EXPECT_EQ(file->PageCount(), 5u);
    file->Rollback();
    EXPECT_EQ(file->Page(3)[0], 0x11);
}

TEST(PageFile, WhatAnInnerLevelCommittedGoesBackWithTheOuter) {
    const auto file = Editable(5);
    file->Begin();
    const std::uint32_t outer = file->AppendPage();
    file->Begin();
    file->EditPage(3)[0] = 0x33;
    file->EditPage(outer)[0] = 0x33;
    file->Commit();
    EXPECT_EQ(file->Page(3)[0], 0x33);
    file->Rollback();
    EXPECT_EQ(file->Page(3)[0], 0x11);
    EXPECT_EQ(file->PageCount(), 5u);
}

TEST(PageFile, GoesFarWithoutMovingItsPages) {
    const auto file = Editable(5);
    const ByteView third = file->Page(3);
    while (file->PageCount() < 2000) file->AppendPage();
    EXPECT_EQ(third.data(), file->Page(3).data());
}

TEST(PageFile, RefusesAPageThatIsNotThere) {
    const auto file = Editable(5);
    EXPECT_EQ(NumberOf([&] { file->Page(5); }), ErrorNumber::NotADatabase);
    EXPECT_EQ(NumberOf([&] { file->EditPage(0xFFFFFFFF); }), ErrorNumber::NotADatabase);
}

class OnDisk : public testing::Test {
  protected:
    void SetUp() override {
        path_ = CopyInto(folder_, Sample("liten"));
        old_ = ReadText(path_);
    }
    /// Changes a byte that nobody reads.
    static void Change(PageFile& file) { file.EditPage(0)[0x200] ^= 1; }
    std::size_t FilesInFolder() const {
        return static_cast<std::size_t>(
            std::distance(jettest::fs::directory_iterator(folder_.Path()), {}));
    }

    /// Another one when the file was replaced.
    ino_t FileNumber() const {
        struct stat status {};
        EXPECT_EQ(::stat(path_.c_str(), &status), 0);
        return status.st_ino;
    }

    jet::test::ScratchFolder folder_;
    jettest::fs::path path_;
    std::string old_;
};

TEST_F(OnDisk, CommitStoresTheWholeFileAndLeavesNothingBeside) {
    const auto file = PageFile::Open(path_);
    file->Begin();
    Change(*file);
    EXPECT_EQ(ReadText(path_), old_);
    file->Commit();
    std::string expected = old_;
    expected[0x200] = static_cast<char>(expected[0x200] ^ 1);
    EXPECT_EQ(ReadText(path_), expected);
    EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(OnDisk, CommitOfNothingLeavesTheFileAlone) {
    const auto file = PageFile::Open(path_);
    const auto before = FileNumber();
    file->Begin();
    file->Begin();
    file->Commit();
    file->Commit();
    EXPECT_EQ(FileNumber(), before);
}

TEST_F(OnDisk, AFileThatAnotherProgramChangedIsNotOverwritten) {
    const auto file = PageFile::Open(path_);
    const std::string others = old_ + std::string(kJet4.pageSize, '\0');
    WriteText(path_, others);
    file->Begin();
    Change(*file);
    EXPECT_EQ(NumberOf([&] { file->Commit(); }), ErrorNumber::ChangedByOther);
    EXPECT_EQ(ReadText(path_), others);
    EXPECT_EQ(file->Page(0)[0x200], static_cast<std::uint8_t>(old_[0x200]));
    EXPECT_EQ(file->Depth(), 0u);
    EXPECT_EQ(FilesInFolder(), 1u);
}

TEST_F(OnDisk, AFileThatIsGoneIsNotWrittenAnew) {
    const auto file = PageFile::Open(path_);
    jettest::fs::remove(path_);
    file->Begin();
    Change(*file);
    EXPECT_EQ(NumberOf([&] { file->Commit(); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(FilesInFolder(), 0u);
}

TEST_F(OnDisk, AWriteProtectedFileOpensForReading) {
    ::chmod(path_.c_str(), 0444);
    const auto file = PageFile::Open(path_);
    EXPECT_TRUE(file->ReadOnly());
    EXPECT_EQ(NumberOf([&] { Change(*file); }), ErrorNumber::ReadOnly);
}

TEST_F(OnDisk, TheModeOfTheFileIsKept) {
    for (const ::mode_t mode : {0600u, 0640u, 0664u}) {
        ::chmod(path_.c_str(), mode);
        const auto file = PageFile::Open(path_);
        file->Begin();
        Change(*file);
        file->Commit();
        struct stat status {};
        ASSERT_EQ(::stat(path_.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777u, mode);
    }
}

TEST_F(OnDisk, ALinkStaysALink) {
    const auto link = folder_ / "link.mdb";
    jettest::fs::create_symlink(path_.filename(), link);
    const auto file = PageFile::Open(link);
    file->Begin();
    Change(*file);
    file->Commit();
    EXPECT_TRUE(jettest::fs::is_symlink(link));
    EXPECT_NE(ReadText(path_), old_);
    EXPECT_EQ(file->Path().filename(), path_.filename());
}

TEST_F(OnDisk, AChangeOfEqualSizeAndTimeIsNoticed) {
    const auto file = PageFile::Open(path_);
    struct stat before {};
    ASSERT_EQ(::stat(path_.c_str(), &before), 0);
    std::string others = old_;
    others[0x300] = static_cast<char>(others[0x300] ^ 1);
    WriteText(path_, others);
    const timespec times[] = {before.st_atim, before.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, path_.c_str(), times, 0), 0);
    file->Begin();
    Change(*file);
    EXPECT_EQ(NumberOf([&] { file->Commit(); }), ErrorNumber::ChangedByOther);
    EXPECT_EQ(ReadText(path_), others);
}

TEST_F(OnDisk, ANewModeIsKeptAndIsNoChangeOfTheFile) {
    const auto file = PageFile::Open(path_);
    for (const ::mode_t mode : {0600u, 0640u, 0604u}) {
        ::chmod(path_.c_str(), mode);
        file->Begin();
        Change(*file);
        file->Commit();
        struct stat status {};
        ASSERT_EQ(::stat(path_.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777u, mode);
    }
}

TEST_F(OnDisk, ASecondNameKeepsWhatItHad) {
    const auto file = PageFile::Open(path_);
    std::string before = old_;
    for (const char* name : {"first", "second", "third", "fourth"}) {
        jettest::fs::create_hard_link(path_, folder_ / name);
        file->Begin();
        Change(*file);
        file->Commit();
        EXPECT_EQ(ReadText(folder_ / name), before) << name;
        before = ReadText(path_);
    }
}

TEST_F(OnDisk, WhatACrashLeftBehindIsRemovedByWhoClaimsTheFile) {
    const std::string name = "." + path_.filename().string();
    const auto leftOver = folder_ / (name + ".0123456789abcdef.jet-new");
    const auto others = folder_ / (".x" + name + ".0123456789abcdef.jet-new");
    const auto another = folder_ / (name + ".0123456789abcdeg.jet-new");
    for (const auto& path : {leftOver, others, another}) WriteText(path, "half a file");
    RemoveLeftOvers(path_);
    EXPECT_FALSE(jettest::fs::exists(leftOver));
    EXPECT_TRUE(jettest::fs::exists(others));
    EXPECT_TRUE(jettest::fs::exists(another));
    EXPECT_EQ(ReadText(path_), old_);
}

TEST_F(OnDisk, WhatALivingProcessIsWritingIsNotRemoved) {
    const auto written = folder_ / ("." + path_.filename().string() + ".0123456789abcdef.jet-new");
    WriteText(written, "half a file");
    const int descriptor = ::open(written.c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_EQ(::flock(descriptor, LOCK_EX), 0);
    RemoveLeftOvers(path_);
    EXPECT_TRUE(jettest::fs::exists(written));
    ::close(descriptor);
    RemoveLeftOvers(path_);
    EXPECT_FALSE(jettest::fs::exists(written));
}

TEST_F(OnDisk, TemporaryNamesEndAsTheProgramAsks) {
    const std::string beginning = "." + path_.filename().string() + ".0123456789abcdef";
    const auto ours = folder_ / (beginning + ".of_Ours-1");
    const auto others = folder_ / (beginning + ".jet-new");
    for (const auto& path : {ours, others}) WriteText(path, "half a file");
    {
        const TemporaryFile before(path_, 0600);
        EXPECT_TRUE(before.Path().string().ends_with(".jet-new"));
    }
    jet::SetTemporaryEnding(".of_Ours-1");
    {
        const TemporaryFile after(path_, 0600);
        EXPECT_TRUE(after.Path().string().ends_with(".of_Ours-1"));
        EXPECT_TRUE(IsTemporaryNameFor(after.Path().filename(), path_.filename()));
    }
    RemoveLeftOvers(path_);
    jet::SetTemporaryEnding(".jet-new");
    EXPECT_FALSE(jettest::fs::exists(ours));
    EXPECT_TRUE(jettest::fs::exists(others));
}

TEST(TemporaryEnding, IsNoPathAndNotEmpty) {
    for (const std::string& ending : {std::string(), std::string("/x"), std::string("..\n"),
                                      std::string(jet::kMaxTemporaryEnding + 1, 'x')}) {
        EXPECT_EQ(jet::test::FailureOf([&] { jet::SetTemporaryEnding(ending); }),
                  ErrorNumber::InvalidProcedureCall)
            << ending;
    }
}

TEST_F(OnDisk, ANewFileFollowsTheUmask) {
    const auto file = PageFile::Open(path_);
    for (const ::mode_t mask : {0077u, 0022u, 0002u}) {
        const ::mode_t former = ::umask(mask);
        const auto copy = folder_ / ("copy" + std::to_string(mask));
        file->SaveAs(copy);
        ::umask(former);
        struct stat status {};
        ASSERT_EQ(::stat(copy.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777u, 0666u & ~mask);
    }
}

TEST_F(OnDisk, SaveAsWritesANewFile) {
    const auto file = PageFile::Open(path_);
    file->SaveAs(folder_ / "copy.mdb");
    EXPECT_EQ(ReadText(folder_ / "copy.mdb"), old_);
    EXPECT_EQ(ReadText(path_), old_);
}

TEST_F(OnDisk, SavingIntoAFolderThatIsNotThereFails) {
    const auto file = PageFile::Open(path_);
    EXPECT_EQ(NumberOf([&] { file->SaveAs(folder_ / "no/copy.mdb"); }), ErrorNumber::PathNotFound);
}

TEST_F(OnDisk, AFolderIsNoFile) {
    EXPECT_EQ(NumberOf([&] { PageFile::Open(folder_.Path()); }), ErrorNumber::ForeignFormat);
    EXPECT_EQ(NumberOf([&] { PageFile::Open(folder_ / "none.mdb"); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(NumberOf([&] { PageFile::Open(path_ / "below.mdb"); }), ErrorNumber::PathNotFound);
}

TEST_F(OnDisk, APipeIsNoFileAndIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(NumberOf([&] { PageFile::Open(folder_ / "pipe"); }), ErrorNumber::ForeignFormat);
}

}  // namespace
