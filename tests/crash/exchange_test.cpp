// Sessions that store more than once, in which two images of the file take turns: stopped at every
// system call, with both images looked at afterwards.

#include "faults.h"
#include "jet/database.h"
#include "jet/error.h"
#include "memory.h"
#include "operations.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/magic.h>
#include <new>
#include <optional>
#include <string>
#include <sys/mman.h>
#include <sys/vfs.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using crash::BytesOf;
using crash::Fault;
using crash::Injection;
using jet::Database;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array kStores = {crash::Insert,     crash::Update, crash::Delete,
                                crash::StorePrice, crash::Insert, crash::DeleteWithPoints,
                                crash::Update};

bool KeepsExchanges(const fs::path& folder) {
    struct statfs about {};
    return ::statfs(folder.c_str(), &about) == 0 &&
           (about.f_type == EXT4_SUPER_MAGIC || about.f_type == XFS_SUPER_MAGIC);
}

class Session : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(folder_);
        if (!KeepsExchanges(folder_)) GTEST_SKIP() << "no exchange that lasts in " << folder_;
        crash::Fill(path_, crash::kFewDays);
        states_.push_back(BytesOf(path_));
        const Injection injection({});
        const auto database = Database::Open(path_);
        for (const auto& store : kStores) {
            store(database, path_);
            states_.push_back(BytesOf(path_));
        }
        database->Close();
        calls_ = injection.Calls();
    }
    void TearDown() override { fs::remove_all(folder_); }

    void StartAnew() const {
        for (const auto& entry : fs::directory_iterator(folder_)) fs::remove(entry.path());
        crash::Write(path_, states_.front());
    }
    void Run(const std::shared_ptr<Database>& database, std::size_t from, std::size_t to) const {
        for (std::size_t i = from; i < to; ++i) kStores[i](database, path_);
    }
    /// The image beside the file.
    std::optional<fs::path> Beside() const {
        for (const auto& entry : fs::directory_iterator(folder_)) {
            if (entry.path() != path_) return entry.path();
        }
        return std::nullopt;
    }
    std::ptrdiff_t FilesInFolder() const {
        return std::distance(fs::directory_iterator(folder_), {});
    }
    void ExpectState(std::size_t state) const {
        EXPECT_TRUE(BytesOf(path_) == states_[state]) << "not the state after " << state;
    }

    fs::path folder_ = fs::temp_directory_path() / ("exchangetest-" + std::to_string(::getpid()));
    fs::path path_ = folder_ / "file.mdb";
    std::vector<std::string> states_;  ///< before the first store, and after each
    std::vector<std::string> calls_;
};

TEST_F(Session, LeavesNothingBesideTheFileForASinglePriceAndAfterClosing) {
    StartAnew();
    const auto database = Database::Open(path_);
    Run(database, 0, 1);
    EXPECT_EQ(FilesInFolder(), 1);
    Run(database, 1, kStores.size());
    EXPECT_EQ(FilesInFolder(), 2);
    EXPECT_TRUE(BytesOf(*Beside()) == states_[kStores.size() - 1]) << "one store behind";
    ExpectState(kStores.size());
    database->Close();
    EXPECT_EQ(FilesInFolder(), 1);
}

TEST_F(Session, WritesPagesIntoTheLeasedSecondImageAndSyncsThemBeforeTheExchange) {
    StartAnew();
    const auto database = Database::Open(path_);
    Run(database, 0, 2);
    const Injection injection({});
    Run(database, 2, 3);
    std::vector<std::string> order;
    for (const std::string& call : injection.Calls()) {
        if (order.empty() || order.back() != call) order.push_back(call);
    }
    EXPECT_THAT(order, ElementsAre("lease", "pwrite", "fdatasync", "open", "exchange",
                                   "fsync folder", "open"));
}

/// A counter that a process which dies leaves behind.
class SharedCounter {
  public:
    SharedCounter()
        : memory_(::mmap(nullptr, sizeof(std::size_t), PROT_READ | PROT_WRITE,
                         MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {}
    ~SharedCounter() { ::munmap(memory_, sizeof(std::size_t)); }
    SharedCounter(const SharedCounter&) = delete;
    SharedCounter& operator=(const SharedCounter&) = delete;
    std::size_t& Value() { return *static_cast<std::size_t*>(memory_); }

  private:
    void* memory_;
};

TEST_F(Session, IsWholeWhereverTheProcessDies) {
    for (const Fault fault : {Fault::Die, Fault::DieHalfway}) {
        for (std::size_t at = 0; at < calls_.size(); ++at) {
            const std::string& call = calls_[at];
            SCOPED_TRACE("killed at call " + std::to_string(at) + ", " + call);
            StartAnew();
            SharedCounter stored;
            const pid_t child = ::fork();
            if (child == 0) {
                const Injection injection({fault, at, "", 0});
                const auto database = Database::Open(path_);
                for (const auto& store : kStores) {
                    store(database, path_);
                    ++stored.Value();
                }
                database->Close();
                ::_exit(0);
            }
            int status = 0;
            ::waitpid(child, &status, 0);
            ASSERT_TRUE(WIFSIGNALED(status));
            const std::size_t done = stored.Value();
            const std::string file = BytesOf(path_);
            ASSERT_LT(done, states_.size());
            const bool isNew = done + 1 < states_.size() && file == states_[done + 1];
            EXPECT_TRUE(isNew || file == states_[done]) << "after " << done;
            const std::optional<fs::path> beside = Beside();
            if (call == "exchange") {
                EXPECT_FALSE(isNew);
                ASSERT_TRUE(beside);
                EXPECT_TRUE(BytesOf(*beside) == states_[done + 1]) << "not complete in time";
            }
            if (call == "fsync folder") {
                EXPECT_TRUE(isNew);
                if (beside)
                    EXPECT_TRUE(BytesOf(*beside) == states_[done]) << "written to too early";
            }
            Database::RemoveLeftOvers(path_);
            EXPECT_EQ(FilesInFolder(), 1);
            const auto database = Database::Open(path_);
            EXPECT_THAT(database->Verify(), IsEmpty());
            // Another session may put its rows elsewhere, so there is no one state to compare with.
            Run(database, isNew ? done + 1 : done, kStores.size());
            EXPECT_THAT(database->Verify(), IsEmpty());
            database->Close();
            EXPECT_EQ(FilesInFolder(), 1);
            if (HasFailure()) return;
        }
    }
}

/// A store that fails says so and changed nothing; one that does not is whole. Both go on.
void StoreAll(const std::shared_ptr<Database>& database, const fs::path& path,
              const std::vector<std::string>& states) {
    for (std::size_t i = 0; i < kStores.size(); ++i) {
        for (int tries = 0; tries < 3; ++tries) {
            try {
                kStores[i](database, path);
                break;
            } catch (const jet::Error&) {
            } catch (const std::bad_alloc&) {
            }
            ASSERT_TRUE(BytesOf(path) == states[i]) << "refused, yet stored: " << i;
        }
        ASSERT_TRUE(BytesOf(path) == states[i + 1]) << "stored, yet not in the file: " << i;
    }
}

TEST_F(Session, IsWholeOrUndoneWhenACallFails) {
    for (const int code : {EIO, EPERM, EINVAL}) {
        for (std::size_t at = 1; at < calls_.size(); ++at) {  // the first one opens the file
            SCOPED_TRACE(calls_[at] + " fails, call " + std::to_string(at));
            StartAnew();
            {
                const Injection injection({Fault::Fail, at, "", code});
                const auto database = Database::Open(path_);
                StoreAll(database, path_, states_);
                EXPECT_THAT(database->Verify(), IsEmpty());
                database->Close();
                EXPECT_TRUE(injection.Hit());
            }
            if (calls_[at] == "unlink") Database::RemoveLeftOvers(path_);
            EXPECT_EQ(FilesInFolder(), 1);
            if (HasFailure()) return;
        }
    }
}

TEST_F(Session, IsWholeOrUndoneWhenMemoryRunsOut) {
    bool hit = true;
    for (std::size_t at = 0; hit; ++at) {
        SCOPED_TRACE("allocation " + std::to_string(at) + " fails");
        StartAnew();
        const auto database = Database::Open(path_);
        Run(database, 0, 4);
        bool stored = false;
        {
            const crash::MemoryShortage shortage(at, crash::Shortage::Once);
            try {
                Run(database, 4, 5);
                stored = true;
            } catch (const jet::Error&) {
            } catch (const std::bad_alloc&) {
            }
            hit = shortage.Hit();
        }
        ExpectState(stored ? 5 : 4);
        if (!stored) Run(database, 4, 5);
        Run(database, 5, kStores.size());
        ExpectState(kStores.size());
        database->Close();
        EXPECT_EQ(FilesInFolder(), 1);
        if (HasFailure()) return;
    }
}

TEST_F(Session, DoesWithoutASecondImageWhereThereIsNoExchangeOrNoLease) {
    for (const char* call : {"exchange", "lease"}) {
        StartAnew();
        const Injection injection({Fault::FailFromNow, 0, call, EINVAL});
        const auto database = Database::Open(path_);
        StoreAll(database, path_, states_);
        EXPECT_TRUE(injection.Hit());
        EXPECT_EQ(FilesInFolder(), 1) << call;
        database->Close();
    }
}

TEST_F(Session, DoesWithoutASecondImageOverALink) {
    StartAnew();
    const fs::path other = folder_ / "other";
    fs::create_directories(other);
    const fs::path link = other / "link.mdb";
    fs::create_symlink(path_, link);
    const auto database = Database::Open(link);
    StoreAll(database, path_, states_);
    EXPECT_EQ(FilesInFolder(), 2);  // the file, and the folder with the link
    database->Close();
    fs::remove_all(other);
}

TEST_F(Session, DoesWithoutASecondImageInMemory) {
    const fs::path memory = "/dev/shm";
    struct statfs about {};
    if (::statfs(memory.c_str(), &about) != 0 || about.f_type != TMPFS_MAGIC) {
        GTEST_SKIP() << "no file system in memory";
    }
    const fs::path folder = memory / folder_.filename();
    fs::create_directories(folder);
    crash::Write(folder / "file.mdb", states_.front());
    const auto database = Database::Open(folder / "file.mdb");
    StoreAll(database, folder / "file.mdb", states_);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1);
    database->Close();
    fs::remove_all(folder);
}

TEST_F(Session, LeavesAReaderTheVersionThatItOpened) {
    StartAnew();
    const auto database = Database::Open(path_);
    struct Reader {
        int file;
        std::string expected;
    };
    std::vector<Reader> readers;
    for (std::size_t i = 0; i < kStores.size(); ++i) {
        // Not before every store, so that images are also kept.
        if (i % 2 == 1) readers.push_back({::open(path_.c_str(), O_RDONLY), states_[i]});
        Run(database, i, i + 1);
        ExpectState(i + 1);
    }
    database->Close();
    for (const Reader& reader : readers) {
        std::string read(reader.expected.size() + 1, '\0');
        const ssize_t size = ::pread(reader.file, read.data(), read.size(), 0);
        read.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
        EXPECT_TRUE(read == reader.expected);
        ::close(reader.file);
    }
}

TEST_F(Session, DropsASecondImageThatIsNotAsItWasLeft) {
    const auto changes = std::to_array<std::function<void(const fs::path&)>>(
        {[](const fs::path& image) { crash::Write(image, "other"); },
         [](const fs::path& image) {
             std::string bytes = BytesOf(image);
             bytes[bytes.size() / 2] ^= 1;
             crash::Write(image, bytes);
         },
         [](const fs::path& image) { fs::remove(image); },
         [](const fs::path& image) {
             fs::remove(image);
             crash::Write(image, "another file");
         },
         [&](const fs::path& image) { fs::create_hard_link(image, folder_ / "second name"); }});
    for (std::size_t i = 0; i < changes.size(); ++i) {
        StartAnew();
        const auto database = Database::Open(path_);
        Run(database, 0, 3);
        ASSERT_TRUE(Beside());
        changes[i](*Beside());
        Run(database, 3, kStores.size());
        ExpectState(kStores.size());
        database->Close();
    }
    EXPECT_TRUE(BytesOf(folder_ / "second name") == states_[2]);
}

TEST_F(Session, GivesTheSecondImageTheFilesMode) {
    StartAnew();
    const auto database = Database::Open(path_);
    for (std::size_t i = 0; i < kStores.size(); ++i) {
        const auto mode = static_cast<fs::perms>(i % 2 == 0 ? 0600 : 0640);
        fs::permissions(path_, mode);
        Run(database, i, i + 1);
        EXPECT_EQ(fs::status(path_).permissions(), mode);
    }
    ExpectState(kStores.size());
    database->Close();
}

TEST_F(Session, RefusesToReplaceWhatAnotherProgramWrote) {
    StartAnew();
    const auto database = Database::Open(path_);
    Run(database, 0, 4);
    std::string others = states_[4];
    others[0x200] ^= 1;
    crash::Write(path_, others);
    try {
        Run(database, 4, 5);
        ADD_FAILURE() << "replaced";
    } catch (const jet::Error& error) {
        EXPECT_EQ(error.Number(), jet::ErrorNumber::ChangedByOther);
    }
    EXPECT_TRUE(BytesOf(path_) == others);
    database->Close();
    EXPECT_EQ(FilesInFolder(), 1);
}

}  // namespace
