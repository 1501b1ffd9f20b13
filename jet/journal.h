#pragma once
// Taking back what was stored, and doing it again: the file's pages as they were before each store,
// put back by a store of their own.

#include "jet/database.h"
#include "jet/journalnote.h"

#include <memory>
#include <optional>

namespace jet {

/// Of a file that is open for writing: from the first Journal on, every store is a step. All
/// journals of a file are one; it ends with Database::Close. Record sets find the rows of a step
/// that was taken back after Requery. Once the file is closed there is no next step.
class Journal {
  public:
    /// `limits` are the first one's.
    explicit Journal(const std::shared_ptr<Database>& database, JournalLimits limits = {});

    /// What Undo would take back, and Redo do again; none: there is nothing.
    std::optional<JournalNote> NextUndo() const;
    std::optional<JournalNote> NextRedo() const;

    /// Puts back the pages of the last step, whole and durable as every store. Throws
    /// NoCurrentRecord without a step, ChangedByOther when another program wrote the file,
    /// InvalidProcedureCall inside a transaction, and what Commit throws: then nothing changed.
    void Undo();
    /// What was taken back is stored again. A store of anything else in between ends this.
    void Redo();

    /// The stores until End are one step with this note. A store without has an empty one.
    void Begin(JournalNote note);
    /// The stores until End belong to the last step; to one with an empty note if there is none.
    void Continue();
    void End() noexcept;

  private:
    std::shared_ptr<const detail::OpenFile> file_;  ///< keeps the database alive
};

}  // namespace jet
