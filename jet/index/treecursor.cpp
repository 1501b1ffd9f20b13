#include "jet/index/treecursor.h"

#include <utility>

namespace jet::detail {

IndexPage ReadIndexPage(const PageFile& file, std::uint32_t table, std::uint32_t page) {
    IndexPage content = IndexPage::Read(file, page);
    if (content.table != table) ThrowDamaged(page, 4, "index page of another table");
    return content;
}

TreeCursor::TreeCursor(const PageFile& file, std::uint32_t leaf, IndexPage content)
    : file_(&file), leaf_(leaf), content_(std::move(content)), leavesLeft_(file.PageCount()) {}

void TreeCursor::GoTo(std::size_t at) {
    at_ = at;
    content_.Entry(at, entry_);
    valid_ = true;
}

void TreeCursor::Load(std::uint32_t leaf) {
    IndexPage content = ReadIndexPage(*file_, content_.table, leaf);
    if (!content.IsLeaf()) ThrowDamaged(leaf, 0, "a node among the leaves of an index");
    if (leavesLeft_-- == 0) ThrowDamaged(leaf, 0, "the leaves of an index form a ring");
    leaf_ = leaf;
    content_ = std::move(content);
}

void TreeCursor::Next() {
    before_.swap(entry_);
    const bool wasValid = std::exchange(valid_, false);
    if (at_ + 1 < content_.Count()) {
        GoTo(at_ + 1);
    } else {
        do {
            if (content_.next == 0) return;
            Load(content_.next);
        } while (content_.Count() == 0);
        GoTo(0);
    }
    if (wasValid && !EntryBelow(before_, entry_)) {
        ThrowDamaged(leaf_, 0, "index entries out of order");
    }
}

void TreeCursor::Previous() {
    before_.swap(entry_);
    const bool wasValid = std::exchange(valid_, false);
    if (at_ > 0) {
        GoTo(at_ - 1);
    } else {
        do {
            if (content_.previous == 0) return;
            Load(content_.previous);
        } while (content_.Count() == 0);
        GoTo(content_.Count() - 1);
    }
    if (wasValid && !EntryBelow(entry_, before_)) {
        ThrowDamaged(leaf_, 0, "index entries out of order");
    }
}

}  // namespace jet::detail
