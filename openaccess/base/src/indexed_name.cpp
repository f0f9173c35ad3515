#include "base/src/indexed_name.h"

#include <charconv>

namespace OpenAccess_4::impl {

namespace {

bool takeNumber(std::string_view& text, oaUInt4& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end == text.data())
        return false;
    text.remove_prefix(std::size_t(end - text.data()));
    return true;
}

/// Takes ":" and a number; true also when there is nothing more.
bool takeFurther(std::string_view& text, oaUInt4& number) {
    if (text.empty())
        return true;
    if (text.front() != ':')
        return false;
    text.remove_prefix(1);
    return takeNumber(text, number);
}

} // namespace

std::optional<Indices> readIndices(std::string_view text, const IndexMarks& marks) {
    if (text.empty() || text.back() != marks.close)
        return std::nullopt;
    const std::size_t open = text.rfind(marks.open);
    if (open == std::string_view::npos || open == 0)
        return std::nullopt;
    std::string_view inside = text.substr(open + 1, text.size() - open - 2);
    Indices indices;
    indices.base = text.substr(0, open);
    if (!takeNumber(inside, indices.start))
        return std::nullopt;
    indices.stop = indices.start;
    indices.isRange = !inside.empty();
    if (!takeFurther(inside, indices.stop) || !takeFurther(inside, indices.step) ||
        !inside.empty() || indices.step == 0)
        return std::nullopt;
    if (marks.oneSpellingOnly && spellIndices(indices, marks) != text.substr(open))
        return std::nullopt;
    return indices;
}

std::string spellIndices(const Indices& indices, const IndexMarks& marks) {
    std::string text = marks.open + std::to_string(indices.start);
    if (indices.isRange)
        text += ':' + std::to_string(indices.stop);
    if (indices.isRange && indices.step != 1)
        text += ':' + std::to_string(indices.step);
    return text + marks.close;
}

} // namespace OpenAccess_4::impl
