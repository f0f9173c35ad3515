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
    void bytes(const void* data, std::size_t size) {
        copy(room(size), static_cast<const char*>(data), size);
    }

    /// Adds a text with its terminating zero.
    void text(const char* text) { bytes(text, std::strlen(text) + 1); }

    std::size_t size() const { return size_; }
    const char* data() const { return data_; }
    std::string_view view() const { return {data_, size_}; }

private:
    /// Copies few bytes without a call: two pieces cover them, and may overlap.
    static void copy(char* to, const char* from, std::size_t size) {
        if (size > 32) {
            std::memcpy(to, from, size);
        } else if (size >= 16) {
            copyEnds<16>(to, from, size);
        } else if (size >= 8) {
            copyEnds<8>(to, from, size);
        } else if (size >= 4) {
            copyEnds<4>(to, from, size);
        } else {
            for (std::size_t i = 0; i < size; ++i) {
                to[i] = from[i];
            }
        }
    }

    template <std::size_t Piece>
    static void copyEnds(char* to, const char* from, std::size_t size) {
        char pieces[2][Piece];
        std::memcpy(pieces[0], from, Piece);
        std::memcpy(pieces[1], from + size - Piece, Piece);
        std::memcpy(to, pieces[0], Piece);
        std::memcpy(to + size - Piece, pieces[1], Piece);
    }

    char* room(std::size_t size) {
        if (capacity_ - size_ < size) {
            grow(size_ + size);
        }
        char* end = data_ + size_;
        size_ += size;
        return end;
    }

    [[gnu::noinline]] void grow(std::size_t needed) {
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
