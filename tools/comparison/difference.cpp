#include "comparison/difference.h"

#include <algorithm>

namespace comparison {
namespace {

// Longer texts are cut.
constexpr std::size_t longest = 120;
// So much of a cut text stands before the place where it differs from the other one.
constexpr std::size_t before = 20;

/// True within a character of several bytes.
bool isInside(const std::string& text, std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
}

std::string cut(const std::string& text, std::size_t from) {
    if (text.size() <= longest)
        return text;
    from = std::min(from, text.size() - longest);
    while (from > 0 && isInside(text, from))
        --from;
    std::size_t end = std::min(text.size(), from + longest);
    while (isInside(text, end))
        --end;
    return (from > 0 ? "..." : "") + text.substr(from, end - from) +
           (end < text.size() ? "..." : "");
}

std::size_t firstDifference(const std::string& was, const std::string& is) {
    const auto [at, other] = std::mismatch(was.begin(), was.end(), is.begin(), is.end());
    const std::size_t same = std::size_t(at - was.begin());
    return same > before ? same - before : 0;
}

} // namespace

const char* nameOf(Difference::Kind kind) {
    constexpr const char* names[] = {"added", "removed", "changed", "moved", "renamed"};
    return names[static_cast<int>(kind)];
}

std::string textOf(const Difference& difference) {
    using Kind = Difference::Kind;
    const std::string subject = difference.place + ": " + difference.object;
    const std::string attribute = ": " + difference.attribute;
    switch (difference.kind) {
    case Kind::moved:
        return subject + " moved by " + difference.is;
    case Kind::renamed:
        return subject + " renamed to " + difference.is;
    case Kind::changed: {
        const std::size_t from = firstDifference(difference.was, difference.is);
        return subject + attribute + " was " + cut(difference.was, from) + ", is " +
               cut(difference.is, from);
    }
    default:
        break;
    }
    const bool added = difference.kind == Kind::added;
    const std::string& value = added ? difference.is : difference.was;
    return subject + (difference.attribute.empty() ? "" : attribute) + ' ' +
           nameOf(difference.kind) + (value.empty() ? "" : ": " + cut(value, 0));
}

void Place::tell(Difference difference) const {
    difference.place = name_;
    listener_.differs(difference);
}

void Place::added(const std::string& object) const {
    tell({Difference::Kind::added, "", object, "", "", ""});
}

void Place::removed(const std::string& object) const {
    tell({Difference::Kind::removed, "", object, "", "", ""});
}

void Place::renamed(const std::string& object, const std::string& name) const {
    tell({Difference::Kind::renamed, "", object, "", "", name});
}

void Place::moved(const std::string& object, const std::string& way) const {
    tell({Difference::Kind::moved, "", object, "", "", way});
}

} // namespace comparison
