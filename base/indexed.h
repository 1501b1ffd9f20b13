#pragma once
// Control arrays: a fixed number of elements, counted from 0 or from 1.

#include "base/error.h"

#include <array>
#include <cstddef>

/// Elements First to Last, both included. An index outside throws SubscriptOutOfRange (9).
template <typename T, int First, int Last>
class Indexed {
    static_assert(First <= Last);

  public:
    static constexpr int kFirst = First;
    static constexpr int kLast = Last;

    T& operator[](int index) { return elements_[Offset(index)]; }
    const T& operator[](int index) const { return elements_[Offset(index)]; }

    static constexpr std::size_t size() { return static_cast<std::size_t>(Last - First) + 1; }
    auto begin() { return elements_.begin(); }
    auto end() { return elements_.end(); }
    auto begin() const { return elements_.begin(); }
    auto end() const { return elements_.end(); }

  private:
    static std::size_t Offset(int index) {
        if (index < First || index > Last) {
            throw Error{ErrorNumber::SubscriptOutOfRange, "index outside a control array"};
        }
        return static_cast<std::size_t>(index - First);
    }

    std::array<T, size()> elements_{};
};
