#include "platform/channel.h"

#include "windows/wide.h"

#include <algorithm>
#include <charconv>

namespace platform {

namespace {

HANDLE native(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

} // namespace

std::optional<Channel> Channel::inherited(std::string_view number) noexcept {
    std::uintptr_t value = 0;
    const char* const last = number.data() + number.size();
    const auto [end, error] = std::from_chars(number.data(), last, value, 16);
    if (error != std::errc() || end != last || value == 0 ||
        number.size() > channelNumber(0).size())
        return std::nullopt;
    const std::intptr_t handle = static_cast<std::intptr_t>(value);
    if (handle == closedHandle || GetFileType(native(handle)) != FILE_TYPE_PIPE ||
        !SetHandleInformation(native(handle), HANDLE_FLAG_INHERIT, 0))
        return std::nullopt;
    return Channel(handle);
}

std::size_t Channel::read(void* data, std::size_t size) noexcept {
    constexpr std::size_t largest = std::size_t{1} << 20;
    DWORD taken = 0;
    // A writer may send nothing at all, which is no end.
    do {
        if (!ReadFile(native(handle), data, static_cast<DWORD>(std::min(size, largest)), &taken,
                      nullptr))
            return 0;
    } while (taken == 0 && size != 0);
    return taken;
}

bool Channel::write(const void* data, std::size_t size) noexcept {
    return internal::writeAll(native(handle), data, size);
}

void Channel::close() noexcept {
    internal::Handle closing(native(handle));
    handle = closedHandle;
}

void ignoreBrokenChannels() noexcept {}

} // namespace platform
