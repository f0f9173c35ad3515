#include "broker/error_report.h"

#include <charconv>
#include <exception>
#include <stdexcept>
#include <string_view>

#include <oa/oaDesignDB.h>

namespace pcellBrokerClient {

namespace {

constexpr const char* unknownError = "unknown error";

constexpr std::string_view blanks = " \t\n\v\f\r";

/// Where the number and the message of a database stand in a text.
struct Match {
    std::string_view digits;
    std::string_view message;
};

std::string_view withoutLeadingBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(blanks), text.size()));
}

std::string_view withoutTrailingBlanks(std::string_view text) {
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

bool endsInColon(std::string_view before) {
    return withoutTrailingBlanks(before).ends_with(':');
}

// By hand, because the texts come from outside: the standard library's matcher calls itself for
// every blank and every digit that it passes, and a long row of them would take all of the stack.
std::optional<Match> findMatch(std::string_view text) {
    constexpr std::string_view opening = "Error[";
    constexpr std::string_view closing = "]:";
    for (std::size_t at = text.find(opening); at != std::string_view::npos;
         at = text.find(opening, at + 1)) {
        const std::string_view rest = text.substr(at + opening.size());
        const std::size_t digits = std::min(rest.find_first_not_of("0123456789"), rest.size());
        if (digits == 0 || !rest.substr(digits).starts_with(closing) ||
            !endsInColon(text.substr(0, at))) {
            continue;
        }
        return Match{rest.substr(0, digits),
                     withoutLeadingBlanks(rest.substr(digits + closing.size()))};
    }
    return std::nullopt;
}

std::uint32_t numberOf(std::string_view digits) {
    std::int32_t number = 0;
    if (std::from_chars(digits.data(), digits.data() + digits.size(), number).ec != std::errc()) {
        throw std::out_of_range("stoi argument out of range");
    }
    return static_cast<std::uint32_t>(number);
}

// A foreign exception may have no text at all.
std::optional<std::string> messageOf(const oaCommon::IException& error) {
    const char* const message = error.getMsg();
    return message != nullptr ? std::optional<std::string>(message) : std::nullopt;
}

} // namespace

std::optional<std::string> currentMessage() {
    try {
        throw;
    } catch (const oa::oaException& error) {
        return std::string(static_cast<const oa::oaChar*>(error.getMsg()));
    } catch (const oaCommon::IException& error) {
        return messageOf(error);
    } catch (const std::exception& error) {
        return std::string(error.what());
    } catch (...) {
        return std::nullopt;
    }
}

ErrorReport parseReport(const std::string& text) {
    const std::optional<Match> match = findMatch(text);
    if (!match) {
        return {text, evaluationFailed};
    }
    return {std::string(withoutTrailingBlanks(match->message)), numberOf(match->digits)};
}

ErrorReport currentReport() {
    try {
        throw;
    } catch (const oa::oaException& error) {
        return {static_cast<const oa::oaChar*>(error.getMsg()), evaluationFailed};
    } catch (const oaCommon::IException& error) {
        return {messageOf(error).value_or(unknownError), evaluationFailed};
    } catch (const std::exception& error) {
        return parseReport(error.what());
    } catch (...) {
        return {unknownError, evaluationFailed};
    }
}

} // namespace pcellBrokerClient
