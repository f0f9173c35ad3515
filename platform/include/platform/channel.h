#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// One end of a pipe between two processes. Moved-from and closed ends are not open.
///
/// - Nothing here throws: the other side may be gone at any moment, and that is an answer.
/// - One thread may read or write while another one uses another channel; closing an end under a
///   thread that waits on it is not allowed.
class Channel {
public:
    Channel() noexcept = default;
    /// Owns an end by the system's own handle of it.
    explicit Channel(std::intptr_t ownedHandle) noexcept : handle(ownedHandle) {}

    /// Takes over the end that the process was started with, by the hexadecimal number that it was
    /// told on its command line. No process started from here inherits it any more.
    /// @returns nothing when the text is no such number, or nothing is open under it.
    static std::optional<Channel> inherited(std::string_view number) noexcept;

    Channel(Channel&& other) noexcept { swap(other); }
    Channel& operator=(Channel&& other) noexcept {
        Channel(static_cast<Channel&&>(other)).swap(*this);
        return *this;
    }
    Channel(const Channel&) = delete;
    Channel& operator=(const Channel&) = delete;
    ~Channel() { close(); }

    bool isOpen() const noexcept { return handle != closedHandle; }

    /// Waits for bytes and takes what is there, `size` at most. 0 means that the other side is
    /// gone.
    std::size_t read(void* data, std::size_t size) noexcept;

    /// Sends all bytes; false when the other side is gone.
    bool write(const void* data, std::size_t size) noexcept;

    void close() noexcept;

    void swap(Channel& other) noexcept {
        const std::intptr_t mine = handle;
        handle = other.handle;
        other.handle = mine;
    }

private:
    static constexpr std::intptr_t closedHandle = -1;

    std::intptr_t handle = closedHandle;
};

/// The number of an end as a command line carries it: 16 upper-case hexadecimal digits.
std::string channelNumber(std::uint64_t number);

/// Makes writing to a channel whose other side is gone a plain failure in the whole process, where
/// the system would otherwise end the process for it.
void ignoreBrokenChannels() noexcept;

} // namespace platform
