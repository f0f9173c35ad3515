#include "broker/pipe_streams.h"

namespace pcellBrokerClient {

PipeInput::int_type PipeInput::underflow() {
    const std::size_t count = pipe_.read(buffer_.data(), buffer_.size());
    setg(buffer_.data(), buffer_.data(), buffer_.data() + count);
    return count == 0 ? traits_type::eof() : traits_type::to_int_type(buffer_.front());
}

std::streamsize PipeInput::showmanyc() {
    switch (pipe_.inputState()) {
    case platform::PipeInputState::ready:
        return 1;
    case platform::PipeInputState::ended:
        return -1;
    default:
        return 0;
    }
}

PipeOutput::int_type PipeOutput::overflow(int_type character) {
    if (!traits_type::eq_int_type(character, traits_type::eof())) {
        block_ += traits_type::to_char_type(character);
    }
    return traits_type::not_eof(character);
}

std::streamsize PipeOutput::xsputn(const char* text, std::streamsize count) {
    block_.append(text, static_cast<std::size_t>(count));
    return count;
}

// What could not be sent is gone: the connection is not used again.
int PipeOutput::sync() {
    const bool sent = block_.empty() || pipe_.write(block_.data(), block_.size());
    block_.clear();
    return sent ? 0 : -1;
}

} // namespace pcellBrokerClient
