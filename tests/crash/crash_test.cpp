// What a file looks like after the process died, or a system call failed, at any point of a change:
// as before the change or as after it, sound, and never anything else.

#include "faults.h"
#include "jet/database.h"
#include "jet/error.h"
#include "jet/transaction.h"
#include "operations.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using crash::BytesOf;
using crash::Create;
using crash::Delete;
using crash::DeleteWithPoints;
using crash::Fault;
using crash::Fill;
using crash::Injection;
using crash::Insert;
using crash::Operation;
using crash::StorePrice;
using crash::Update;
using crash::Write;
using jet::Database;
using testing::ElementsAre;
using testing::IsEmpty;

class AnyOperation : public testing::TestWithParam<Operation> {
  protected:
    static void SetUpTestSuite() {
        folder_ = fs::temp_directory_path() / ("crashtest-" + std::to_string(::getpid()));
        fs::create_directories(folder_);
        Fill(folder_ / "filled.mdb", crash::kManyDays);
        filled_ = BytesOf(folder_ / "filled.mdb");
        fs::remove(folder_ / "filled.mdb");
    }
    static void TearDownTestSuite() { fs::remove_all(folder_); }

    void SetUp() override {
        // The state after the change, found out undisturbed; every change is the same each time.
        StartAnew();
        {
            const Injection injection({});
            Run();
            calls_ = injection.Calls();
        }
        new_ = BytesOf(path_);
        ASSERT_NE(new_, Old());
        ExpectSound();
    }
    std::string Old() const { return GetParam().replaces ? filled_ : std::string(); }

    void StartAnew() {
        for (const auto& entry : fs::directory_iterator(folder_)) fs::remove(entry.path());
        if (GetParam().replaces) Write(path_, filled_);
    }
    void Run() {
        std::shared_ptr<Database> database;
        if (GetParam().opens) database = Database::Open(path_);
        GetParam().run(database, path_);
    }
    /// Runs the operation in a process of its own, to die there as the plan says.
    /// True when it died.
    bool RunAndDie(crash::Plan plan) {
        const pid_t child = ::fork();
        if (child == 0) {
            const Injection injection(std::move(plan));
            Run();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        EXPECT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0);
        return WIFSIGNALED(status);
    }
    void ExpectSound() {
        const auto database = Database::Open(path_);
        EXPECT_THAT(database->Verify(), IsEmpty());
    }
    /// The file is in one of the two states, sound, and the next change neither stumbles over what
    /// lies beside it nor leaves it there.
    void ExpectOldOrNew() {
        const bool exists = fs::exists(path_);
        EXPECT_TRUE(exists || !GetParam().replaces);
        const std::string now = BytesOf(path_);
        EXPECT_TRUE(now == Old() || now == new_) << now.size() << " bytes";
        if (!exists) return;
        ExpectSound();
        Database::RemoveLeftOvers(path_);
        EXPECT_EQ(FilesInFolder(), 1);
        if (now == new_) return;
        Run();
        EXPECT_TRUE(BytesOf(path_) == new_);
        EXPECT_EQ(FilesInFolder(), 1);
    }
    static std::ptrdiff_t FilesInFolder() {
        return std::distance(fs::directory_iterator(folder_), fs::directory_iterator());
    }

    static inline fs::path folder_;
    static inline std::string filled_;
    fs::path path_ = folder_ / "file.mdb";
    std::string new_;
    std::vector<std::string> calls_;
};

TEST_P(AnyOperation, SyncsTheNewFileBeforeItTakesTheOldOnesPlace) {
    std::vector<std::string> order;
    for (const std::string& call : calls_) {
        const bool ofRights = call == "fchmod" || call == "fchown";
        if (!ofRights && (order.empty() || order.back() != call)) order.push_back(call);
    }
    if (GetParam().opens) order.erase(order.begin());  // to read; the next one joined it
    if (order.front() != "open") order.insert(order.begin(), "open");
    EXPECT_THAT(order, ElementsAre("open", "write", "fsync", "open", "rename", "fsync folder"));
}

TEST_P(AnyOperation, IsWholeOrUndoneWhereverTheProcessDies) {
    for (const Fault fault : {Fault::Die, Fault::DieHalfway}) {
        for (std::size_t at = 0; at < calls_.size(); ++at) {
            SCOPED_TRACE("killed at call " + std::to_string(at) + ", " + calls_[at]);
            StartAnew();
            EXPECT_TRUE(RunAndDie({fault, at, "", 0}));
            ExpectOldOrNew();
        }
    }
}

TEST_P(AnyOperation, IsUndoneWhenTheProcessDiesBeforeTheRename) {
    StartAnew();
    EXPECT_TRUE(RunAndDie({Fault::Die, 0, "rename", 0}));
    EXPECT_TRUE(BytesOf(path_) == Old());
}

TEST_P(AnyOperation, IsWholeWhenTheProcessDiesAfterTheRename) {
    StartAnew();
    EXPECT_TRUE(RunAndDie({Fault::Die, 0, "fsync folder", 0}));
    EXPECT_TRUE(BytesOf(path_) == new_);
}

TEST_P(AnyOperation, GoesOnAfterShortWrites) {
    const auto writes = static_cast<std::size_t>(std::count(calls_.begin(), calls_.end(), "write"));
    for (std::size_t at = 0; at < writes; ++at) {
        StartAnew();
        const Injection injection({Fault::Short, at, "write", 0});
        Run();
        EXPECT_TRUE(injection.Hit());
        EXPECT_TRUE(BytesOf(path_) == new_) << at;
    }
}

TEST_P(AnyOperation, StoresWhereModesAndOwnersAreRefused) {
    for (const char* call : {"fchmod", "fchown"}) {
        for (const int code : {EPERM, EOPNOTSUPP, EIO}) {
            StartAnew();
            // So that there is an owner to be kept, where the tests may give files away.
            if (GetParam().replaces)
                EXPECT_TRUE(::chown(path_.c_str(), 12345, 12345) == 0 || ::geteuid() != 0);
            const Injection injection({Fault::FailFromNow, 0, call, code});
            Run();
            EXPECT_TRUE(BytesOf(path_) == new_) << call << code;
        }
    }
}

TEST_P(AnyOperation, WritesANewFileUnderANameThatNobodyCanForesee) {
    std::vector<std::string> names;
    for (int time = 0; time < 2; ++time) {
        StartAnew();
        const Injection injection({});
        Run();
        ASSERT_EQ(injection.CreatedAnew().size(), 1u);
        names.push_back(injection.CreatedAnew().front());
    }
    EXPECT_NE(names[0], names[1]);
    EXPECT_EQ(fs::path(names[0]).parent_path(), folder_);
}

TEST_P(AnyOperation, GoesOnAfterASignal) {
    for (const char* call : {"write", "fsync", "open"}) {
        StartAnew();
        const Injection injection({Fault::Fail, 0, call, EINTR});
        Run();
        EXPECT_TRUE(injection.Hit());
        EXPECT_TRUE(BytesOf(path_) == new_) << call;
    }
}

struct Failure {
    const char* call;
    int code;
    jet::ErrorNumber number;
};

/// A failing disk is told, changes nothing in the file or in memory, and once it works again so
/// does the change.
void ExpectUndone(const Operation& operation, const fs::path& path, const Failure& failure,
                  const std::string& old, const std::string& wanted) {
    std::shared_ptr<Database> database;
    if (operation.opens) database = Database::Open(path);
    for (const Fault fault : {Fault::Fail, Fault::FailFromNow}) {
        SCOPED_TRACE(std::string(failure.call) + " fails with " + std::to_string(failure.code));
        jet::ErrorNumber number = jet::ErrorNumber::None;
        {
            const Injection injection({fault, 0, failure.call, failure.code});
            try {
                operation.run(database, path);
            } catch (const jet::Error& error) {
                number = error.Number();
            }
            EXPECT_TRUE(injection.Hit());
        }
        EXPECT_EQ(number, failure.number);
        EXPECT_TRUE(BytesOf(path) == old);
        if (database) EXPECT_THAT(database->Verify(), IsEmpty());
    }
    operation.run(database, path);
    EXPECT_TRUE(BytesOf(path) == wanted);
}

TEST_P(AnyOperation, IsUndoneWhenACallFails) {
    const std::vector<Failure> failures = {{"open", ENOSPC, jet::ErrorNumber::DiskFull},
                                           {"open", EACCES, jet::ErrorNumber::PermissionDenied},
                                           {"open", EROFS, jet::ErrorNumber::ReadOnly},
                                           {"write", ENOSPC, jet::ErrorNumber::DiskFull},
                                           {"write", EDQUOT, jet::ErrorNumber::DiskFull},
                                           {"write", EIO, jet::ErrorNumber::DeviceIo},
                                           {"fsync", EIO, jet::ErrorNumber::DeviceIo},
                                           {"fsync", ENOSPC, jet::ErrorNumber::DiskFull},
                                           {"rename", EIO, jet::ErrorNumber::DeviceIo},
                                           {"rename", ENOSPC, jet::ErrorNumber::DiskFull},
                                           {"rename", EPERM, jet::ErrorNumber::PermissionDenied}};
    for (const Failure& failure : failures) {
        StartAnew();
        ExpectUndone(GetParam(), path_, failure, Old(), new_);
        EXPECT_EQ(FilesInFolder(), 1);
    }
}

TEST_P(AnyOperation, IsUndoneWhenALaterWriteFails) {
    const auto writes = static_cast<std::size_t>(std::count(calls_.begin(), calls_.end(), "write"));
    for (std::size_t at = 0; at < writes; ++at) {
        StartAnew();
        {
            const Injection injection({Fault::FailFromNow, at, "write", ENOSPC});
            EXPECT_THROW(Run(), jet::Error) << at;
        }
        EXPECT_TRUE(BytesOf(path_) == Old());
        EXPECT_EQ(FilesInFolder(), GetParam().replaces ? 1 : 0);
    }
}

TEST_P(AnyOperation, IsUndoneWhenTheDiskIsReallyFull) {
    StartAnew();
    const pid_t child = ::fork();
    if (child == 0) {
        // A limit on the length of files stands for the full disk; without a signal, write fails.
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{50000, 50000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        try {
            Run();
        } catch (const jet::Error& error) {
            ::_exit(error.Number() == jet::ErrorNumber::DiskFull ? 61 : 1);
        }
        ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 61);
    EXPECT_TRUE(BytesOf(path_) == Old());
    EXPECT_EQ(FilesInFolder(), GetParam().replaces ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Each, AnyOperation,
                         testing::Values(Operation{"Insert", Insert}, Operation{"Update", Update},
                                         Operation{"Delete", Delete},
                                         Operation{"DeleteWithPoints", DeleteWithPoints},
                                         Operation{"StorePrice", StorePrice},
                                         Operation{"CreateOver", Create, false, true},
                                         Operation{"CreateNew", Create, false, false}),
                         [](const auto& test) { return test.param.name; });

/// Only changes of an open file have a state in memory to agree with.
class OpenFile : public AnyOperation {};

TEST_P(OpenFile, WhenTheFolderCannotBeSyncedTheOldStateIsPutBack) {
    StartAnew();
    const auto database = Database::Open(path_);
    for (const Fault fault : {Fault::Fail, Fault::FailFromNow}) {
        {
            const Injection injection({fault, 0, "fsync folder", EIO});
            EXPECT_THROW(GetParam().run(database, path_), jet::Error);
            EXPECT_TRUE(injection.Hit());
        }
        EXPECT_TRUE(BytesOf(path_) == Old());
    }
    GetParam().run(database, path_);
    EXPECT_TRUE(BytesOf(path_) == new_);
}

TEST_P(OpenFile, AFolderThatKnowsNoSyncIsNoFailure) {
    StartAnew();
    const auto database = Database::Open(path_);
    const Injection injection({Fault::Fail, 0, "fsync folder", EINVAL});
    GetParam().run(database, path_);
    EXPECT_TRUE(BytesOf(path_) == new_);
}

TEST_P(OpenFile, AWriteProtectedFileRefusesTheChangeAndStaysAsItIs) {
    StartAnew();
    ::chmod(path_.c_str(), 0444);
    const auto database = Database::Open(path_);
    EXPECT_TRUE(database->ReadOnly());
    const Injection injection({});
    try {
        GetParam().run(database, path_);
        ADD_FAILURE() << "the change went through";
    } catch (const jet::Error& error) {
        EXPECT_EQ(error.Number(), jet::ErrorNumber::ReadOnly);
    }
    EXPECT_THAT(injection.Calls(), IsEmpty());
    EXPECT_TRUE(BytesOf(path_) == Old());
}

INSTANTIATE_TEST_SUITE_P(Each, OpenFile,
                         testing::Values(Operation{"Insert", Insert}, Operation{"Update", Update},
                                         Operation{"Delete", Delete},
                                         Operation{"DeleteWithPoints", DeleteWithPoints},
                                         Operation{"StorePrice", StorePrice}),
                         [](const auto& test) { return test.param.name; });

}  // namespace
