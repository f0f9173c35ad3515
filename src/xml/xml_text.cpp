#include "xml/xml_text.h"

#include <ostream>

namespace ovalis {

void XmlText::putSlowly(std::string_view piece) {
    flush();
    if (piece.size() > staging_.size()) {
        give(piece);
    } else {
        put(piece);
    }
}

void XmlText::flush() {
    give({staging_.data(), std::size_t(next_ - staging_.data())});
    next_ = staging_.data();
}

void XmlText::give(std::string_view piece) {
    if (text_ != nullptr) {
        text_->append(piece);
    } else {
        stream_->write(piece.data(), static_cast<std::streamsize>(piece.size()));
    }
    given_ += piece.size();
}

void XmlText::expect(std::size_t before, std::size_t done, std::size_t all) {
    if (text_ == nullptr || done == 0) {
        return;
    }
    // A quarter more than that: room that is never touched takes no memory, and a string that grows
    // is there twice for a moment.
    const std::size_t each = (size() - before) / done + 1;
    const std::size_t needed = before + all * each;
    if (text_->capacity() < needed) {
        text_->reserve(needed + needed / 4);
    }
}

} // namespace ovalis
