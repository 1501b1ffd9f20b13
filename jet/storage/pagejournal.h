#pragma once
// The pages that the stores of a session replaced, so that each store can be taken back and done
// again. Keeps and counts them; putting them back is the engine's.

#include "jet/journalnote.h"
#include "jet/storage/earlierpages.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <utility>

namespace jet::detail {

class PageJournal {
  public:
    PageJournal(JournalLimits limits, std::size_t pageSize)
        : limits_(limits), pageSize_(pageSize) {}

    /// A commit has replaced these. A step of its own, or of the step that is open; or, while one
    /// is put back, what leads the other way. Cannot fail: without memory everything is forgotten.
    void Stored(EarlierPages&& before) noexcept;

    /// Until End the stores are one step.
    void Begin(JournalNote note);
    void Continue();
    void End() noexcept { open_.reset(); }

    enum class Way { Back, Forth };
    /// Null: there is none.
    const JournalNote* NextNote(Way way) const;
    /// The pages to put back. Putting them back is one commit between Start and Finish; without
    /// Finish nothing has happened.
    const EarlierPages& Start(Way way);
    void Finish(Way way) noexcept;
    void GiveUp() noexcept;

  private:
    struct Step {
        EarlierPages pages;
        JournalNote note;
    };
    using Steps = std::deque<Step>;

    void Keep(EarlierPages&& before);
    void Forget() noexcept;
    void KeepWithinLimits() noexcept;
    std::size_t BytesOf(const EarlierPages& pages) const;
    Steps& StepsFor(Way way) { return way == Way::Back ? back_ : forth_; }

    JournalLimits limits_;
    std::size_t pageSize_;
    Steps back_, forth_;  ///< the next one at the end
    struct Open {
        JournalNote note;
        bool hasStep = false;
    };
    std::optional<Open> open_;
    std::optional<EarlierPages> replayed_;
    bool replaying_ = false;
};

}  // namespace jet::detail
