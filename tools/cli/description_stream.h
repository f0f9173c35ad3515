#pragma once

#include <atomic>
#include <cstdint>
#include <ostream>
#include <streambuf>

#include "cli/result_file.h"

namespace cli {

/// Gives the text of a description on to a file or a stream as it comes, and counts the cells that
/// are complete, so that another thread can watch.
class DescriptionStream : public std::ostream {
public:
    explicit DescriptionStream(ResultFile& file);
    explicit DescriptionStream(std::ostream& stream);

    std::uint64_t cells() const { return buffer_.cells; }

private:
    class Buffer : public std::streambuf {
    public:
        ResultFile* file = nullptr;
        std::ostream* stream = nullptr;
        std::atomic<std::uint64_t> cells{0};

    protected:
        int_type overflow(int_type c) override;
        std::streamsize xsputn(const char* text, std::streamsize size) override;

    private:
        void count(std::string_view text);

        std::size_t matched_ = 0; // of what ends a cell, at the end of the text so far
    };

    Buffer buffer_;
};

} // namespace cli
