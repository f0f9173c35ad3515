#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

namespace platform {

/// Owns one end of an anonymous pipe, or nothing. Moved-from it holds nothing; closing keeps the
/// last system error.
class PipeEnd {
public:
    PipeEnd() noexcept = default;
    /// Takes over a handle of the system; -1 is none.
    explicit PipeEnd(std::intptr_t owned) noexcept : handle(owned) {}
    PipeEnd(PipeEnd&& other) noexcept { swap(other); }
    PipeEnd& operator=(PipeEnd&& other) noexcept {
        PipeEnd(static_cast<PipeEnd&&>(other)).swap(*this);
        return *this;
    }
    PipeEnd(const PipeEnd&) = delete;
    PipeEnd& operator=(const PipeEnd&) = delete;
    ~PipeEnd() { close(); }

    std::intptr_t get() const noexcept { return handle; }
    std::intptr_t release() noexcept {
        const std::intptr_t held = handle;
        handle = none;
        return held;
    }
    void close() noexcept;
    void swap(PipeEnd& other) noexcept {
        const std::intptr_t mine = handle;
        handle = other.handle;
        other.handle = mine;
    }
    explicit operator bool() const noexcept { return handle != none; }

private:
    static constexpr std::intptr_t none = -1;

    std::intptr_t handle = none;
};

enum class PipeDirection { read, write };

/// Makes a pipe whose ends no child inherits.
/// @returns false with the last system error set when there can be none.
bool createPipe(PipeEnd& reading, PipeEnd& writing) noexcept;

/// Makes a second handle on an end, which a child that is started with it inherits.
/// @returns an empty end with the last system error set on failure.
PipeEnd inheritableCopy(const PipeEnd& end) noexcept;

/// How a child is told an end that it inherits: 16 upper-case hexadecimal digits.
std::string pipeEndText(const PipeEnd& end);

/// The end that such a text names in the child; empty when the text is none.
PipeEnd pipeEndFromText(const std::string& text);

/// A descriptor of the C library, or nothing.
class StreamDescriptor {
public:
    explicit StreamDescriptor(int owned = -1) noexcept : number(owned) {}
    StreamDescriptor(StreamDescriptor&& other) noexcept : number(other.release()) {}
    StreamDescriptor(const StreamDescriptor&) = delete;
    StreamDescriptor& operator=(const StreamDescriptor&) = delete;
    ~StreamDescriptor();

    int get() const noexcept { return number; }
    int release() noexcept {
        const int held = number;
        number = -1;
        return held;
    }
    explicit operator bool() const noexcept { return number != -1; }

private:
    int number;
};

/// Puts a descriptor of the C library over an end, which belongs to the descriptor from then on.
/// @returns an empty one on failure; the end stays what it was.
StreamDescriptor openDescriptor(PipeEnd& end, PipeDirection direction) noexcept;

/// Puts a stream over a descriptor, which belongs to the stream from then on.
/// @returns null on failure; the descriptor stays what it was.
std::FILE* openStream(StreamDescriptor& descriptor, PipeDirection direction) noexcept;

enum class PipeInputState {
    empty, ///< reading waits
    ready, ///< something can be read
    ended, ///< the writer is gone, and everything that it wrote has been read
};

/// One direction of the talk with another process. Nothing is buffered here: what is written goes
/// out in one piece, and what is read is what has arrived.
class PipeStream {
public:
    /// Takes over a stream that openStream() answered.
    explicit PipeStream(std::FILE* opened) noexcept;
    PipeStream(const PipeStream&) = delete;
    PipeStream& operator=(const PipeStream&) = delete;
    ~PipeStream();

    /// Waits for something to read and answers how much there was; 0 at the end or after a failure.
    std::size_t read(void* data, std::size_t size) noexcept;

    /// Writes everything; false when that fails. A reader that is gone is a failure, never a
    /// signal.
    bool write(const void* data, std::size_t size) noexcept;

    /// What read() would find now.
    PipeInputState inputState() const noexcept;

private:
    std::FILE* stream;
};

} // namespace platform
