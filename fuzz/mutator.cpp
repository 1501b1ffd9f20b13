// Changes that meet a page file where it hurts: page headers, slots, definitions, pointers to
// pages. Plain mutation of 100,000 bytes would mostly hit the unused middle of pages.

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

class Mutation {
  public:
    Mutation(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed)
        : data_(data), size_(size), maxSize_(maxSize), random_(seed) {
        pageSize_ = size > 0x14 && data[0x14] == 0 ? 2048 : 4096;
    }

    std::size_t Run() {
        const unsigned count = 1 + Below(4);
        for (unsigned i = 0; i < count; ++i) {
            if (size_ < 3 * pageSize_) return size_;
            One();
        }
        return size_;
    }

  private:
    std::uint32_t Below(std::size_t limit) {
        return static_cast<std::uint32_t>(random_() % std::max<std::size_t>(limit, 1));
    }
    std::size_t Pages() const { return size_ / pageSize_; }
    bool HoldsObjects(std::size_t page) const {
        constexpr std::size_t kOwner = 4;
        constexpr std::uint8_t kDataPage = 1, kObjects = 2;
        const std::uint8_t* bytes = data_ + page * pageSize_;
        return page == kObjects || (bytes[0] == kDataPage && bytes[kOwner] == kObjects);
    }
    std::size_t Place() {
        // The header page is checked first and small, and damage to the list of objects hides all
        // tables: most of the work is behind them.
        std::size_t page = Below(40) == 0 ? 0 : 1 + Below(Pages() - 1);
        if (HoldsObjects(page) && Below(8) != 0) page = 1 + Below(Pages() - 1);
        const std::array<std::size_t, 4> spans{32, 128, 1024, pageSize_};
        return page * pageSize_ + Below(spans[Below(spans.size())]);
    }
    void One() {
        switch (Below(12)) {
            case 0:
                return CopyPage();
            case 1:
                return CopyRun();
            case 2:
                return Slice();
            case 3:
                return Resize();
            case 4:
            case 5:
                return Pointer();
            case 6:
            case 7:
                return Add();
            default:
                return Interesting();
        }
    }
    void Interesting() {
        static constexpr std::array<std::uint32_t, 22> kValues{
            0,      1,      2,      3,          4,          5,         0x7F,   0x80,
            0xFF,   0x100,  0xFE,   0xFFF,      0x1000,     0x1FFF,    0x2000, 0x7FFF,
            0x8000, 0xC000, 0xFFFF, 0xFFFFFFFF, 0x7FFFFFFF, 0x80000000};
        const std::uint32_t value = kValues[Below(kValues.size())];
        const std::array<std::size_t, 3> sizes{1, 2, 4};
        Put(Place(), value, sizes[Below(sizes.size())]);
    }
    /// A pointer to a page or to a row of one, low or high byte first.
    void Pointer() {
        const auto page = static_cast<std::uint32_t>(Below(Pages() + 1));
        const std::uint32_t row = Below(6);
        const std::size_t at = Place();
        switch (Below(3)) {
            case 0:
                return Put(at, page, 4);
            case 1:
                return Put(at, page << 8 | row, 4);
            default:
                for (unsigned i = 0; i < 4; ++i) Put(at + i, page >> (24 - 8 * i), 1);
        }
    }
    void Add() {
        const std::size_t at = Place();
        if (at >= size_) return;
        data_[at] = static_cast<std::uint8_t>(data_[at] + Below(9) - 4);
    }
    void CopyPage() {
        const std::size_t from = Below(Pages()), to = 1 + Below(Pages() - 1);
        std::memmove(data_ + to * pageSize_, data_ + from * pageSize_, pageSize_);
    }
    void CopyRun() {
        const std::size_t length = 1 + Below(64), from = Place(), to = Place();
        if (std::max(from, to) + length > size_) return;
        std::memmove(data_ + to, data_ + from, length);
    }
    void Slice() {
        const std::size_t length = 1 + Below(32), at = Place();
        if (at + length > size_) return;
        LLVMFuzzerMutate(data_ + at, length, length);
    }
    void Resize() {
        if (Below(4) != 0) return;
        if (Below(2) == 0) {
            size_ -= pageSize_ * Below(Pages() - 3);
        } else if (size_ + pageSize_ <= maxSize_) {
            std::memcpy(data_ + size_, data_ + Below(Pages()) * pageSize_, pageSize_);
            size_ += pageSize_;
        }
    }
    void Put(std::size_t at, std::uint32_t value, std::size_t bytes) {
        if (at + bytes > size_) return;
        for (std::size_t i = 0; i < bytes; ++i) {
            data_[at + i] = static_cast<std::uint8_t>(value >> (8 * i));
        }
    }

    std::uint8_t* data_;
    std::size_t size_, maxSize_, pageSize_;
    std::minstd_rand random_;
};

}  // namespace

/// The first file with a page of the second.
// NOLINTNEXTLINE(readability-function-size): the parameters are the fuzzer's
extern "C" std::size_t LLVMFuzzerCustomCrossOver(const std::uint8_t* first, std::size_t firstSize,
                                                 const std::uint8_t* second, std::size_t secondSize,
                                                 std::uint8_t* out, std::size_t maxSize,
                                                 unsigned seed) {
    const std::size_t pageSize = firstSize > 0x14 && first[0x14] == 0 ? 2048 : 4096;
    std::size_t size = std::min(firstSize, maxSize);
    std::memcpy(out, first, size);
    if (size < 3 * pageSize || secondSize < 3 * pageSize) return size;
    std::minstd_rand random(seed);
    const std::size_t pages = size / pageSize, from = 1 + random() % (secondSize / pageSize - 1);
    const bool append = random() % 4 == 0 && (pages + 1) * pageSize <= maxSize;
    const std::size_t to = append ? pages : 1 + random() % (pages - 1);
    if (append) size = (pages + 1) * pageSize;
    std::memcpy(out + to * pageSize, second + from * pageSize, pageSize);
    return size;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    return Mutation(data, size, maxSize, seed).Run();
}
