#include "jet/storage/usagemap.h"

#include "tests/jet/memoryfile.h"
#include "tests/jet/versions.h"

#include <random>
#include <set>

namespace {

using namespace jet::detail;

class UsageMaps : public testing::TestWithParam<const Layout*> {
  protected:
    void SetUp() override {
        file_ = jettest::EmptyFile(*GetParam());
        maps_ = AllocateMapPage(*file_, 2);
    }
    void GrowTo(std::uint32_t pages) {
        while (file_->PageCount() < pages) AllocatePage(*file_);
    }
    /// Whether the global map calls exactly the pages of the file used.
    void ExpectAllUsed() {
        for (std::uint32_t page = 0; page < file_->PageCount(); ++page) {
            ASSERT_FALSE(IsFree(*file_, page)) << page;
        }
        EXPECT_TRUE(IsFree(*file_, file_->PageCount()));
        EXPECT_TRUE(IsFree(*file_, file_->PageCount() + 1000));
    }
    std::uint32_t Inline() const {
        return static_cast<std::uint32_t>(8 * (GetParam()->inlineMapRow - 5));
    }
    std::uint8_t FormOf(RowPointer where) const { return RowAt(*file_, where)[0]; }

    std::unique_ptr<PageFile> file_;
    std::uint32_t maps_ = 0;
};

TEST_P(UsageMaps, HoldWhatWasAddedAndNotWhatWasRemoved) {
    GrowTo(100);
    UsageMap map(*file_, {maps_, 0});
    for (const std::uint32_t page : {40u, 17u, 90u}) map.Add(page);
    EXPECT_EQ(map.Pages(), (std::vector<std::uint32_t>{17, 40, 90}));
    map.Remove(40);
    map.Remove(41);
    EXPECT_EQ(map.Pages(), (std::vector<std::uint32_t>{17, 90}));
    EXPECT_FALSE(map.Contains(40));
    for (const std::uint32_t page : {17u, 90u}) map.Remove(page);
    EXPECT_TRUE(map.Pages().empty());
}

TEST_P(UsageMaps, MoveTheirRangeWhileItIsWideEnough) {
    GrowTo(3 * Inline());
    UsageMap map(*file_, {maps_, 0});
    map.Add(2 * Inline() + 5);
    map.Add(2 * Inline() - 3);
    EXPECT_EQ(FormOf({maps_, 0}), 0);
    EXPECT_EQ(map.Pages(), (std::vector<std::uint32_t>{2 * Inline() - 3, 2 * Inline() + 5}));
}

TEST_P(UsageMaps, BecomeReferencesWhenTheRangeIsTooNarrow) {
    GrowTo(3 * Inline());
    UsageMap map(*file_, {maps_, 0});
    map.Add(20);
    map.Add(2 * Inline() + 20);
    EXPECT_EQ(FormOf({maps_, 0}), 1);
    EXPECT_EQ(map.Pages(), (std::vector<std::uint32_t>{20, 2 * Inline() + 20}));
    map.Remove(20);
    EXPECT_EQ(map.Pages(), (std::vector<std::uint32_t>{2 * Inline() + 20}));
    ExpectAllUsed();
}

TEST_P(UsageMaps, AgreeWithASetThroughManyRandomChanges) {
    GrowTo(4 * Inline());
    UsageMap map(*file_, {maps_, 0});
    std::set<std::uint32_t> model;
    std::mt19937 random(11);
    for (int step = 0; step < 2000; ++step) {
        const std::uint32_t page = 1 + random() % (4 * Inline() - 1);
        if (random() % 3 == 0) {
            map.Remove(page);
            model.erase(page);
        } else {
            map.Add(page);
            model.insert(page);
        }
    }
    EXPECT_EQ(map.Pages(), std::vector<std::uint32_t>(model.begin(), model.end()));
    EXPECT_TRUE(UsageMap(*file_, {maps_, 1}).Pages().empty());
}

TEST_P(UsageMaps, OfTheWholeFileGrowWithIt) {
    GrowTo(3 * Inline());
    EXPECT_EQ(FormOf({1, 0}), 0);
    EXPECT_GT(RowAt(*file_, {1, 0}).size(), GetParam()->inlineMapRow);
    ExpectAllUsed();
}

TEST_P(UsageMaps, OfTheWholeFileBecomeReferencesWhenTheirPageIsFull) {
    GrowTo(static_cast<std::uint32_t>(8 * GetParam()->pageSize));
    EXPECT_EQ(FormOf({1, 0}), 1);
    ExpectAllUsed();
    const std::uint32_t page = AllocatePage(*file_);
    FreePage(*file_, page);
    EXPECT_TRUE(IsFree(*file_, page));
}

TEST_P(UsageMaps, APageFreedHereIsUsedAgainAndIsClean) {
    const std::uint32_t page = AllocatePage(*file_);
    file_->EditPage(page)[100] = 0xAA;
    FreePage(*file_, page);
    EXPECT_TRUE(IsFree(*file_, page));
    EXPECT_EQ(AllocatePage(*file_), page);
    EXPECT_EQ(file_->Page(page)[100], 0);
    EXPECT_FALSE(IsFree(*file_, page));
}

TEST_P(UsageMaps, APageThatOthersCallFreeIsNotTrusted) {
    const std::uint32_t page = AllocatePage(*file_);
    EditRowAt(*file_, {1, 0})[5 + page / 8] |= static_cast<std::uint8_t>(1U << (page % 8));
    ASSERT_TRUE(IsFree(*file_, page));
    const std::uint32_t end = file_->PageCount();
    EXPECT_EQ(AllocatePage(*file_), end);
}

TEST_P(UsageMaps, AFreedPageStaysUsedAfterRollback) {
    const std::uint32_t page = AllocatePage(*file_);
    file_->Begin();
    FreePage(*file_, page);
    file_->Rollback();
    EXPECT_FALSE(IsFree(*file_, page));
    EXPECT_NE(AllocatePage(*file_), page);
}

TEST_P(UsageMaps, PagesOutsideTheFileAreIgnored) {
    UsageMap map(*file_, {maps_, 0});
    EditRowAt(*file_, {maps_, 0})[5 + 60] = 0xFF;
    EXPECT_TRUE(map.Pages().empty());
}

INSTANTIATE_FOR_BOTH_VERSIONS(UsageMaps);

}  // namespace
