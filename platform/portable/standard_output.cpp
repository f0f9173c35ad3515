#include "platform/standard_output.h"

namespace platform {

WatchedOutput::int_type WatchedOutput::overflow(int_type c) {
    if (traits_type::eq_int_type(c, traits_type::eof()))
        return traits_type::not_eof(c);
    const int_type taken = target_.sputc(traits_type::to_char_type(c));
    if (traits_type::eq_int_type(taken, traits_type::eof()))
        keepFailure();
    return taken;
}

std::streamsize WatchedOutput::xsputn(const char* text, std::streamsize size) {
    const std::streamsize taken = target_.sputn(text, size);
    if (taken != size)
        keepFailure();
    return taken;
}

int WatchedOutput::sync() {
    const int result = target_.pubsync();
    if (result == -1)
        keepFailure();
    return result;
}

void WatchedOutput::keepFailure() {
    const SystemError error = lastSystemError();
    if (!failure_)
        failure_ = error;
}

} // namespace platform
