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
    } else if (stream_ != nullptr) {
        stream_->write(piece.data(), static_cast<std::streamsize>(piece.size()));
    }
    given_ += piece.size();
}

void XmlText::reserve(std::size_t further) {
    if (text_->capacity() < size() + further) {
        text_->reserve(size() + further);
    }
}

} // namespace ovalis
