#pragma once

#include "base/src/handle_pool.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <span>
#include <type_traits>
#include <utility>

namespace OpenAccess_4::impl {

/// A growing array of plain values in memory that comes zeroed from the system, in large pages when
/// it is large: elements that a file is about to fill are not touched before.
template <class Element>
class LargeArray {
    static_assert(std::is_trivially_copyable_v<Element>);

public:
    LargeArray() = default;
    LargeArray(LargeArray&& other) noexcept { swap(other); }
    LargeArray& operator=(LargeArray&& other) noexcept {
        LargeArray(std::move(other)).swap(*this);
        return *this;
    }
    LargeArray(const LargeArray&) = delete;
    LargeArray& operator=(const LargeArray&) = delete;
    ~LargeArray() { release(elements_, capacity_); }

    /// Appends `count` elements whose bytes are zero, and answers them.
    std::span<Element> grow(std::size_t count) {
        if (count > capacity_ - size_)
            reserve(std::max(size_ + count, 2 * capacity_));
        const std::span<Element> added(elements_ + size_, count);
        size_ += count;
        return added;
    }

    std::span<const Element> all() const { return {elements_, size_}; }
    std::span<Element> part(std::size_t first, std::size_t count) {
        return {elements_ + first, count};
    }
    std::size_t size() const { return size_; }

private:
    static void release(Element* elements, std::size_t capacity) {
        if (elements)
            freeRecords(reinterpret_cast<std::byte*>(elements), capacity * sizeof(Element));
    }

    void reserve(std::size_t capacity) {
        auto* elements = reinterpret_cast<Element*>(allocateRecords(capacity * sizeof(Element)));
        if (size_ > 0)
            std::memcpy(static_cast<void*>(elements), elements_, size_ * sizeof(Element));
        release(std::exchange(elements_, elements), std::exchange(capacity_, capacity));
    }

    void swap(LargeArray& other) noexcept {
        std::swap(elements_, other.elements_);
        std::swap(size_, other.size_);
        std::swap(capacity_, other.capacity_);
    }

    Element* elements_ = nullptr;
    std::size_t size_ = 0;
    std::size_t capacity_ = 0;
};

} // namespace OpenAccess_4::impl
