#include "model.h"

#include "jet/error.h"
#include "jet/transaction.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <utility>

namespace jet::test {

std::size_t ModelChanges(std::size_t percent) {
    std::size_t total = 100000;
    if (const char* wanted = std::getenv("KVARNBO_MODEL_CHANGES")) {
        std::from_chars(wanted, wanted + std::strlen(wanted), total);
    }
    return total * percent / 100;
}

unsigned ModelSeed() {
    unsigned seed = 20260224;
    if (const char* wanted = std::getenv("KVARNBO_MODEL_SEED")) {
        std::from_chars(wanted, wanted + std::strlen(wanted), seed);
    }
    return seed;
}

ModelFile::ModelFile(std::filesystem::path path, std::size_t targetRows, unsigned seed)
    : path_(std::move(path)), random_(seed), file_(Database::Open(path_)) {
    for (const std::string& name : file_->TableNames()) {
        tables_.emplace_back(file_, name, targetRows);
        tables_.back().LearnReader(path_);
    }
}

void ModelFile::Run(std::size_t changes) {
    for (std::size_t made = 0; made < changes && !testing::Test::HasFailure();) made += Sequence();
    if (!testing::Test::HasFailure()) Reopen();
    CheckEverything(true);
}

void ModelFile::Steps(ModelTable& table, std::size_t count) {
    if (std::find(touched_.begin(), touched_.end(), &table) == touched_.end()) {
        touched_.push_back(&table);
        if (table.Related()) table.Reread();
    }
    for (; count > 0 && !testing::Test::HasFailure(); --count) table.Step(random_);
}

/// All of it is rolled back.
void ModelFile::StepsInVain(const Chosen& chosen, std::size_t count, unsigned kind) {
    const ModelTable::State before = chosen.table.Now(), otherBefore = chosen.other.Now();
    {
        Transaction transaction(file_);
        Steps(chosen.table, count);
        if (&chosen.other != &chosen.table) Steps(chosen.other, 10);
        if (kind < 20) chosen.table.DeleteByQuery(*file_, random_);
    }
    chosen.table.Restore(before);
    if (&chosen.other != &chosen.table) chosen.other.Restore(otherBefore);
}

/// An inner transaction takes the outer one along.
void ModelFile::StepsSpoiled(ModelTable& table, std::size_t count) {
    const ModelTable::State before = table.Now();
    {
        Transaction outer(file_);
        Steps(table, count);
        { const Transaction inner(file_); }
        EXPECT_THROW(outer.Commit(), Error) << "a transaction in it was rolled back";
    }
    table.Restore(before);
}

void ModelFile::StepsTogether(const Chosen& chosen, std::size_t count, unsigned kind) {
    Transaction transaction(file_);
    Steps(chosen.table, count);
    {
        Transaction inner(file_);
        if (&chosen.other != &chosen.table) Steps(chosen.other, 10);
        inner.Commit();
    }
    if (kind < 45) chosen.table.DeleteByQuery(*file_, random_);
    transaction.Commit();
}

std::size_t ModelFile::Sequence() {
    touched_.clear();
    ModelTable& table = tables_[Pick(random_, tables_.size())];
    const Chosen chosen{table, tables_[Pick(random_, tables_.size())]};
    const std::size_t most = std::min<std::size_t>(2 * table.RowCount() + 40, 900);
    std::size_t count = 20 + Pick(random_, most);
    const unsigned kind = random_() % 100;
    if (kind < 12) {
        count = 1 + count % 12;  // each stored for itself
        Steps(table, count);
    } else if (kind < 27) {
        StepsInVain(chosen, count, kind);
    } else if (kind < 30) {
        StepsSpoiled(table, count);
    } else {
        StepsTogether(chosen, count, kind);
    }
    // What followed from a change in one table to another is other tests' business.
    for (ModelTable& each : tables_) {
        if (each.Related()) each.Reread();
    }
    if (Chance(random_, 25)) Reopen();
    CheckEverything(false);
    return count;
}

void ModelFile::Reopen() {
    file_->Close();
    file_ = Database::Open(path_);
    for (ModelTable& table : tables_) table.Attach(file_);
}

void ModelFile::CheckEverything(bool allTables) {
    EXPECT_EQ(file_->Verify(), std::vector<std::string>());
    for (ModelTable& table : tables_) {
        const bool touched = std::find(touched_.begin(), touched_.end(), &table) != touched_.end();
        if (testing::Test::HasFailure() || (!touched && !allTables)) continue;
        table.Check();
        table.CheckReader(path_);
    }
}

}  // namespace jet::test
