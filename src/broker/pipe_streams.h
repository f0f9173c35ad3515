#pragma once

#include <array>
#include <cstdio>
#include <streambuf>
#include <string>

#include <platform/pipe.h>

#include "broker/connection.h"

namespace pcellBrokerClient {

/// Reads a pipe, as much at a time as has arrived. `in_avail` tells what is there to be read,
/// and -1 at the end.
class PipeInput : public AnswerStream {
public:
    /// Takes over the stream.
    explicit PipeInput(std::FILE* stream) : pipe_(stream) {}

protected:
    int_type underflow() override;
    std::streamsize showmanyc() override;

private:
    platform::PipeStream pipe_;
    std::array<char, 4096> buffer_;
};

/// Gathers everything that is written and sends it to a pipe as one block when it is flushed.
class PipeOutput : public std::streambuf {
public:
    /// Takes over the stream.
    explicit PipeOutput(std::FILE* stream) : pipe_(stream) {}

protected:
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize count) override;
    int sync() override;

private:
    platform::PipeStream pipe_;
    std::string block_;
};

} // namespace pcellBrokerClient
