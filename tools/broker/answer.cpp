#include "tools/broker/answer.h"

namespace broker {

namespace {

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xc0U) == 0x80U;
}

} // namespace

std::string encode(const Answer& answer) {
    std::string text = answer.text.substr(0, answer.text.find('\0'));
    if (text.size() > longestAnswer) {
        std::size_t size = longestAnswer;
        while (size > 0 && continuesCharacter(text[size]))
            --size;
        text.resize(size);
    }
    return (answer.success ? '\1' : '\0') + text + '\0';
}

std::string errorText(std::string_view name, unsigned long long code, std::string_view what) {
    constexpr unsigned long long largest = 0x7fffffff;
    constexpr unsigned long long general = 2;
    return std::string(name) + ": Error[" + std::to_string(code <= largest ? code : general) +
           "]: " + std::string(what);
}

} // namespace broker
