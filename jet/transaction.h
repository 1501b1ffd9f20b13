#pragma once
// All-or-nothing over several updates of one file.

#include "jet/database.h"

#include <memory>

namespace jet {

/// Updates made while it lives are stored together by Commit, durably, or not at all: leaving the
/// scope without Commit takes every one of them back, in memory too. Nested ones join the
/// outermost; rolling back an inner one makes the outer Commit throw. It keeps the database alive
/// and is used on its thread; nested ones end in the opposite order.
class Transaction {
  public:
    /// Throws ObjectClosed.
    explicit Transaction(const std::shared_ptr<Database>& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// The outermost one writes what was changed, and it is on the disk when this returns; an inner
    /// one hands it to the outer. Throws DiskFull, DeviceIo, PermissionDenied, ReadOnly, FileInUse,
    /// ChangedByOther, OutOfMemory, InvalidProcedureCall (an inner one was rolled back): then
    /// everything is rolled back. ObjectClosed when the file was closed meanwhile, which had taken
    /// everything back. A second call does nothing.
    void Commit();

  private:
    std::shared_ptr<const detail::OpenFile> file_;  ///< keeps the database alive
    bool open_ = true;
};

}  // namespace jet
