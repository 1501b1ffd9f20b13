#include "jet/storage/datapage.h"

#include "jet/error.h"
#include "tests/jet/memoryfile.h"
#include "tests/jet/versions.h"

#include <random>

namespace {

using namespace jet::detail;
using jet::Error;
using Stored = std::vector<std::uint8_t>;

class DataPages : public testing::TestWithParam<const Layout*> {
  protected:
    void SetUp() override {
        file_ = jettest::EmptyFile(*GetParam());
        page_ = AllocatePage(*file_);
        FormatDataPage(*file_, page_, 77);
    }
    Stored Row(std::uint8_t row) const {
        const ByteView bytes = RowAt(*file_, {page_, row});
        return {bytes.begin(), bytes.end()};
    }
    std::unique_ptr<PageFile> file_;
    std::uint32_t page_ = 0;
};

TEST_P(DataPages, AnEmptyOneHasAllBytesFree) {
    const std::size_t expected = GetParam() == &kJet4 ? 0x0FF2 : 0x07F6;
    EXPECT_EQ(DataPage(*file_, page_).StoredFreeBytes(), expected);
    EXPECT_EQ(DataPage(*file_, page_).Owner(), 77u);
}

TEST_P(DataPages, PackRowsFromTheEndInSlotOrder) {
    EXPECT_EQ(AddRow(*file_, page_, Stored(10, 1)).row, 0);
    EXPECT_EQ(AddRow(*file_, page_, Stored(20, 2)).row, 1);
    const DataPage page(*file_, page_);
    EXPECT_EQ(page.At(0).end, GetParam()->pageSize);
    EXPECT_EQ(page.At(1).end, page.At(0).start);
    EXPECT_EQ(page.StoredFreeBytes(), GetParam()->FreeInEmptyDataPage() - 30 - 4);
}

TEST_P(DataPages, ResizingOneRowMovesOnlyTheLaterOnes) {
    for (std::uint8_t i = 0; i < 5; ++i) AddRow(*file_, page_, Stored(10 + i, i));
    const std::size_t startOfFirst = DataPage(*file_, page_).At(0).start;
    ReplaceRow(*file_, {page_, 2}, Stored(40, 9), 0);
    EXPECT_EQ(DataPage(*file_, page_).At(0).start, startOfFirst);
    EXPECT_EQ(Row(1), Stored(11, 1));
    EXPECT_EQ(Row(2), Stored(40, 9));
    EXPECT_EQ(Row(3), Stored(13, 3));
    EXPECT_EQ(Row(4), Stored(14, 4));
}

TEST_P(DataPages, DeletingSqueezesARowAndKeepsTheNumbersOfOthers) {
    for (std::uint8_t i = 0; i < 3; ++i) AddRow(*file_, page_, Stored(10, i));
    const std::size_t before = DataPage(*file_, page_).FreeBytes();
    DeleteRow(*file_, {page_, 0});
    const DataPage page(*file_, page_);
    EXPECT_TRUE(page.At(0).Deleted());
    EXPECT_EQ(page.At(0).Length(), 0u);
    EXPECT_EQ(page.FreeBytes(), before + 10);
    EXPECT_EQ(Row(2), Stored(10, 2));
    EXPECT_EQ(page.SlotCount(), 3u);
}

TEST_P(DataPages, LoseManyRowsAsIfOneAfterAnother) {
    std::mt19937 random(3);
    for (int round = 0; round < 50; ++round) {
        FormatDataPage(*file_, page_, 77);
        std::vector<std::uint8_t> gone;
        for (std::uint8_t row = 0; row < 40; ++row) {
            const std::uint16_t flags = row % 7 == 3 ? kSlotHidden : 0;
            AddRow(*file_, page_, Stored(random() % 40, row), flags);
            if (flags == 0 && random() % 3 < 2) gone.push_back(row);
        }
        const ByteView page = file_->Page(page_);
        const Stored before(page.begin(), page.end());
        for (auto row = gone.rbegin(); row != gone.rend(); ++row) DeleteRow(*file_, {page_, *row});
        const Stored expected(page.begin(), page.end());
        const ByteSpan again = file_->EditPage(page_);
        std::copy(before.begin(), before.end(), again.begin());
        DeleteRows(*file_, page_, gone);
        // What lies in the free room does not matter.
        const std::size_t lowest = DataPage(*file_, page_).At(39).start;
        const auto rows = static_cast<std::ptrdiff_t>(lowest);
        EXPECT_TRUE(std::equal(page.begin() + rows, page.end(), expected.begin() + rows));
        const auto head = static_cast<std::ptrdiff_t>(GetParam()->slots + kSlotSize * 40);
        EXPECT_TRUE(std::equal(page.begin(), page.begin() + head, expected.begin()));
    }
}

TEST_P(DataPages, LoseNoRowWhenOneOfManyIsNotThere) {
    for (std::uint8_t i = 0; i < 3; ++i) AddRow(*file_, page_, Stored(10, i));
    EXPECT_THROW(DeleteRows(*file_, page_, std::vector<std::uint8_t>{1, 3}), Error);
    EXPECT_EQ(Row(1), Stored(10, 1));
}

TEST_P(DataPages, GiveOutNoMoreRowNumbersThanAByteHolds) {
    while (DataPage(*file_, page_).HasRoomFor(0)) AddRow(*file_, page_, {}, kSlotDeleted);
    EXPECT_EQ(DataPage(*file_, page_).SlotCount(), 255u);
}

TEST_P(DataPages, StayExactThroughManyRandomChanges) {
    std::mt19937 random(7);
    std::vector<Stored> model;
    for (int step = 0; step < 3000; ++step) {
        const std::size_t length = random() % 200;
        const Stored bytes(length, static_cast<std::uint8_t>(random()));
        if (model.empty() || random() % 3 == 0) {
            if (!DataPage(*file_, page_).HasRoomFor(length) || model.size() > 100) continue;
            AddRow(*file_, page_, bytes);
            model.push_back(bytes);
        } else {
            const auto row = static_cast<std::uint8_t>(random() % model.size());
            if (!CanResizeRow(*file_, {page_, row}, length)) continue;
            ReplaceRow(*file_, {page_, row}, bytes, 0);
            model[row] = bytes;
        }
        const DataPage page(*file_, page_);
        ASSERT_EQ(page.StoredFreeBytes(), page.FreeBytes());
    }
    for (std::size_t row = 0; row < model.size(); ++row) {
        EXPECT_EQ(Row(static_cast<std::uint8_t>(row)), model[row]);
    }
}

TEST_P(DataPages, RefuseARowThatDoesNotFit) {
    EXPECT_THROW(AddRow(*file_, page_, Stored(GetParam()->pageSize)), Error);
    AddRow(*file_, page_, Stored(4));
    EXPECT_THROW(ReplaceRow(*file_, {page_, 0}, Stored(GetParam()->pageSize), 0), Error);
    EXPECT_THROW(RowAt(*file_, {page_, 1}), Error);
    EXPECT_THROW(RowAt(*file_, {9999, 0}), Error);
}

INSTANTIATE_FOR_BOTH_VERSIONS(DataPages);

TEST(DataPages, OfEverySampleFileHaveTheFreeBytesTheySay) {
    for (const auto& path : jet::test::SampleFiles()) {
        const auto file = PageFile::Open(path);
        for (std::uint32_t page = 1; page < file->PageCount(); ++page) {
            if (U16(file->Page(page), 0) != 0x0101) continue;
            const DataPage rows(*file, page);
            EXPECT_EQ(rows.StoredFreeBytes(), rows.FreeBytes()) << path << " page " << page;
        }
    }
}

}  // namespace
