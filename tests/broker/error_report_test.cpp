#include "broker/error_report.h"

#include <random>
#include <regex>
#include <stdexcept>

#include <gtest/gtest.h>

#include <oa/oaDesignDB.h>

using namespace pcellBrokerClient;

namespace pcellBrokerClient {

void PrintTo(const ErrorReport& report, std::ostream* stream) {
    *stream << report.code << " '" << report.message << "'";
}

} // namespace pcellBrokerClient

namespace {

template <class Error>
ErrorReport reportOf(const Error& error) {
    try {
        throw error;
    } catch (...) {
        return currentReport();
    }
}

/// The same by the expression that lays down what a number in a text looks like.
ErrorReport parsedByExpression(const std::string& text) {
    static const std::regex expression("(:\\s*Error\\[)(\\d+)(\\]:\\s*)");
    std::smatch match;
    if (!std::regex_search(text, match, expression)) {
        return {text, 2};
    }
    std::string message = match.suffix();
    message.erase(message.find_last_not_of(" \n\r\t\f\v") + 1);
    return {message, static_cast<std::uint32_t>(std::stoi(match[2]))};
}

/// An exception of a plug-in that has no text.
struct Wordless : oaCommon::ExceptionBase {
    Wordless() : ExceptionBase(17, "") {}
    const char* getMsg() const override { return nullptr; }
};

template <class Error>
std::optional<std::string> messageOf(const Error& error) {
    try {
        throw error;
    } catch (...) {
        return currentMessage();
    }
}

} // namespace

TEST(ErrorReport, TakesNumberAndMessageOfADatabase) {
    EXPECT_EQ(parseReport("eval failed: Error[1234]: bad width\r\n"),
              (ErrorReport{"bad width", 1234}));
    EXPECT_EQ(parseReport(":Error[0]:"), (ErrorReport{"", 0}));
    EXPECT_EQ(parseReport("a :\t\nError[0007]:\v\fb c \t\v\f"), (ErrorReport{"b c", 7}));
    EXPECT_EQ(parseReport("a: Error[1]: b: Error[2]: c"), (ErrorReport{"b: Error[2]: c", 1}));
    EXPECT_EQ(parseReport("a: Error[2147483647]: b"), (ErrorReport{"b", 2147483647}));
}

TEST(ErrorReport, KeepsATextWithoutANumber) {
    for (const std::string text :
         {"crash", "", " crash \n", "Error[1]: a", "a Error[1]: b", ": Error[]: a", ": Error[1] a",
          ": Error[1: a", ": Error[1", ": Error[-1]: a", ": Error[x]: a", ": error[1]: a",
          ": Error [1]: a", "a: Error["}) {
        EXPECT_EQ(parseReport(text), (ErrorReport{text, 2}));
    }
}

TEST(ErrorReport, GoesOnBehindWhatOnlyLooksLikeANumber) {
    EXPECT_EQ(parseReport(": Error[x]: a: Error[5]: b"), (ErrorReport{"b", 5}));
    EXPECT_EQ(parseReport("Error[4]: Error[5]: b"), (ErrorReport{"b", 5}));
    EXPECT_EQ(parseReport(": Error[: Error[5]: b"), (ErrorReport{"b", 5}));
}

TEST(ErrorReport, RefusesNumbersOfMoreThanThirtyTwoBits) {
    for (const std::string text :
         {"a: Error[2147483648]: b", "a: Error[99999999999999999999]: b"}) {
        try {
            parseReport(text);
            ADD_FAILURE() << text;
        } catch (const std::out_of_range& error) {
            EXPECT_STREQ(error.what(), "stoi argument out of range");
        }
    }
}

TEST(ErrorReport, FindsWhatTheExpressionFinds) {
    const std::string parts[] = {":", " ",     "Error[", "1",  "23", "]:", "]",        "[",   "\n",
                                 "a", "Error", "\r",     "\t", "\v", "\f", ": Error[", "4]: "};
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (unsigned part = random() % 9; part > 0; --part) {
            text += parts[random() % std::size(parts)];
        }
        ASSERT_EQ(parseReport(text), parsedByExpression(text)) << text;
    }
}

TEST(ErrorReport, TakesTextsOfAnyLength) {
    const std::string blanks(1'000'000, ' ');
    EXPECT_EQ(parseReport(":" + blanks + "Error[1]:" + blanks + "a" + blanks),
              (ErrorReport{"a", 1}));
    const std::string zeros(1'000'000, '0');
    EXPECT_EQ(parseReport(": Error[" + zeros + "1]: a"), (ErrorReport{"a", 1}));
}

TEST(ErrorReport, ExceptionsOfTheDatabaseCountAsTheyAre) {
    const oa::oaDesignError error(oa::oacPcellLinkExists, ": Error[5]: a");
    EXPECT_EQ(reportOf(error),
              (ErrorReport{static_cast<const oa::oaChar*>(error.getMsg()), evaluationFailed}));
    EXPECT_EQ(reportOf(oaCommon::ExceptionBase(17, ": Error[5]: a")),
              (ErrorReport{": Error[5]: a", 2}));
    EXPECT_EQ(reportOf(std::runtime_error(": Error[5]: a")), (ErrorReport{"a", 5}));
    EXPECT_EQ(reportOf(std::logic_error("crash")), (ErrorReport{"crash", 2}));
    EXPECT_EQ(reportOf(1), (ErrorReport{"unknown error", 2}));
}

TEST(ErrorReport, AnExceptionMayHaveNoText) {
    EXPECT_EQ(messageOf(oaCommon::ExceptionBase(17, "text")), "text");
    EXPECT_EQ(messageOf(Wordless()), std::nullopt);
    EXPECT_EQ(messageOf(1), std::nullopt);
    EXPECT_EQ(reportOf(Wordless()), (ErrorReport{"unknown error", 2}));
}
