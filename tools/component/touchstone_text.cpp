#include "component/touchstone_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>

namespace component {
namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f';
}

/// Takes a prefix off; answers false without it.
bool take(std::string_view& text, std::string_view prefix) {
    if (text.size() < prefix.size() || !sameWord(text.substr(0, prefix.size()), prefix))
        return false;
    text = trimmed(text.substr(prefix.size()));
    return true;
}

/// "50", "50 ohm" or "50+0j" behind the number of a port is its impedance.
bool isImpedance(std::string_view name) {
    const std::string_view word = name.substr(0, std::min(name.find(' '), name.size()));
    if (numberOf(word))
        return true;
    double real = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), real);
    const bool isComplex = end != word.data() + word.size() && (*end == '+' || *end == '-');
    return error == std::errc() && isComplex && lower(word.back()) == 'j';
}

} // namespace

std::vector<std::string_view> wordsOf(std::string_view line) {
    std::vector<std::string_view> words;
    for (std::size_t at = 0; at < line.size();) {
        while (at < line.size() && isBlank(line[at]))
            ++at;
        const std::size_t begin = at;
        while (at < line.size() && !isBlank(line[at]))
            ++at;
        if (at > begin)
            words.push_back(line.substr(begin, at - begin));
    }
    return words;
}

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool sameWord(std::string_view first, std::string_view second) {
    return std::ranges::equal(first, second, {}, lower, lower);
}

std::optional<double> numberOf(std::string_view word) {
    if (word.starts_with('+'))
        word.remove_prefix(1);
    if (word.starts_with('+'))
        return std::nullopt;
    double number = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<std::uint32_t> countOf(std::string_view word) {
    std::uint32_t count = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), count);
    if (error != std::errc() || end != word.data() + word.size())
        return std::nullopt;
    return count;
}

std::optional<std::string_view> portsOfName(std::string_view fileName) {
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos)
        return std::nullopt;
    std::string_view ending = fileName.substr(dot + 1);
    if (ending.size() < 2 || lower(ending.front()) != 's' || lower(ending.back()) != 'p')
        return std::nullopt;
    ending = ending.substr(1, ending.size() - 2);
    // Other words begin and end so too: ".step".
    const auto isLetter = [](char c) { return lower(c) >= 'a' && lower(c) <= 'z'; };
    return std::ranges::any_of(ending, isLetter) ? std::nullopt : std::optional(ending);
}

std::optional<PortName> portNameIn(std::string_view comment) {
    std::string_view rest = trimmed(comment);
    if (!take(rest, "port"))
        return std::nullopt;
    const char open = rest.empty() ? '\0' : rest.front();
    const char close = open == '[' ? ']' : open == '(' ? ')' : '\0';
    if (close != '\0' || open == '#')
        rest = trimmed(rest.substr(1));
    const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
    const auto port = countOf(rest.substr(0, digits));
    rest = trimmed(rest.substr(digits));
    if (!port || (close != '\0' && !take(rest, std::string_view(&close, 1))))
        return std::nullopt;
    if (!take(rest, "=") && !take(rest, ":"))
        return std::nullopt;
    if (rest.size() > 1 && rest.front() == '"' && rest.back() == '"')
        rest = rest.substr(1, rest.size() - 2);
    if (rest.empty() || isImpedance(rest))
        return std::nullopt;
    return PortName{*port, rest};
}

} // namespace component
