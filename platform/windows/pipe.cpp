#include "platform/pipe.h"

#include "windows/wide.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>

namespace platform {

namespace {

constexpr std::size_t largestTransfer = std::size_t{1} << 30;

HANDLE handleOf(std::intptr_t value) noexcept {
    return reinterpret_cast<HANDLE>(value);
}

PipeEnd ownerOf(HANDLE handle) noexcept {
    return PipeEnd(reinterpret_cast<std::intptr_t>(handle));
}

} // namespace

void PipeEnd::close() noexcept {
    internal::Handle(handleOf(release()));
}

bool createPipe(PipeEnd& reading, PipeEnd& writing) noexcept {
    HANDLE readEnd = INVALID_HANDLE_VALUE;
    HANDLE writeEnd = INVALID_HANDLE_VALUE;
    if (!CreatePipe(&readEnd, &writeEnd, nullptr, 0))
        return false;
    reading = ownerOf(readEnd);
    writing = ownerOf(writeEnd);
    return true;
}

PipeEnd inheritableCopy(const PipeEnd& end) noexcept {
    HANDLE copy = INVALID_HANDLE_VALUE;
    if (!end) { // the number would stand for this process
        SetLastError(ERROR_INVALID_HANDLE);
        return PipeEnd();
    }
    if (!DuplicateHandle(GetCurrentProcess(), handleOf(end.get()), GetCurrentProcess(), &copy, 0,
                         TRUE, DUPLICATE_SAME_ACCESS))
        return PipeEnd();
    return ownerOf(copy);
}

StreamDescriptor::~StreamDescriptor() {
    const DWORD before = GetLastError();
    if (number != -1)
        _close(number);
    SetLastError(before);
}

StreamDescriptor openDescriptor(PipeEnd& end, PipeDirection direction) noexcept {
    const int flags = direction == PipeDirection::read ? 0 : _O_WRONLY;
    StreamDescriptor opened(_open_osfhandle(end.get(), flags));
    if (opened)
        end.release();
    return opened;
}

std::FILE* openStream(StreamDescriptor& descriptor, PipeDirection direction) noexcept {
    std::FILE* const opened =
        _fdopen(descriptor.get(), direction == PipeDirection::read ? "rb" : "wb");
    if (opened != nullptr)
        descriptor.release();
    return opened;
}

PipeStream::PipeStream(std::FILE* opened) noexcept : stream(opened) {
    std::setvbuf(stream, nullptr, _IONBF, 0);
}

PipeStream::~PipeStream() {
    std::fclose(stream);
}

std::size_t PipeStream::read(void* data, std::size_t size) noexcept {
    const auto most = static_cast<unsigned>(std::min(size, largestTransfer));
    const int got = _read(_fileno(stream), data, most);
    return got < 0 ? 0 : static_cast<std::size_t>(got);
}

bool PipeStream::write(const void* data, std::size_t size) noexcept {
    const char* next = static_cast<const char*>(data);
    while (size > 0) {
        const auto most = static_cast<unsigned>(std::min(size, largestTransfer));
        const int written = _write(_fileno(stream), next, most);
        if (written <= 0)
            return false;
        next += written;
        size -= static_cast<std::size_t>(written);
    }
    return true;
}

PipeInputState PipeStream::inputState() const noexcept {
    const HANDLE pipe = handleOf(_get_osfhandle(_fileno(stream)));
    DWORD waiting = 0;
    if (!PeekNamedPipe(pipe, nullptr, 0, nullptr, &waiting, nullptr))
        return PipeInputState::ended;
    return waiting > 0 ? PipeInputState::ready : PipeInputState::empty;
}

} // namespace platform
