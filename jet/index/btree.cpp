#include "jet/index/btree.h"

#include "jet/error.h"
#include "jet/index/indexview.h"
#include "jet/storage/layout.h"
#include "jet/storage/usagemap.h"

#include <algorithm>
#include <utility>

namespace jet::detail {
namespace {

constexpr std::size_t kMaxDepth = 20;

bool BeginsWith(ByteView bytes, ByteView prefix) {
    return bytes.size() >= prefix.size() && std::equal(prefix.begin(), prefix.end(), bytes.begin());
}

bool Same(ByteView a, ByteView b) {
    return a.size() == b.size() && BeginsWith(a, b);
}

}  // namespace

BTree::BTree(PageFile& file, std::uint32_t table, const RealIndex& index)
    : file_(&file), table_(table), root_(index.root), map_(index.map) {}

IndexPage BTree::ReadPage(std::uint32_t page) const {
    return ReadIndexPage(*file_, table_, page);
}

BTree::Path BTree::Descend(ByteView wanted) const {
    Path path;
    std::uint32_t page = root_;
    while (true) {
        if (path.size() == kMaxDepth) ThrowDamaged(page, 0, "index tree too deep");
        path.push_back({page, ReadPage(page)});
        Step& step = path.back();
        if (step.content.IsLeaf()) {
            step.position = step.content.LowerBound(wanted);
            return path;
        }
        if (step.content.ChildCount() == 0) ThrowDamaged(page, 0, "index node without children");
        step.position = step.content.ChildFor(wanted);
        page = step.content.Child(step.position);
    }
}

BTree::Step BTree::LastLeafBelow(std::uint32_t page) const {
    for (std::size_t depth = 0; depth < kMaxDepth; ++depth) {
        IndexPage content = ReadPage(page);
        if (content.IsLeaf()) return {page, std::move(content)};
        if (content.ChildCount() == 0) ThrowDamaged(page, 0, "index node without children");
        page = content.Child(content.ChildCount() - 1);
    }
    ThrowDamaged(page, 0, "index tree too deep");
}

TreeCursor BTree::From(ByteView wanted) const {
    Step leaf = std::move(Descend(wanted).back());
    const std::size_t at = leaf.position;
    TreeCursor cursor(*file_, leaf.page, std::move(leaf.content));
    if (at < cursor.content_.Count()) {
        cursor.GoTo(at);
    } else {
        cursor.at_ = at;
        cursor.Next();
    }
    return cursor;
}

TreeCursor BTree::First() const {
    return From({});
}

TreeCursor BTree::Last() const {
    Step leaf = LastLeafBelow(root_);
    TreeCursor cursor(*file_, leaf.page, std::move(leaf.content));
    cursor.at_ = cursor.content_.Count();
    cursor.Previous();
    return cursor;
}

bool BTree::ContainsOther(ByteView key, RowPointer self) const {
    for (TreeCursor at = From(key); at.Valid() && BeginsWith(at.Entry(), key); at.Next()) {
        if (at.Key().size() == key.size() && at.Row() != self) return true;
    }
    return false;
}

/// Entries with the same key are neighbours, so the key is new unless a neighbour has it.
bool BTree::KeyIsBeside(const Step& leaf, ByteView key) const {
    const auto hasKey = [&](const IndexPage& page, std::size_t i) {
        return i < page.Count() && Same(KeyOf(page.Entry(i)), key);
    };
    if (leaf.position > 0) {
        if (hasKey(leaf.content, leaf.position - 1)) return true;
    } else if (leaf.content.previous != 0) {
        const IndexPage before = ReadPage(leaf.content.previous);
        if (before.Count() > 0 && hasKey(before, before.Count() - 1)) return true;
    }
    if (leaf.position < leaf.content.Count()) return hasKey(leaf.content, leaf.position);
    return leaf.content.next != 0 && hasKey(ReadPage(leaf.content.next), 0);
}

bool BTree::Insert(ByteView key, RowPointer row) {
    const Bytes entry = MakeEntry(key, row);
    if (entry.size() + kChildSize > file_->Format().IndexRoom()) {
        throw Error{ErrorNumber::FieldTooLong, "index key of " + Decimal(key.size()) + " bytes"};
    }
    if (const std::optional<bool> isNew = InsertInPlace(entry)) return *isNew;
    Path path = Descend(entry);
    Step& leaf = path.back();
    const std::size_t at = leaf.position;
    if (at < leaf.content.Count() && Same(leaf.content.Entry(at), entry)) {
        ThrowDamaged(leaf.page, 0, "the row is in the index already");
    }
    const bool isNew = !KeyIsBeside(leaf, key);
    leaf.content.Insert(at, entry);
    leaf.changed = true;
    if (at + 1 == leaf.content.Count()) LastEntryChanged(path, path.size() - 1, entry);
    Settle(path);
    return isNew;
}

/// Adds an entry where one leaf alone changes, and says whether its key is new;
/// else nothing happens.
std::optional<bool> BTree::InsertInPlace(ByteView entry) {
    std::uint32_t page = root_;
    bool rightmost = true;
    for (std::size_t depth = 0; depth < kMaxDepth; ++depth) {
        const auto view = IndexPageView::Of(*file_, table_, page);
        if (!view) return std::nullopt;
        if (view->IsLeaf()) {
            const auto place = view->LowerBound(entry);
            // A new last entry of a leaf is repeated in the nodes above, but for their tails.
            if (view->IsPastTheLast(place) && !rightmost) return std::nullopt;
            const auto beside = view->KeyIsBeside(place, entry);
            if (!beside || !view->HasRoomAt(place, entry)) return std::nullopt;
            view->Insert(*file_, place, entry);
            return !*beside;
        }
        const auto way = view->ChildFor(entry);
        if (!way) return std::nullopt;
        rightmost = rightmost && way->isTail;
        page = way->page;
    }
    return std::nullopt;
}

bool BTree::Erase(ByteView key, RowPointer row) {
    const Bytes entry = MakeEntry(key, row);
    return EraseInLeaf({&entry, 1}) == 1;
}

std::vector<Bytes> BTree::EraseAll(std::vector<Bytes> entries) {
    if (!std::is_sorted(entries.begin(), entries.end(), EntryBelow)) {
        std::sort(entries.begin(), entries.end(), EntryBelow);
    }
    std::vector<Bytes> missing;
    for (std::size_t i = 0; i < entries.size();) {
        const std::size_t erased = EraseInLeaf(std::span(entries).subspan(i));
        i += erased;
        if (erased > 0) continue;
        missing.push_back(entries[i]);
        ++i;
    }
    return missing;
}

/// Takes out as many of the first entries as are in one leaf; returns how many.
std::size_t BTree::EraseInLeaf(std::span<const Bytes> sorted) {
    Path path = Descend(sorted.front());
    Step& leaf = path.back();
    IndexPage& content = leaf.content;
    std::vector<std::size_t> places;
    std::size_t at = leaf.position;
    while (places.size() < sorted.size() && at < content.Count()) {
        const Bytes& wanted = sorted[places.size()];
        if (!content.IsEntry(at, wanted)) at = content.LowerBound(wanted);
        const bool afterTheLast = places.empty() || at > places.back();
        if (at >= content.Count() || !afterTheLast || !content.IsEntry(at, wanted)) break;
        places.push_back(at++);
    }
    if (places.empty()) return 0;
    content.Erase(places);
    leaf.changed = true;
    if (content.Count() == 0 && path.size() > 1) {
        RemovePage(path);
        return places.size();
    }
    if (content.Count() > 0 && places.back() >= content.Count()) {
        LastEntryChanged(path, path.size() - 1, content.Entry(content.Count() - 1));
    }
    Settle(path);
    return places.size();
}

Bytes BTree::EraseByRowPointer(RowPointer row) {
    for (TreeCursor at = First(); at.Valid(); at.Next()) {
        if (at.Row() != row) continue;
        Bytes key(at.Key().begin(), at.Key().end());
        Erase(key, row);
        return key;
    }
    ThrowDamaged(root_, 0, "the index lacks the row " + Decimal(row.page) + "/" + Decimal(row.row));
}

/// The node above repeats a page's last entry; where the page is a tail, the repeated one is
/// further up.
void BTree::LastEntryChanged(Path& path, std::size_t level, ByteView entry) {
    for (; level > 0; --level) {
        Step& parent = path[level - 1];
        if (parent.position == parent.content.Count()) continue;
        parent.content.ReplaceKey(parent.position, entry);
        parent.changed = true;
        const bool isLast = parent.position + 1 == parent.content.Count();
        if (!isLast || parent.content.tail != 0) return;
    }
}

/// The path's last page has become empty: it goes,
/// and with it every node that loses its only child.
void BTree::RemovePage(Path& path) {
    while (path.size() > 1 && path.back().content.ChildCount() == 0) {
        const Step gone = std::move(path.back());
        path.pop_back();
        const Layout& layout = file_->Format();
        if (gone.content.previous != 0) {
            Relink(gone.content.previous, layout.indexNext, gone.content.next);
        }
        if (gone.content.next != 0) {
            Relink(gone.content.next, layout.indexPrevious, gone.content.previous);
        }
        DropPage(gone.page);
        TakeFromParent(path);
    }
    IndexPage& node = path.back().content;
    if (path.size() == 1 && node.ChildCount() == 0) {
        node = IndexPage::EmptyLeaf(table_);
    } else if (path.size() > 1 && node.Count() == 0) {
        // An only child gets an entry instead of being the tail.
        const Step leaf = LastLeafBelow(node.tail);
        if (leaf.content.Count() == 0) ThrowDamaged(leaf.page, 0, "empty index leaf");
        node.Insert(0, leaf.content.Entry(leaf.content.Count() - 1), node.tail);
        node.tail = 0;
    }
    Settle(path);
    CollapseRoot();
}

/// The child at the last step's position is gone.
void BTree::TakeFromParent(Path& path) {
    Step& parent = path.back();
    IndexPage& node = parent.content;
    parent.changed = true;
    if (parent.position < node.Count()) {
        node.Erase(parent.position);
        const bool wasLast = parent.position == node.Count() && node.tail == 0;
        if (wasLast && node.Count() > 0) {
            LastEntryChanged(path, path.size() - 1, node.Entry(node.Count() - 1));
        }
        return;
    }
    if (node.Count() == 0) {
        node.tail = 0;
        return;
    }
    const Bytes last = node.Entry(node.Count() - 1);
    node.MakeLastTail();
    LastEntryChanged(path, path.size() - 1, last);
}

/// Writes the changed pages of a path, from the leaf upward, splitting what has become too full.
void BTree::Settle(Path& path) {
    for (std::size_t level = path.size(); level-- > 0;) {
        if (!path[level].changed) continue;
        if (!path[level].content.Fits(file_->Format())) {
            if (level == 0) {
                GrowRoot(path);
                level = 1;
            }
            Split(path, level);
        }
        path[level].content.Write(*file_, path[level].page);
    }
}

/// The root's content moves to a new page, whose only parent the root becomes.
void BTree::GrowRoot(Path& path) {
    Step& child = path.front();
    child.page = NewPage();
    child.content.previous = child.content.next = 0;
    const auto level = static_cast<std::uint8_t>(child.content.level + 1);
    Step root{root_, IndexPage::EmptyNode(table_, level), 0, true};
    root.content.tail = child.page;
    path.insert(path.begin(), std::move(root));
}

/// Moves first parts of the page to new pages on its left until it fits; it keeps its number and
/// its tail, so nothing above or to the right changes.
void BTree::Split(Path& path, std::size_t level) {
    Step& step = path[level];
    Step& parent = path[level - 1];
    while (!step.content.Fits(file_->Format())) {
        const std::size_t count = SplitPoint(step);
        IndexPage left = step.content.SplitOff(count);
        step.position -= std::min(step.position, count);
        const std::uint32_t page = NewPage();
        left.previous = step.content.previous;
        left.next = step.page;
        step.content.previous = page;
        if (left.previous != 0) Relink(left.previous, file_->Format().indexNext, page);
        const Bytes last = left.Entry(count - 1);
        if (!left.IsLeaf()) {
            if (count > 1) left.MakeLastTail();
            CutChildLink(left, step.content);
        }
        left.Write(*file_, page);
        parent.content.Insert(parent.position, last, page);
        ++parent.position;
        parent.changed = true;
    }
}

/// How many entries go into the new left page: nearly all where keys come in ascending
/// order, else half.
std::size_t BTree::SplitPoint(const Step& step) const {
    const Layout& layout = file_->Format();
    const std::size_t count = step.content.Count();
    const auto bothFit = [&](std::size_t n) { return step.content.FitsInTwo(layout, n); };
    const bool ascending = step.content.next == 0 && step.position + 1 >= count;
    if (ascending && bothFit(count - 1)) return count - 1;
    for (std::size_t away = 0; away < count; ++away) {
        const std::size_t half = count / 2;
        if (half + away < count && half + away > 0 && bothFit(half + away)) return half + away;
        if (half > away && bothFit(half - away)) return half - away;
    }
    return 1;  // very long keys: what remains is split again
}

/// Nodes are linked only among the children of one parent.
void BTree::CutChildLink(const IndexPage& left, const IndexPage& right) {
    const std::uint32_t last = left.Child(left.ChildCount() - 1), first = right.Child(0);
    if (ReadPage(last).IsLeaf()) return;
    Relink(last, file_->Format().indexNext, 0);
    Relink(first, file_->Format().indexPrevious, 0);
}

/// While the root has one child only, it becomes that child.
void BTree::CollapseRoot() {
    for (std::size_t depth = 0; depth < kMaxDepth; ++depth) {
        const IndexPage root = ReadPage(root_);
        if (root.IsLeaf() || root.ChildCount() != 1) return;
        const std::uint32_t child = root.Child(0);
        if (child == root_) ThrowDamaged(root_, 0, "index page that is its own child");
        IndexPage content = ReadPage(child);
        content.previous = content.next = 0;
        content.Write(*file_, root_);
        DropPage(child);
    }
}

std::uint32_t BTree::NewPage() {
    const std::uint32_t page = AllocatePage(*file_);
    if (!map_.IsNull()) UsageMap(*file_, map_).Add(page);
    return page;
}

void BTree::DropPage(std::uint32_t page) {
    if (!map_.IsNull()) UsageMap(*file_, map_).Remove(page);
    FreePage(*file_, page);
}

void BTree::Relink(std::uint32_t page, std::size_t linkOffset, std::uint32_t to) {
    ReadPage(page);  // it must be a page of this index's table before a byte of it is changed
    PutU32(file_->EditPage(page), linkOffset, to);
}

}  // namespace jet::detail
