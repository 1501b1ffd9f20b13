// Keeps the memory of a file's image from one run to the next. It is one piece of 256 KB, which the
// sanitizer's allocator would map from the system and give back for every file: a third of the time
// of a run on a small file. A piece that is not in use is poisoned, so its use is found as before.

#include "jet/detail/filestore.h"

#include <array>
#include <cstddef>
#include <new>
#include <sanitizer/asan_interface.h>

namespace {

struct Piece {
    void* memory = nullptr;
    bool used = false;
};

constexpr std::size_t kPieceBytes = jet::detail::FileImage::kChunkBytes;
std::array<Piece, 4> pieces;

void* TakePiece() {
    for (Piece& piece : pieces) {
        if (piece.used) continue;
        if (piece.memory == nullptr) piece.memory = ::operator new(kPieceBytes);
        piece.used = true;
        ASAN_UNPOISON_MEMORY_REGION(piece.memory, kPieceBytes);
        return piece.memory;
    }
    return nullptr;
}

bool GiveBackPiece(void* memory) {
    for (Piece& piece : pieces) {
        if (memory == nullptr || piece.memory != memory) continue;
        piece.used = false;
        ASAN_POISON_MEMORY_REGION(piece.memory, kPieceBytes);
        return true;
    }
    return false;
}

}  // namespace

void* operator new[](std::size_t size) {
    if (size == kPieceBytes) {
        if (void* const piece = TakePiece()) return piece;
    }
    return ::operator new(size);
}

void operator delete[](void* memory) noexcept {
    if (!GiveBackPiece(memory)) ::operator delete(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    ::operator delete[](memory);
}
