#pragma once
// A file's bytes in memory.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace jet::detail {

/// In pieces of equal size, so that growing never copies what is there. The memory comes from the
/// system as large pages where the file fills them: reading a file then costs little but its bytes.
class FileImage {
  public:
    /// A multiple of both page sizes, and of the system's large pages.
    static constexpr std::size_t kChunkBytes = std::size_t{2} * 1024 * 1024;

    std::uint64_t Size() const { return size_; }
    /// Bytes that come into view hold what they held before; zero the first time. Making the image
    /// smaller, or as large as it was once, does not fail.
    void Resize(std::uint64_t size);
    /// `size` bytes at `offset`, which must not cross a chunk's end (pages never do). Not checked.
    std::uint8_t* At(std::uint64_t offset) {
        return chunks_[Chunks(offset)].get() + offset % kChunkBytes;
    }
    const std::uint8_t* At(std::uint64_t offset) const {
        return chunks_[Chunks(offset)].get() + offset % kChunkBytes;
    }

  private:
    struct Unmap {
        void operator()(std::uint8_t* chunk) const noexcept;
    };
    using Chunk = std::unique_ptr<std::uint8_t[], Unmap>;
    static Chunk Map(std::uint64_t used);
    /// Whole ones in so many bytes.
    static std::size_t Chunks(std::uint64_t bytes) {
        return static_cast<std::size_t>(bytes / kChunkBytes);
    }

    std::vector<Chunk> chunks_;
    std::uint64_t size_ = 0;
};

}  // namespace jet::detail
