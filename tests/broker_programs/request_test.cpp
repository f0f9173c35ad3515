#include "tools/broker/request.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <sstream>

#include <gtest/gtest.h>

#include "support/files.h"
#include "support/places.h"
#include "tools/conformance/request_writer.h"

namespace broker {

namespace {

using namespace conformance;

/// Hands out bytes, so many at a time.
ByteSource portions(std::string bytes, std::size_t size) {
    return [bytes = std::move(bytes), size, position = std::size_t{0}](char* data,
                                                                       std::size_t most) mutable {
        const std::size_t taken = std::min({most, size, bytes.size() - position});
        std::memcpy(data, bytes.data() + position, taken);
        position += taken;
        return taken;
    };
}

RequestReader readerOf(const std::string& bytes, const RequestLimits& limits = {}) {
    return RequestReader(portions(bytes, bytes.size() + 1), limits);
}

Request single(const std::string& bytes) {
    RequestReader reader = readerOf(bytes);
    const std::optional<Request> request = reader.next();
    EXPECT_EQ(reader.next(), std::nullopt);
    return request.value_or(Request());
}

std::string refusal(const std::string& bytes, const RequestLimits& limits = {}) {
    try {
        readerOf(bytes, limits).next();
    } catch (const MalformedRequest& error) {
        return error.what();
    }
    return "accepted";
}

std::string noParameters() {
    return evaluate("lib", "cell", "layout") + integer(0);
}

std::string everyKind() {
    return evaluate("lib", "cell", "layout") + integer(7) + integerParameter("i", -2) +
           floatParameter("f", 0.5F) + textParameter("s", "w=5u") +
           applicationParameter("a", "app", std::string("\0\1\2", 3)) +
           doubleParameter("d", 1e300) + booleanParameter("b", true) +
           timeParameter("t", 1'700'000'000);
}

std::string withValue(char type, const std::string& value) {
    return evaluate("lib", "cell", "layout") + integer(1) + text("p") + type + value;
}

std::string ends(std::size_t bytes) {
    return "malformed request: it ends after " + std::to_string(bytes) + " bytes";
}

TEST(Request, OfLivenessIsOneByte) {
    EXPECT_EQ(single(std::string(1, '\0')),
              (Request{Command::liveness, "", "", "", "", {}, std::string(1, '\0')}));
}

TEST(Request, OfSetUpAndQuestionCarriesOneText) {
    EXPECT_EQ(
        single(std::string("\1/work\0", 7)),
        (Request{
            Command::setWorkingDirectory, "/work", "", "", "", {}, std::string("\1/work\0", 7)}));
    EXPECT_EQ(single(std::string("\2a\0", 3)).command, Command::setLibraryDefinitions);
    EXPECT_EQ(single(std::string("\3spiral\0", 8)).text, "spiral");
}

TEST(Request, OfEvaluationCarriesParametersOfEveryKind) {
    const std::vector<Parameter> parameters = {
        {"i", std::int32_t{-2}},
        {"f", 0.5F},
        {"s", std::string("w=5u")},
        {"a", ApplicationValue{"app", std::string("\0\1\2", 3)}},
        {"d", 1e300},
        {"b", true},
        {"t", TimeValue{1'700'000'000}}};
    EXPECT_EQ(single(everyKind()),
              (Request{Command::evaluate, "", "lib", "cell", "layout", parameters, everyKind()}));
}

TEST(Request, OfEvaluationMayHaveNoParameters) {
    EXPECT_EQ(noParameters(), std::string("\4lib\0cell\0layout\0\0\0\0\0", 21));
    EXPECT_EQ(single(noParameters()).parameters, std::vector<Parameter>());
    EXPECT_EQ(single(evaluate("l", "c", "v") + integer(-5)).parameters, std::vector<Parameter>());
}

TEST(Request, IsTheSameInPortionsOfAnySize) {
    const std::string bytes = everyKind() + liveness() + noParameters();
    for (std::size_t size = 1; size < bytes.size(); ++size) {
        RequestReader reader(portions(bytes, size));
        EXPECT_EQ(reader.next(), single(everyKind())) << size;
        EXPECT_EQ(reader.next(), single(liveness())) << size;
        EXPECT_EQ(reader.next(), single(noParameters())) << size;
        EXPECT_EQ(reader.next(), std::nullopt) << size;
    }
}

TEST(Request, ThatEndsTooSoonIsRefusedAtEveryByte) {
    const std::string bytes = everyKind();
    for (std::size_t size = 1; size < bytes.size(); ++size)
        EXPECT_EQ(refusal(bytes.substr(0, size)), ends(size));
}

TEST(Request, ThatIsNoneIsRefused) {
    EXPECT_EQ(refusal("\5"), "malformed request: command 5");
    EXPECT_EQ(refusal("\xff"), "malformed request: command 255");
    EXPECT_EQ(refusal(withValue('\7', "")), "malformed request: parameter type 7");
    EXPECT_EQ(refusal(withValue('\5', "\2")),
              "malformed request: a truth value that is neither 0 nor 1");
    EXPECT_EQ(refusal(withValue('\3', text("app") + integer(-1))),
              "malformed request: a value of -1 bytes");
}

TEST(Request, BeyondABoundIsRefused) {
    const RequestLimits limits = {4, 2, 64};
    EXPECT_EQ(refusal(setWorkingDirectory("12345"), limits),
              "malformed request: a text longer than 4 bytes");
    EXPECT_EQ(refusal(setWorkingDirectory("1234"), limits), "accepted");
    EXPECT_EQ(refusal(evaluate("l", "c", "v") + integer(3), limits),
              "malformed request: 3 parameters");
    EXPECT_EQ(refusal(evaluate("l", "c", "v") + integer(1) +
                          applicationParameter("a", "t", std::string(80, 'x')),
                      limits),
              "malformed request: longer than 64 bytes");
}

TEST(Request, AnnouncingMuchTakesNoMemoryForIt) {
    EXPECT_EQ(refusal(withValue('\3', text("app") + integer(0x7fffffff) + "few")), ends(35));
    EXPECT_EQ(refusal(evaluate("l", "c", "v") + integer(0x7fffffff)),
              "malformed request: 2147483647 parameters");
}

TEST(Request, MayFollowATextThatIsNone) {
    RequestReader reader = readerOf(text("token") + liveness());
    EXPECT_EQ(reader.nextText(), "token");
    EXPECT_EQ(reader.next(), single(liveness()));
    EXPECT_EQ(reader.nextText(), std::nullopt);
}

/// The bytes that go to the broker in the example of the documentation.
std::string bytesOfExample() {
    std::istringstream lines(
        ovalis::test::readText(ovalis::test::sourceTree() / "docs" / "broker.md"));
    std::string bytes;
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("> "))
            continue;
        std::istringstream words(line.substr(2));
        for (std::string word; words >> word && word.size() == 2 && std::isxdigit(word[0]);)
            bytes += static_cast<char>(std::stoi(word, nullptr, 16));
    }
    return bytes;
}

TEST(Request, OfTheDocumentationIsOne) {
    EXPECT_EQ(bytesOfExample(), liveness() + canEvaluate("spiral") + setWorkingDirectory("/w") +
                                    setLibraryDefinitions("/w/lib.defs") + liveness() +
                                    evaluate("lib", "coil", "layout") + integer(1) +
                                    integerParameter("n", 3));
}

} // namespace

} // namespace broker
