#include "jet/transaction.h"

#include "jet/query/engine.h"

namespace jet {

Transaction::Transaction(std::shared_ptr<Database> database) : database_(std::move(database)) {
    database_->EngineForLibrary().BeginTransaction();
}

Transaction::~Transaction() {
    // A database that was closed meanwhile has taken everything back itself.
    if (open_ && database_->IsOpen()) database_->EngineForLibrary().RollbackTransaction();
}

void Transaction::Commit() {
    detail::Engine& engine = database_->EngineForLibrary();
    if (!open_) return;
    open_ = false;
    engine.CommitTransaction();
}

}  // namespace jet
