#pragma once
// All-or-nothing over several updates of one file.

#include "jet/database.h"

#include <memory>

namespace jet {

/// Updates made while it lives are stored together by Commit, durably, or not at all: leaving the
/// scope without Commit takes every one of them back, in memory too. Nested ones join the
/// outermost; rolling back an inner one makes the outer Commit throw.
class Transaction {
  public:
    explicit Transaction(const std::shared_ptr<Database>& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Throws DiskFull, DeviceIo, ReadOnly, ChangedByOther; then everything is rolled back.
    void Commit();

  private:
    std::shared_ptr<const detail::OpenFile> file_;  ///< keeps the database alive
    bool open_ = true;
};

}  // namespace jet
