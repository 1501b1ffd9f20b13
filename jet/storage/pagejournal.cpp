#include "jet/storage/pagejournal.h"

#include "jet/error.h"

#include <new>
#include <numeric>

namespace jet::detail {

/// The store has happened: what cannot be kept must not make it look failed, and steps across a gap
/// would put back pages of different times.
void PageJournal::Stored(EarlierPages&& before) noexcept {
    try {
        if (replaying_) {
            replayed_.emplace(std::move(before));
        } else {
            Keep(std::move(before));
        }
    } catch (const std::bad_alloc&) {
        Forget();
    }
}

void PageJournal::Keep(EarlierPages&& before) {
    forth_.clear();
    if (open_ && open_->hasStep && !back_.empty()) {
        back_.back().pages.Join(std::move(before));
    } else {
        back_.push_back({std::move(before), open_ ? open_->note : JournalNote{}});
        if (open_) open_->hasStep = true;
    }
    KeepWithinLimits();
}

void PageJournal::Begin(JournalNote note) {
    open_ = Open{.note = std::move(note)};
}

/// After something was taken back the last step is not what the file ends with.
void PageJournal::Continue() {
    open_ = back_.empty() || !forth_.empty() ? Open{} : Open{back_.back().note, true};
}

const JournalNote* PageJournal::NextNote(Way way) const {
    const Steps& steps = way == Way::Back ? back_ : forth_;
    return steps.empty() ? nullptr : &steps.back().note;
}

const EarlierPages& PageJournal::Start(Way way) {
    Steps& steps = StepsFor(way);
    if (steps.empty()) throw Error{ErrorNumber::NoCurrentRecord, "no step to put back"};
    open_.reset();
    replayed_.reset();
    replaying_ = true;
    return steps.back().pages;
}

void PageJournal::Finish(Way way) noexcept {
    replaying_ = false;
    Steps& from = StepsFor(way);
    Steps& to = StepsFor(way == Way::Back ? Way::Forth : Way::Back);
    if (from.empty()) return;
    Step step = std::move(from.back());
    from.pop_back();
    // Memory ran out for the way back.
    if (!replayed_) return Forget();
    step.pages = *std::move(replayed_);
    replayed_.reset();
    try {
        to.push_back(std::move(step));
    } catch (const std::bad_alloc&) {
        Forget();
    }
}

void PageJournal::GiveUp() noexcept {
    replaying_ = false;
    replayed_.reset();
}

void PageJournal::Forget() noexcept {
    back_.clear();
    forth_.clear();
    replayed_.reset();
    if (open_) open_->hasStep = false;
}

std::size_t PageJournal::BytesOf(const EarlierPages& pages) const {
    const std::size_t freed = pages.freed ? pages.freed->size() * sizeof(std::uint32_t) : 0;
    return pages.images.size() * pageSize_ + freed;
}

void PageJournal::KeepWithinLimits() noexcept {
    std::size_t bytes = std::accumulate(
        back_.begin(), back_.end(), std::size_t{0},
        [this](std::size_t sum, const Step& step) { return sum + BytesOf(step.pages); });
    while (!back_.empty() && (back_.size() > limits_.steps || bytes > limits_.bytes)) {
        bytes -= BytesOf(back_.front().pages);
        back_.pop_front();
    }
}

}  // namespace jet::detail
