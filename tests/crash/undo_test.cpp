// Taking back and doing again, which also make the file shorter and longer: killed at every system
// call, and met by a failure at each.

#include "base/error.h"
#include "faults.h"
#include "jet/database.h"
#include "jet/journal.h"
#include "jet/transaction.h"
#include "operations.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using crash::BytesOf;
using crash::Fault;
using crash::Injection;
using jet::Database;
using testing::IsEmpty;

using Store = void (*)(const std::shared_ptr<Database>&, const fs::path&);

void InsertMany(const std::shared_ptr<Database>& database, const fs::path&) {
    jet::Transaction together(database);
    const auto points = database->OpenRecordSet("Punkter");
    for (std::int32_t day = 0; day < 800; ++day) {
        points->AddNew();
        points->Set("Id", 3);
        points->Set("Dag", 60000 + day);
        points->Update();
    }
    together.Commit();
}
void Undo(const std::shared_ptr<Database>& database, const fs::path&) {
    jet::Journal(database).Undo();
}
void Redo(const std::shared_ptr<Database>& database, const fs::path&) {
    jet::Journal(database).Redo();
}

/// The file grows, shrinks, grows by the same again and shrinks below what the second image holds.
constexpr std::array<Store, 9> kStores = {crash::Insert, InsertMany, crash::StorePrice, Undo, Undo,
                                          Redo,          Undo,       crash::Insert,     Undo};

class UndoSession : public testing::Test {
  protected:
    void SetUp() override {
        fs::create_directories(folder_);
        crash::Fill(path_, crash::kFewDays);
        states_.push_back(BytesOf(path_));
        const Injection injection({});
        const auto database = OpenWithJournal();
        for (const Store store : kStores) {
            store(database, path_);
            states_.push_back(BytesOf(path_));
        }
        database->Close();
        calls_ = injection.Calls();
    }
    void TearDown() override { fs::remove_all(folder_); }

    std::shared_ptr<Database> OpenWithJournal() const {
        auto database = Database::Open(path_);
        const jet::Journal journal(database);
        return database;
    }
    void StartAnew() const {
        for (const auto& entry : fs::directory_iterator(folder_)) fs::remove(entry.path());
        crash::Write(path_, states_.front());
    }

    fs::path folder_ = fs::temp_directory_path() / ("undotest-" + std::to_string(::getpid()));
    fs::path path_ = folder_ / "file.mdb";
    std::vector<std::string> states_;
    std::vector<std::string> calls_;
};

TEST_F(UndoSession, MakesTheFileLongerAndShorterAndBringsBackEveryByte) {
    EXPECT_GT(states_[2].size(), states_[1].size());
    EXPECT_TRUE(states_[4] == states_[2]);
    EXPECT_TRUE(states_[5] == states_[1]);
    EXPECT_TRUE(states_[6] == states_[2]);
    EXPECT_TRUE(states_[7] == states_[1]);
    EXPECT_TRUE(states_[9] == states_[1]);
}

TEST_F(UndoSession, IsWholeWhereverTheProcessDies) {
    for (std::size_t at = 0; at < calls_.size(); ++at) {
        SCOPED_TRACE("killed at call " + std::to_string(at) + ", " + calls_[at]);
        StartAnew();
        const pid_t child = ::fork();
        if (child == 0) {
            const Injection injection({Fault::Die, at, "", 0});
            const auto database = OpenWithJournal();
            for (const Store store : kStores) store(database, path_);
            database->Close();
            ::_exit(0);
        }
        int status = 0;
        ::waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status));
        const std::string file = BytesOf(path_);
        EXPECT_NE(std::find(states_.begin(), states_.end(), file), states_.end());
        Database::RemoveLeftOvers(path_);
        const auto database = Database::Open(path_);
        EXPECT_THAT(database->Verify(), IsEmpty());
        database->Close();
        EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1);
    }
}

TEST_F(UndoSession, HasDoneAllOfAStepOrNothingWhenACallFails) {
    for (std::size_t at = 0; at < calls_.size(); ++at) {
        SCOPED_TRACE("call " + std::to_string(at) + " fails, " + calls_[at]);
        StartAnew();
        const Injection injection({Fault::Fail, at, "", EIO});
        std::shared_ptr<Database> database;
        try {
            database = OpenWithJournal();
        } catch (const Error&) {
            continue;  // not even opened
        }
        if (database->ReadOnly()) continue;
        std::size_t done = 0;
        for (const Store store : kStores) {
            try {
                store(database, path_);
            } catch (const Error&) {
                EXPECT_TRUE(BytesOf(path_) == states_[done]) << "after " << done;
                store(database, path_);  // the fault was one
            }
            ++done;
            ASSERT_TRUE(BytesOf(path_) == states_[done]) << "after " << done;
        }
        EXPECT_THAT(database->Verify(), IsEmpty());
        database->Close();
    }
}

}  // namespace
