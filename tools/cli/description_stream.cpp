#include "cli/description_stream.h"

namespace cli {

namespace {

constexpr std::string_view endOfCell = "\n</cell>\n";

} // namespace

DescriptionStream::DescriptionStream(ResultFile& file) : std::ostream(nullptr) {
    buffer_.file = &file;
    rdbuf(&buffer_);
    exceptions(badbit); // a full disk is told with the system's reason
}

DescriptionStream::DescriptionStream(std::ostream& stream) : std::ostream(nullptr) {
    buffer_.stream = &stream;
    rdbuf(&buffer_);
}

DescriptionStream::Buffer::int_type DescriptionStream::Buffer::overflow(int_type c) {
    const char text = traits_type::to_char_type(c);
    if (!traits_type::eq_int_type(c, traits_type::eof()))
        xsputn(&text, 1);
    return traits_type::not_eof(c);
}

std::streamsize DescriptionStream::Buffer::xsputn(const char* text, std::streamsize size) {
    if (file != nullptr)
        file->write(text, static_cast<std::size_t>(size));
    else
        stream->write(text, size);
    count({text, static_cast<std::size_t>(size)});
    return size;
}

void DescriptionStream::Buffer::count(std::string_view text) {
    for (const char c : text) {
        if (c != endOfCell[matched_])
            matched_ = 0; // no end of it begins like the whole but the line end before
        if (c == endOfCell[matched_] && ++matched_ == endOfCell.size()) {
            ++cells;
            matched_ = 1; // its line end may be the one before the next
        }
    }
}

} // namespace cli
