#include "jet/transaction.h"

#include "jet/query/openfile.h"

namespace jet {

Transaction::Transaction(const std::shared_ptr<Database>& database) : file_(database->Shared()) {
    file_->Get().BeginTransaction();
}

Transaction::~Transaction() {
    // A database that was closed meanwhile has taken everything back itself.
    if (open_ && file_->IsOpen()) file_->Get().RollbackTransaction();
}

void Transaction::Commit() {
    detail::Engine& engine = file_->Get();
    if (!open_) return;
    open_ = false;
    engine.CommitTransaction();
}

}  // namespace jet
