#pragma once

#include <algorithm>
#include <cstring>
#include <memory>
#include <string_view>

namespace ovalis {

/// Collects bytes. The first of them lie in the object itself, so that what is usual needs no heap.
class ByteBuffer {
public:
    ByteBuffer() = default;
    ByteBuffer(const ByteBuffer&) = delete;
    ByteBuffer& operator=(const ByteBuffer&) = delete;

    void byte(unsigned char value) { *room(1) = static_cast<char>(value); }
    void bytes(const void* data, std::size_t size) { std::memcpy(room(size), data, size); }

    std::size_t size() const { return size_; }
    const char* data() const { return data_; }
    std::string_view view() const { return {data_, size_}; }

private:
    char* room(std::size_t size) {
        if (capacity_ - size_ < size) {
            grow(size_ + size);
        }
        char* end = data_ + size_;
        size_ += size;
        return end;
    }

    void grow(std::size_t needed) {
        const std::size_t capacity = std::max(needed, 2 * capacity_);
        std::unique_ptr<char[]> larger(new char[capacity]);
        std::memcpy(larger.get(), data_, size_);
        heap_ = std::move(larger);
        data_ = heap_.get();
        capacity_ = capacity;
    }

    char own_[1024];
    std::unique_ptr<char[]> heap_;
    char* data_ = own_;
    std::size_t size_ = 0;
    std::size_t capacity_ = sizeof(own_);
};

} // namespace ovalis
