#pragma once

#include <ios>

namespace ovalis {

/// The failure of a stream with exactly the text it was given; that of the standard class goes on
/// with words of the compiler's library.
class StreamFailure : public std::ios_base::failure {
public:
    /// `text` must live as long as the failure does: a literal.
    explicit StreamFailure(const char* text) : std::ios_base::failure(text), text_(text) {}

    const char* what() const noexcept override { return text_; }

private:
    const char* text_;
};

} // namespace ovalis
