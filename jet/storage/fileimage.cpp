#include "jet/storage/fileimage.h"

#include "jet/error.h"

#include <memory>
#include <sys/mman.h>

namespace jet::detail {

void FileImage::Unmap::operator()(std::uint8_t* chunk) const noexcept {
    ::munmap(chunk, kChunkBytes);
}

/// Twice the size is asked for and the ends are given back, so that the chunk begins where a large
/// page may.
FileImage::Chunk FileImage::Map(std::uint64_t used) {
    void* const mapped = ::mmap(nullptr, 2 * kChunkBytes, PROT_READ | PROT_WRITE,
                                MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED) throw Error{ErrorNumber::OutOfMemory, "no memory for a file"};
    auto* const begin = static_cast<std::uint8_t*>(mapped);
    void* aligned = mapped;
    std::size_t space = 2 * kChunkBytes;
    auto* const chunk =
        static_cast<std::uint8_t*>(std::align(kChunkBytes, kChunkBytes, aligned, space));
    if (chunk != begin) ::munmap(begin, static_cast<std::size_t>(chunk - begin));
    if (space > kChunkBytes) ::munmap(chunk + kChunkBytes, space - kChunkBytes);
    // A large page is cleared whole when it is first touched: not worth it for a small file. Advice
    // only, so nothing depends on what the system makes of it.
    ::madvise(chunk, kChunkBytes, used >= kChunkBytes / 2 ? MADV_HUGEPAGE : MADV_NOHUGEPAGE);
    return Chunk(chunk);
}

void FileImage::Resize(std::uint64_t size) {
    const std::size_t chunks = Chunks(size + kChunkBytes - 1);
    while (chunks_.size() < chunks) {
        chunks_.push_back(Map(size - chunks_.size() * kChunkBytes));
    }
    size_ = size;
}

}  // namespace jet::detail
