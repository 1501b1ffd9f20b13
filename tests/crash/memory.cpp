#include "memory.h"

#include <cstdlib>
#include <new>

namespace crash {
namespace {

struct State {
    bool active = false, hit = false;
    std::size_t counted = 0, at = 0;
    Shortage kind = Shortage::Once;
};
State state;

bool Fails() {
    if (!state.active) return false;
    const std::size_t number = state.counted++;
    const bool fails =
        number == state.at || (state.kind == Shortage::FromThenOn && number > state.at);
    state.hit = state.hit || fails;
    return fails;
}

void* Allocate(std::size_t size) {
    void* const memory = Fails() ? nullptr : std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}

}  // namespace

MemoryShortage::MemoryShortage(std::size_t at, Shortage kind) {
    state = {true, false, 0, at, kind};
}
MemoryShortage::~MemoryShortage() {
    state.active = false;
}
bool MemoryShortage::Hit() const {
    return state.hit;
}
std::size_t MemoryShortage::Counted() const {
    return state.counted;
}

}  // namespace crash

void* operator new(std::size_t size) {
    return crash::Allocate(size);
}
void* operator new[](std::size_t size) {
    return crash::Allocate(size);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
