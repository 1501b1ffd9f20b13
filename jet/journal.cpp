#include "jet/journal.h"

#include "jet/query/openfile.h"

#include <utility>

namespace jet {

using detail::PageJournal;

namespace {

std::optional<JournalNote> Next(const detail::OpenFile& file, PageJournal::Way way) {
    if (!file.IsOpen()) return std::nullopt;
    const JournalNote* note = file.Get().Journal()->NextNote(way);
    return note != nullptr ? std::optional(*note) : std::nullopt;
}

}  // namespace

Journal::Journal(const std::shared_ptr<Database>& database, JournalLimits limits)
    : file_(database->Shared()) {
    file_->Get().KeepJournal(limits);
}

std::optional<JournalNote> Journal::NextUndo() const {
    return Next(*file_, PageJournal::Way::Back);
}

std::optional<JournalNote> Journal::NextRedo() const {
    return Next(*file_, PageJournal::Way::Forth);
}

void Journal::Undo() {
    file_->Get().Replay(PageJournal::Way::Back);
}

void Journal::Redo() {
    file_->Get().Replay(PageJournal::Way::Forth);
}

void Journal::Begin(JournalNote note) {
    file_->Get().Journal()->Begin(std::move(note));
}

void Journal::Continue() {
    file_->Get().Journal()->Continue();
}

void Journal::End() noexcept {
    if (file_->IsOpen()) file_->Get().Journal()->End();
}

}  // namespace jet
