#include "jet/index/btree.h"

#include "jet/error.h"
#include "jet/index/indexkey.h"
#include "jet/storage/datapage.h"
#include "jet/storage/layout.h"
#include "jet/storage/usagemap.h"
#include "tests/jet/versions.h"

#include <algorithm>
#include <functional>
#include <gmock/gmock.h>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>

namespace jet::detail {
namespace {

constexpr std::uint32_t kTable = 5;  // the page the trees say they belong to

/// A file with nothing in it but the global map and one index tree.
class TreeFile {
  public:
    explicit TreeFile(const Layout& layout) : file(PageFile::New(layout)) {
        for (std::uint32_t page = 0; page <= kTable; ++page) file->AppendPage();
        FormatDataPage(*file, 1, 1);
        Bytes global = EmptyInlineMap(layout);
        std::fill(global.begin() + 5, global.end(), std::uint8_t{0xFF});
        global[5] = 0xC0;
        AddRow(*file, 1, global);
        AddRow(*file, 1, EmptyInlineMap(layout));
        index.map = {AllocateMapPage(*file, 1), 0};
        index.root = AllocatePage(*file);
        IndexPage::EmptyLeaf(kTable).Write(*file, index.root);
        UsageMap(*file, index.map).Add(index.root);
    }
    BTree Tree() { return {*file, kTable, index}; }

    std::unique_ptr<PageFile> file;
    RealIndex index;
};

/// Looks at every page of a tree on its own: shape, links, stated last entries, map.
class ShapeCheck {
  public:
    explicit ShapeCheck(TreeFile& tree) : tree_(tree) {
        Visit(tree.index.root, 1);
        std::uint32_t previous = 0;
        for (std::size_t i = 0; i < leaves_.size(); ++i) {
            const IndexPage leaf = IndexPage::Read(*tree.file, leaves_[i]);
            EXPECT_EQ(leaf.previous, previous);
            EXPECT_EQ(leaf.next, i + 1 < leaves_.size() ? leaves_[i + 1] : 0);
            previous = leaves_[i];
        }
        const auto mapped = UsageMap(*tree.file, tree.index.map).Pages();
        EXPECT_EQ(std::set<std::uint32_t>(mapped.begin(), mapped.end()), pages_);
    }

    std::size_t Levels() const { return levels_; }
    std::size_t PageCount() const { return pages_.size(); }
    const std::vector<Bytes>& Entries() const { return entries_; }

  private:
    Bytes Visit(std::uint32_t number, std::size_t depth) {
        EXPECT_TRUE(pages_.insert(number).second) << "page reached twice";
        levels_ = std::max(levels_, depth);
        const IndexPage page = IndexPage::Read(*tree_.file, number);
        EXPECT_EQ(page.table, kTable);
        EXPECT_EQ(IndexPage::StatedFreeBytes(*tree_.file, number),
                  IndexPage::FreeBytes(*tree_.file, number));
        if (page.IsLeaf()) {
            EXPECT_EQ(page.level, 0);
            EXPECT_TRUE(page.Count() > 0 || depth == 1) << "empty leaf below a node";
            leaves_.push_back(number);
            for (std::size_t i = 0; i < page.Count(); ++i) entries_.push_back(page.Entry(i));
            return page.Count() > 0 ? entries_.back() : Bytes();
        }
        EXPECT_GT(page.ChildCount(), depth == 1 ? 1U : 0U);
        Bytes last;
        std::uint32_t previous = 0;
        for (std::size_t i = 0; i < page.ChildCount(); ++i) {
            const std::uint32_t child = page.Child(i);
            last = Visit(child, depth + 1);
            if (i < page.Count()) {
                EXPECT_EQ(page.Entry(i), last) << "not the child's last entry";
            }
            const IndexPage content = IndexPage::Read(*tree_.file, child);
            EXPECT_EQ(content.level + 1, page.level);
            if (!content.IsLeaf()) {
                EXPECT_EQ(content.previous, previous);
                EXPECT_EQ(content.next, i + 1 < page.ChildCount() ? page.Child(i + 1) : 0);
            }
            previous = child;
        }
        return last;
    }

    TreeFile& tree_;
    std::set<std::uint32_t> pages_;
    std::vector<std::uint32_t> leaves_;
    std::vector<Bytes> entries_;
    std::size_t levels_ = 0;
};

std::vector<Bytes> Forward(const BTree& tree) {
    std::vector<Bytes> entries;
    for (TreeCursor at = tree.First(); at.Valid(); at.Next()) {
        entries.emplace_back(at.Entry().begin(), at.Entry().end());
    }
    return entries;
}

std::vector<Bytes> Backward(const BTree& tree) {
    std::vector<Bytes> entries;
    for (TreeCursor at = tree.Last(); at.Valid(); at.Previous()) {
        entries.emplace_back(at.Entry().begin(), at.Entry().end());
    }
    std::reverse(entries.begin(), entries.end());
    return entries;
}

/// The rows of the entries whose keys begin with `start`.
std::vector<RowPointer> RowsFrom(const BTree& tree, const Bytes& start) {
    std::vector<RowPointer> rows;
    for (TreeCursor at = tree.From(start); at.Valid(); at.Next()) {
        const ByteView key = at.Key();
        if (key.size() < start.size() || !std::equal(start.begin(), start.end(), key.begin()))
            break;
        rows.push_back(at.Row());
    }
    return rows;
}

/// The model: what the tree should hold.
using Model = std::set<Bytes>;

void ExpectEqual(TreeFile& file, const Model& model) {
    const std::vector<Bytes> expected(model.begin(), model.end());
    EXPECT_EQ(ShapeCheck(file).Entries(), expected);
    EXPECT_EQ(Forward(file.Tree()), expected);
    EXPECT_EQ(Backward(file.Tree()), expected);
}

using Random = std::mt19937;
using KeyMaker = std::function<Bytes(Random&)>;

Bytes LongKey(std::int32_t number, bool descending = false) {
    return *EncodeKey(number, {ColumnType::Long, descending, TextOrder::Unknown});
}

Bytes TextKey(const std::string& text, const Layout& layout, bool descending = false) {
    const TextOrder order = layout.textUnit == 1 ? TextOrder::General97 : TextOrder::General;
    return *EncodeKey(text, {ColumnType::Text, descending, order});
}

std::string RandomText(Random& random, std::size_t longest) {
    static const std::vector<std::string> kCharacters = {"a", "b", "C", "d", "é", "å", "ä", "ö",
                                                         "ü", "-", "'", " ", "1", "9", "ß", "."};
    std::string text;
    for (std::size_t i = random() % (longest + 1); i > 0; --i) {
        text += kCharacters[random() % kCharacters.size()];
    }
    return text;
}

struct TreeCase {
    const char* name;
    const Layout* layout;
    std::function<Bytes(Random&, const Layout&)> key;
    std::size_t operations;
    std::size_t levels;  ///< the tree is to reach
};

void PrintTo(const TreeCase& value, std::ostream* out) {
    *out << value.name;
}

class RandomTree : public testing::TestWithParam<TreeCase> {};

TEST_P(RandomTree, HoldsWhatAnOrderedSetHolds) {
    const TreeCase& parameters = GetParam();
    TreeFile file(*parameters.layout);
    BTree tree = file.Tree();
    Random random(4711);
    Model model;
    std::vector<Bytes> entries;
    std::size_t levels = 0;
    // It grows, shrinks to nothing, and grows again.
    for (const unsigned insertPercent : {75U, 25U, 60U, 0U, 80U}) {
        for (std::size_t i = 0; i < parameters.operations / 5; ++i) {
            if (random() % 100 < insertPercent || entries.empty()) {
                if (insertPercent == 0) break;
                const Bytes key = parameters.key(random, *parameters.layout);
                const RowPointer row{static_cast<std::uint32_t>(random() % 5000 + 1),
                                     static_cast<std::uint8_t>(random() % 200)};
                const Bytes entry = MakeEntry(key, row);
                if (!model.insert(entry).second) continue;
                const bool wasNew = !tree.ContainsOther(key, {});
                EXPECT_EQ(tree.Insert(key, row), wasNew);
                entries.push_back(entry);
            } else {
                std::swap(entries[random() % entries.size()], entries.back());
                const Bytes entry = entries.back();
                entries.pop_back();
                model.erase(entry);
                EXPECT_TRUE(tree.Erase(KeyOf(entry), RowOf(entry)));
            }
        }
        while (insertPercent == 0 && !entries.empty()) {
            std::swap(entries[random() % entries.size()], entries.back());
            EXPECT_TRUE(tree.Erase(KeyOf(entries.back()), RowOf(entries.back())));
            model.erase(entries.back());
            entries.pop_back();
            if (entries.size() % 512 == 0) ExpectEqual(file, model);
        }
        ExpectEqual(file, model);
        levels = std::max(levels, ShapeCheck(file).Levels());
        if (HasFailure()) return;
    }
    EXPECT_GE(levels, parameters.levels);
}

/// A stretch of the tree, now and then with gaps, and entries that were never in it.
TEST_P(RandomTree, LosesManyEntriesAtOnce) {
    const TreeCase& parameters = GetParam();
    TreeFile file(*parameters.layout);
    BTree tree = file.Tree();
    Random random(1147);
    Model model;
    const auto entry = [&](std::uint32_t page) {
        return MakeEntry(parameters.key(random, *parameters.layout),
                         {page, static_cast<std::uint8_t>(random() % 200)});
    };
    for (int round = 0; round < 12; ++round) {
        while (model.size() < parameters.operations / 10) {
            const Bytes added = entry(static_cast<std::uint32_t>(random() % 5000 + 1));
            if (model.insert(added).second) tree.Insert(KeyOf(added), RowOf(added));
        }
        const std::vector<Bytes> all(model.begin(), model.end());
        const std::size_t first = random() % all.size(), gap = 1 + random() % 3;
        const std::size_t end = round % 4 == 3 ? all.size() : first + random() % all.size();
        std::vector<Bytes> gone, absent;
        for (std::size_t i = round % 4 == 3 ? 0 : first; i < std::min(end, all.size()); i += gap) {
            gone.push_back(all[i]);
            model.erase(all[i]);
        }
        for (std::uint32_t i = 0; i < 5; ++i) absent.push_back(entry(6000 + i));
        std::sort(absent.begin(), absent.end());
        gone.insert(gone.end(), absent.begin(), absent.end());
        std::shuffle(gone.begin(), gone.end(), random);
        EXPECT_EQ(tree.EraseAll(gone), absent);
        ExpectEqual(file, model);
        if (HasFailure()) return;
    }
    EXPECT_THAT(tree.EraseAll({model.begin(), model.end()}), testing::IsEmpty());
    ExpectEqual(file, {});
    EXPECT_EQ(ShapeCheck(file).PageCount(), 1U);
}

Bytes AnyLong(Random& random, const Layout&) {
    return LongKey(static_cast<std::int32_t>(random()));
}
Bytes FewLongs(Random& random, const Layout&) {
    return LongKey(static_cast<std::int32_t>(random() % 7));
}
Bytes DescendingLong(Random& random, const Layout&) {
    return LongKey(static_cast<std::int32_t>(random() % 100000), true);
}
Bytes AnyText(Random& random, const Layout& layout) {
    return TextKey(RandomText(random, 40), layout);
}
Bytes DescendingText(Random& random, const Layout& layout) {
    return TextKey(RandomText(random, 60), layout, true);
}
Bytes VeryLongText(Random& random, const Layout& layout) {
    return TextKey(RandomText(random, 255), layout);
}
Bytes LongSharedStart(Random& random, const Layout& layout) {
    return TextKey(std::string(200, 'x') + RandomText(random, 8), layout);
}
Bytes SeveralColumns(Random& random, const Layout& layout) {
    Bytes key = TextKey(RandomText(random, 255), layout);
    for (int column = 0; column < 2; ++column) {
        const Bytes next = TextKey(RandomText(random, 255), layout, column == 1);
        key.insert(key.end(), next.begin(), next.end());
    }
    return key;
}

INSTANTIATE_TEST_SUITE_P(
    Trees, RandomTree,
    testing::Values(TreeCase{"Jet3Long", &kJet3, AnyLong, 30000, 2},
                    TreeCase{"Jet4Long", &kJet4, AnyLong, 30000, 2},
                    TreeCase{"Jet3Duplicates", &kJet3, FewLongs, 30000, 2},
                    TreeCase{"Jet4Duplicates", &kJet4, FewLongs, 30000, 2},
                    TreeCase{"Jet3Descending", &kJet3, DescendingLong, 20000, 2},
                    TreeCase{"Jet4Descending", &kJet4, DescendingLong, 20000, 2},
                    TreeCase{"Jet3Text", &kJet3, AnyText, 30000, 3},
                    TreeCase{"Jet4Text", &kJet4, AnyText, 30000, 3},
                    TreeCase{"Jet3DescendingText", &kJet3, DescendingText, 20000, 3},
                    TreeCase{"Jet4DescendingText", &kJet4, DescendingText, 20000, 2},
                    TreeCase{"Jet3VeryLongText", &kJet3, VeryLongText, 6000, 4},
                    TreeCase{"Jet4VeryLongText", &kJet4, VeryLongText, 6000, 3},
                    TreeCase{"Jet3SharedStart", &kJet3, LongSharedStart, 10000, 2},
                    TreeCase{"Jet4SharedStart", &kJet4, LongSharedStart, 10000, 2},
                    TreeCase{"Jet3ThreeTexts", &kJet3, SeveralColumns, 2000, 5},
                    TreeCase{"Jet4ThreeTexts", &kJet4, SeveralColumns, 2000, 4}),
    [](const auto& tested) { return std::string(tested.param.name); });

class Tree : public testing::TestWithParam<const Layout*> {
  protected:
    TreeFile file_{*GetParam()};
    BTree tree_ = file_.Tree();
};

INSTANTIATE_FOR_BOTH_VERSIONS(Tree);

TEST_P(Tree, IsOneEmptyLeafAtFirst) {
    EXPECT_FALSE(tree_.First().Valid());
    EXPECT_FALSE(tree_.Last().Valid());
    EXPECT_FALSE(tree_.From(LongKey(1)).Valid());
    EXPECT_FALSE(tree_.ContainsOther(LongKey(1), {}));
    EXPECT_EQ(IndexPage::FreeBytes(*file_.file, tree_.Root()), GetParam()->IndexRoom());
}

TEST_P(Tree, KeepsItsRootPageWhileItGrows) {
    const std::int32_t count = GetParam() == &kJet3 ? 60000 : 20000;
    for (std::int32_t i = 0; i < count; ++i) {
        tree_.Insert(LongKey(i),
                     {static_cast<std::uint32_t>(i / 100 + 1), static_cast<std::uint8_t>(i % 100)});
    }
    EXPECT_EQ(tree_.Root(), file_.index.root);
    EXPECT_GE(ShapeCheck(file_).Levels(), GetParam() == &kJet3 ? 3U : 2U);
}

TEST_P(Tree, FillsPagesWhenKeysAscend) {
    constexpr std::int32_t kCount = 10000;
    for (std::int32_t i = 0; i < kCount; ++i) tree_.Insert(LongKey(i), {1, 1});
    const std::size_t bytes = 9 * kCount;
    EXPECT_LT(ShapeCheck(file_).PageCount(), bytes / GetParam()->IndexRoom() * 12 / 10 + 3);
}

TEST_P(Tree, TakesDescendingInsertsToo) {
    Model model;
    for (std::int32_t i = 5000; i > 0; --i) {
        tree_.Insert(LongKey(i), {7, 7});
        model.insert(MakeEntry(LongKey(i), {7, 7}));
    }
    ExpectEqual(file_, model);
}

TEST_P(Tree, CollapsesToOneLeafWhenEmptied) {
    for (std::int32_t i = 0; i < 20000; ++i) tree_.Insert(LongKey(i), {1, 1});
    for (std::int32_t i = 0; i < 20000; ++i) ASSERT_TRUE(tree_.Erase(LongKey(i), {1, 1}));
    const ShapeCheck shape(file_);
    EXPECT_EQ(shape.PageCount(), 1U);
    EXPECT_TRUE(IndexPage::Read(*file_.file, tree_.Root()).IsLeaf());
}

TEST_P(Tree, CollapsesWhenEmptiedFromTheEnd) {
    for (std::int32_t i = 0; i < 20000; ++i) tree_.Insert(LongKey(i), {1, 1});
    for (std::int32_t i = 20000; i-- > 0;) {
        ASSERT_TRUE(tree_.Erase(LongKey(i), {1, 1}));
        if (i % 2500 == 0) {
            EXPECT_EQ(ShapeCheck(file_).Entries().size(), static_cast<std::size_t>(i));
        }
    }
    EXPECT_EQ(ShapeCheck(file_).PageCount(), 1U);
}

TEST_P(Tree, UsesFreedPagesAgain) {
    for (std::int32_t i = 0; i < 5000; ++i) tree_.Insert(LongKey(i), {1, 1});
    const std::uint32_t pages = file_.file->PageCount();
    for (std::int32_t i = 0; i < 5000; ++i) tree_.Erase(LongKey(i), {1, 1});
    for (std::int32_t i = 0; i < 5000; ++i) tree_.Insert(LongKey(i), {1, 1});
    EXPECT_EQ(file_.file->PageCount(), pages);
}

TEST_P(Tree, FindsAllRowsOfAKeyInRowOrder) {
    for (std::int32_t key = 0; key < 50; ++key) {
        for (std::uint8_t row = 0; row < 100; ++row) {
            tree_.Insert(LongKey(key), {static_cast<std::uint32_t>(200 - row), row});
        }
    }
    const std::vector<RowPointer> rows = RowsFrom(tree_, LongKey(17));
    ASSERT_EQ(rows.size(), 100U);
    EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end()));
    EXPECT_TRUE(RowsFrom(tree_, LongKey(50)).empty());
    EXPECT_TRUE(RowsFrom(tree_, LongKey(-1)).empty());
}

TEST_P(Tree, FindsByTheFirstColumnsOfAKey) {
    for (std::int32_t first = 0; first < 30; ++first) {
        for (std::int32_t second = 0; second < 60; ++second) {
            Bytes key = LongKey(first);
            const Bytes more = LongKey(second, true);
            key.insert(key.end(), more.begin(), more.end());
            tree_.Insert(key, {static_cast<std::uint32_t>(second + 1), 0});
        }
    }
    const std::vector<RowPointer> rows = RowsFrom(tree_, LongKey(12));
    ASSERT_EQ(rows.size(), 60U);
    EXPECT_EQ(rows.front().page, 60U) << "the second column descends";
}

TEST_P(Tree, SaysWhetherAnInsertedKeyIsNew) {
    EXPECT_TRUE(tree_.Insert(LongKey(1), {5, 5}));
    EXPECT_FALSE(tree_.Insert(LongKey(1), {5, 6}));
    EXPECT_FALSE(tree_.Insert(LongKey(1), {4, 0}));
    EXPECT_TRUE(tree_.Insert(LongKey(2), {5, 7}));
}

TEST_P(Tree, SaysSoAlsoAcrossLeaves) {
    // Every key four times: runs of a key cross the borders of the leaves.
    std::map<std::int32_t, int> times;
    Random random(1);
    for (std::uint32_t i = 0; i < 8000; ++i) {
        const auto key = static_cast<std::int32_t>(random() % 2000);
        EXPECT_EQ(tree_.Insert(LongKey(key), {i + 1, 0}), times[key]++ == 0);
    }
}

TEST_P(Tree, TellsOtherRowsWithAKeyFromTheRowItself) {
    tree_.Insert(LongKey(1), {5, 5});
    EXPECT_FALSE(tree_.ContainsOther(LongKey(1), {5, 5}));
    EXPECT_TRUE(tree_.ContainsOther(LongKey(1), {5, 6}));
    tree_.Insert(LongKey(1), {5, 6});
    EXPECT_TRUE(tree_.ContainsOther(LongKey(1), {5, 5}));
}

TEST_P(Tree, ErasesNothingThatIsNotThere) {
    tree_.Insert(LongKey(1), {5, 5});
    EXPECT_FALSE(tree_.Erase(LongKey(1), {5, 6}));
    EXPECT_FALSE(tree_.Erase(LongKey(2), {5, 5}));
    EXPECT_EQ(Forward(tree_).size(), 1U);
}

TEST_P(Tree, ErasesByRowPointerAlone) {
    for (std::int32_t i = 0; i < 3000; ++i) {
        tree_.Insert(LongKey(i), {static_cast<std::uint32_t>(i + 1), 3});
    }
    EXPECT_EQ(tree_.EraseByRowPointer({1234, 3}), LongKey(1233));
    EXPECT_FALSE(tree_.ContainsOther(LongKey(1233), {}));
    EXPECT_EQ(ShapeCheck(file_).Entries().size(), 2999U);
    EXPECT_THROW(tree_.EraseByRowPointer({1234, 3}), Error);
}

TEST_P(Tree, RefusesTheSameEntryTwice) {
    tree_.Insert(LongKey(1), {5, 5});
    EXPECT_THROW(tree_.Insert(LongKey(1), {5, 5}), Error);
}

TEST_P(Tree, RefusesAKeyThatNoPageCanHold) {
    const Bytes key(GetParam()->IndexRoom(), 0x7F);
    EXPECT_THROW(tree_.Insert(key, {5, 5}), Error);
    EXPECT_FALSE(tree_.First().Valid());
}

TEST_P(Tree, ComesBackAfterARollback) {
    Model model;
    for (std::int32_t i = 0; i < 3000; ++i) {
        tree_.Insert(LongKey(2 * i), {9, 9});
        model.insert(MakeEntry(LongKey(2 * i), {9, 9}));
    }
    file_.file->Begin();
    for (std::int32_t i = 0; i < 3000; ++i) tree_.Insert(LongKey(2 * i + 1), {9, 9});
    for (std::int32_t i = 0; i < 2000; ++i) tree_.Erase(LongKey(2 * i), {9, 9});
    file_.file->Rollback();
    ExpectEqual(file_, model);
}

TEST_P(Tree, WithARingOfLeavesIsRefused) {
    for (std::int32_t i = 0; i < 3000; ++i) tree_.Insert(LongKey(i), {1, 1});
    const IndexPage root = IndexPage::Read(*file_.file, tree_.Root());
    IndexPage second = IndexPage::Read(*file_.file, root.Child(1));
    second.next = root.Child(0);
    second.Write(*file_.file, root.Child(1));
    EXPECT_THROW(Forward(tree_), Error);
}

TEST_P(Tree, WithANodeAsItsOwnChildIsRefused) {
    for (std::int32_t i = 0; i < 3000; ++i) tree_.Insert(LongKey(i), {1, 1});
    IndexPage root = IndexPage::Read(*file_.file, tree_.Root());
    root.tail = tree_.Root();
    root.Write(*file_.file, tree_.Root());
    EXPECT_THROW(tree_.Last(), Error);
    EXPECT_THROW(tree_.Insert(LongKey(999999), {1, 1}), Error);
}

TEST_P(Tree, WithAPageOfAnotherTableIsRefused) {
    IndexPage root = IndexPage::Read(*file_.file, tree_.Root());
    root.table = kTable + 1;
    root.Write(*file_.file, tree_.Root());
    EXPECT_THROW(tree_.First(), Error);
}

/// Whatever a page holds: an entry is added, or refused; the sanitizers see what else there is.
TEST_P(Tree, WithDamagedPagesTakesOrRefusesEntries) {
    Random random(99);
    const Layout& layout = *GetParam();
    for (int round = 0; round < 400; ++round) {
        TreeFile file(layout);
        BTree tree = file.Tree();
        for (std::uint8_t row = 0; row < 150; ++row) {
            tree.Insert(TextKey(RandomText(random, 20), layout), {7, row});
        }
        const std::uint32_t pages = file.file->PageCount();
        for (int flip = 0; flip < 3; ++flip) {
            const std::uint32_t page = kTable + 1 + random() % (pages - kTable - 1);
            const std::size_t spans[] = {layout.indexMask, layout.indexEntries, layout.pageSize};
            file.file->EditPage(page)[random() % spans[random() % 3]] =
                static_cast<std::uint8_t>(random());
        }
        for (std::uint8_t row = 0; row < 30; ++row) {
            try {
                UndoScope scope(*file.file);
                tree.Insert(TextKey(RandomText(random, 20), layout), {8, row});
                scope.Commit();
            } catch (const Error&) {
                continue;
            }
        }
    }
}

/// Entries that share much are stored with a prefix, which may reach into the row pointer.
TEST_P(Tree, KnowsAKeyThatIsThereBelowALongPrefix) {
    const Bytes key = TextKey(std::string(120, 'x'), *GetParam());
    for (std::uint8_t row = 0; row < 60; row = static_cast<std::uint8_t>(row + 2)) {
        EXPECT_EQ(tree_.Insert(key, {9, row}), row == 0);
    }
    for (std::uint8_t row = 1; row < 60; row = static_cast<std::uint8_t>(row + 2)) {
        EXPECT_FALSE(tree_.Insert(key, {9, row}));
    }
    EXPECT_EQ(RowsFrom(tree_, key).size(), 60U);
    ShapeCheck check(file_);
    EXPECT_EQ(check.Entries().size(), 60U);
}

TEST_P(Tree, TakesAnEntryIntoAnEmptyPageThatKeptItsPrefix) {
    const Layout& layout = *GetParam();
    const ByteSpan page = file_.file->EditPage(tree_.Root());
    PutLittleEndian(page, layout.indexPrefix, 40, layout.indexPrefixSize);
    EXPECT_TRUE(tree_.Insert(LongKey(1), {9, 1}));
    EXPECT_TRUE(tree_.Insert(LongKey(2), {9, 1}));
    ExpectEqual(file_, {MakeEntry(LongKey(1), {9, 1}), MakeEntry(LongKey(2), {9, 1})});
}

/// Only the first entry of a page is stored whole: a new first one changes the page from its start.
TEST_P(Tree, TakesANewFirstEntryOfAPackedPage) {
    const Layout& layout = *GetParam();
    const auto key = [&](char last) { return TextKey(std::string(150, 'x') + last, layout); };
    Model model;
    for (const char last : std::string("mnopqrstuvwxyzlkjihgfedcba")) {
        EXPECT_TRUE(tree_.Insert(key(last), {9, static_cast<std::uint8_t>(last)}));
        model.insert(MakeEntry(key(last), {9, static_cast<std::uint8_t>(last)}));
        ExpectEqual(file_, model);
    }
}

TEST(IndexPage, PacksEntriesOnlyWhenTheyDoNotFitOtherwise) {
    TreeFile file(kJet4);
    BTree tree = file.Tree();
    const auto prefix = [&] { return U16(file.file->Page(tree.Root()), kJet4.indexPrefix); };
    const std::string start(100, 'x');
    const auto key = [&](int i) {
        return TextKey(start + static_cast<char>('a' + i / 26) + static_cast<char>('a' + i % 26),
                       kJet4);
    };
    int count = 0;
    for (; count < 30; ++count) tree.Insert(key(count), {1, 1});
    EXPECT_EQ(prefix(), 0);
    for (; count < 200; ++count) tree.Insert(key(count), {1, 1});
    EXPECT_EQ(prefix(), 101) << "the start byte and a hundred letters";
    for (; count > 20; --count) tree.Erase(key(count - 1), {1, 1});
    EXPECT_EQ(prefix(), 0);
}

TEST(IndexPage, KnowsWhetherItsPartsFitBeforeItIsSplit) {
    Random random(8);
    for (const Layout* layout : {&kJet3, &kJet4}) {
        for (int round = 0; round < 20; ++round) {
            const std::string start(random() % 120, 'x');
            Model entries;
            while (entries.size() < 60 + random() % 200) {
                const Bytes key = TextKey(start + RandomText(random, 30), *layout);
                entries.insert(MakeEntry(key, {9, static_cast<std::uint8_t>(random())}));
            }
            IndexPage page = IndexPage::EmptyLeaf(kTable);
            for (const Bytes& entry : entries) page.Insert(page.Count(), entry);
            for (std::size_t count = 1; count < page.Count(); ++count) {
                IndexPage right = page;
                const IndexPage left = right.SplitOff(count);
                EXPECT_EQ(page.FitsInTwo(*layout, count),
                          left.Fits(*layout) && right.Fits(*layout));
            }
        }
    }
}

TEST(IndexPage, LooksAsARealEngineWritesIt) {
    TreeFile file(kJet4);
    BTree tree = file.Tree();
    tree.Insert(LongKey(2), {14, 4});
    tree.Insert(LongKey(3), {14, 5});
    const ByteView page = file.file->Page(tree.Root());
    const Bytes start(page.begin(), page.begin() + 4);
    EXPECT_EQ(start, (Bytes{0x04, 0x01, 0x0E, 0x0E}));
    const Bytes mask(page.begin() + 0x1B, page.begin() + 0x1B + 4);
    EXPECT_EQ(mask, (Bytes{0x00, 0x02, 0x04, 0x00}));
    const Bytes entries(page.begin() + 0x1E0, page.begin() + 0x1E0 + 18);
    EXPECT_EQ(entries, (Bytes{0x7F, 0x80, 0, 0, 2, 0, 0, 0x0E, 4,  //
                              0x7F, 0x80, 0, 0, 3, 0, 0, 0x0E, 5}));
}

struct DamageCase {
    const char* name;
    std::size_t offset;
    std::uint8_t value;
};

void PrintTo(const DamageCase& tested, std::ostream* out) {
    *out << tested.name;
}

class DamagedIndexPage : public testing::TestWithParam<DamageCase> {};

TEST_P(DamagedIndexPage, IsRefused) {
    TreeFile file(kJet4);
    BTree tree = file.Tree();
    for (std::int32_t i = 0; i < 20; ++i) tree.Insert(LongKey(i), {1, 1});
    PutU8(file.file->EditPage(tree.Root()), GetParam().offset, GetParam().value);
    EXPECT_THROW(Forward(tree), Error) << GetParam().name;
}

INSTANTIATE_TEST_SUITE_P(Bytes, DamagedIndexPage,
                         testing::Values(DamageCase{"type", 0, 1}, DamageCase{"owner", 4, 9},
                                         DamageCase{"prefix longer than the first entry", 0x18, 9},
                                         DamageCase{"an entry that ends past the page", 0x1DF,
                                                    0x80},
                                         DamageCase{"an entry of one byte", 0x1B, 0x02},
                                         DamageCase{"order", 0x1E3, 0x7F}));

}  // namespace
}  // namespace jet::detail
