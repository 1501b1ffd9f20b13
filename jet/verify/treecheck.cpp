#include "jet/verify/treecheck.h"

#include "jet/index/indexpage.h"
#include "jet/storage/usagemap.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <set>
#include <utility>
#include <vector>

namespace jet::detail {
namespace {

constexpr std::size_t kMaxDepth = 20;

/// Walks the nodes of one tree and checks its shape;
/// the order of all entries is checked by the cursors.
class TreeCheck {
  public:
    TreeCheck(PageFile& file, Report& report, const TableDef& def, std::size_t realIndex,
              std::string name)
        : file_(file),
          report_(report),
          def_(def),
          index_(def.realIndexes[realIndex]),
          name_(std::move(name)) {}

    /// False when the tree is not fit to be walked.
    bool Run() {
        const std::size_t before = report_.findings.faults.size();
        Check(index_.root, 0, std::nullopt);
        CheckLeafChain();
        CheckMap();
        return report_.findings.faults.size() == before;
    }

  private:
    void Fault(std::uint32_t page, const std::string& what) {
        report_.Fault(name_ + ", " + PageText(page) + ": " + what);
    }

    /// The last entry below a page; none when nothing is known of it.
    std::optional<Bytes> Check(std::uint32_t number, std::size_t depth,
                               const std::optional<Bytes>& stated) {
        if (depth == kMaxDepth) {
            Fault(number, "too deep");
            return std::nullopt;
        }
        if (!report_.Claim(number, name_)) return std::nullopt;
        pages_.insert(number);
        const IndexPage page = IndexPage::Read(file_, number);
        if (page.table != def_.page) Fault(number, "names another table");
        if (IndexPage::StatedFreeBytes(file_, number) != IndexPage::FreeBytes(file_, number)) {
            Fault(number, "states a wrong number of free bytes");
        }
        std::optional<Bytes> last;
        if (page.IsLeaf()) {
            leaves_.push_back(number);
            if (page.Count() > 0) last = page.Entry(page.Count() - 1);
            if (page.Count() == 0 && depth > 0) Fault(number, "an empty leaf below a node");
        } else {
            last = CheckChildren(page, number, depth);
        }
        if (stated && last && *stated != *last) {
            Fault(number, "the node above states another last entry");
        }
        return last;
    }

    std::optional<Bytes> CheckChildren(const IndexPage& page, std::uint32_t number,
                                       std::size_t depth) {
        if (page.ChildCount() == 0) Fault(number, "a node without children");
        std::optional<Bytes> last;
        for (std::size_t i = 0; i < page.ChildCount(); ++i) {
            std::optional<Bytes> stated;
            if (i < page.Count()) stated = page.Entry(i);
            last = Check(page.Child(i), depth + 1, stated);
        }
        return last;
    }

    void CheckLeafChain() {
        for (std::size_t i = 0; i < leaves_.size(); ++i) {
            const IndexPage leaf = IndexPage::Read(file_, leaves_[i]);
            const std::uint32_t previous = i > 0 ? leaves_[i - 1] : 0;
            const std::uint32_t next = i + 1 < leaves_.size() ? leaves_[i + 1] : 0;
            if (leaf.previous != previous || leaf.next != next) {
                Fault(leaves_[i], "the links between the leaves are wrong");
            }
        }
    }

    void CheckMap() {
        if (index_.map.IsNull()) return;
        const std::vector<std::uint32_t> mapped = UsageMap(file_, index_.map).Pages();
        for (std::uint32_t page : pages_) {
            if (!std::binary_search(mapped.begin(), mapped.end(), page)) {
                Fault(page, "is not in the index's map");
            }
        }
        // Some writers free an emptied page and leave it in the map.
        for (std::uint32_t page : mapped) {
            if (pages_.contains(page)) continue;
            const std::string line =
                name_ + ": its map has " + PageText(page) + ", the tree has not";
            IsFree(file_, page) ? report_.Note(line) : report_.Fault(line);
        }
    }

    PageFile& file_;
    Report& report_;
    const TableDef& def_;
    const RealIndex& index_;
    std::string name_;
    std::set<std::uint32_t> pages_;
    std::vector<std::uint32_t> leaves_;
};

}  // namespace

bool CheckTree(PageFile& file, Report& report, const TableDef& def, std::size_t realIndex,
               const std::string& name) {
    return TreeCheck(file, report, def, realIndex, name).Run();
}

}  // namespace jet::detail
