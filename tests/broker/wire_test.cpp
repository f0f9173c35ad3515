#include "broker/wire.h"

#include <ios>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

using namespace pcellBrokerClient;

namespace {

using namespace std::string_literals;

/// A stream that takes some bytes and then nothing more, and cannot be flushed.
class NarrowStream : public std::streambuf {
public:
    explicit NarrowStream(int room) : room_(room) {}

protected:
    int_type overflow(int_type c) override {
        return room_-- > 0 ? traits_type::not_eof(c) : traits_type::eof();
    }
    int sync() override { return -1; }

private:
    int room_;
};

template <class Write>
std::string bytesOf(Write write) {
    std::stringbuf stream;
    write(stream);
    return stream.str();
}

std::string bytesOf(const oa::oaParamArray& params) {
    return bytesOf([&](std::streambuf& stream) { writeParamArray(stream, params); });
}

std::string bytesOf(oa::oaParam param) {
    param.setName("w");
    return bytesOf(oa::oaParamArray(&param, 1));
}

/// What `action` throws, and whether that is a failure of a stream.
template <class Action>
std::string failureOf(Action action) {
    try {
        action();
    } catch (const std::ios_base::failure& failure) {
        return "stream: "s + failure.what();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

const std::string oneParam = "\1\0\0\0w\0"s;

} // namespace

TEST(Wire, CommandsAreSingleBytes) {
    const auto write = [](std::streambuf& stream) {
        for (const Command command :
             {Command::liveness, Command::setWorkingDirectory, Command::setLibraryDefinitions,
              Command::canEvaluate, Command::evaluate}) {
            writeCommand(stream, command);
        }
    };
    EXPECT_EQ(bytesOf(write), "\0\1\2\3\4"s);
}

TEST(Wire, IntegersHaveTheLowestByteFirst) {
    const auto write = [](std::streambuf& stream) {
        writeInteger(stream, 0x01020304);
        writeInteger(stream, -2);
    };
    EXPECT_EQ(bytesOf(write), "\x04\x03\x02\x01\xfe\xff\xff\xff"s);
}

TEST(Wire, TextsEndInAZeroByte) {
    const auto write = [](std::streambuf& stream) {
        writeText(stream, "gr\xc3\xb6\xc3\x9f"
                          "e");
        writeText(stream, "");
    };
    EXPECT_EQ(bytesOf(write), "gr\xc3\xb6\xc3\x9f"
                              "e\0\0"s);
}

TEST(Wire, NoParametersAreFourZeroBytes) {
    EXPECT_EQ(bytesOf(oa::oaParamArray()), "\0\0\0\0"s);
}

TEST(Wire, EachKindOfParameterHasItsBytes) {
    oa::oaParam param;
    param.setIntVal(-3);
    EXPECT_EQ(bytesOf(param), oneParam + "\0\xfd\xff\xff\xff"s);
    param.setFloatVal(1.5F);
    EXPECT_EQ(bytesOf(param), oneParam + "\1\0\0\xc0\x3f"s);
    param.setStringVal("ab");
    EXPECT_EQ(bytesOf(param), oneParam + "\2ab\0"s);
    param.setDoubleVal(-0.1);
    EXPECT_EQ(bytesOf(param), oneParam + "\4\x9a\x99\x99\x99\x99\x99\xb9\xbf"s);
    param.setBooleanVal(true);
    EXPECT_EQ(bytesOf(param), oneParam + "\5\1"s);
    param.setBooleanVal(false);
    EXPECT_EQ(bytesOf(param), oneParam + "\5\0"s);
    param.setTimeVal(0x0102030405060708);
    EXPECT_EQ(bytesOf(param), oneParam + "\6\x08\x07\x06\x05\x04\x03\x02\x01"s);
    const oa::oaByte data[] = {0, 255, 7};
    EXPECT_EQ(bytesOf(oa::oaParam("w", "app", 3, data)), oneParam + "\3app\0\3\0\0\0\0\xff\7"s);
}

TEST(Wire, EmptyValuesAreSentAsSuch) {
    oa::oaParam param;
    param.setStringVal("");
    EXPECT_EQ(bytesOf(param), oneParam + "\2\0"s);
    EXPECT_EQ(bytesOf(oa::oaParam("w", "app", 0, nullptr)), oneParam + "\3app\0\0\0\0\0"s);
}

TEST(Wire, ParametersKeepTheirOrderAndTheirDoubles) {
    const oa::oaParam params[] = {oa::oaParam("w", 1), oa::oaParam("a", 2), oa::oaParam("w", 3)};
    EXPECT_EQ(bytesOf(oa::oaParamArray(params, 3)),
              "\3\0\0\0"s + "w\0\0\1\0\0\0"s + "a\0\0\2\0\0\0"s + "w\0\0\3\0\0\0"s);
}

TEST(Wire, OtherKindsOfParametersAreRefused) {
    std::stringbuf stream;
    EXPECT_EQ(failureOf([&] { writeParamValue(stream, 7, oa::oaParam()); }),
              "pcellBrokerCommon::serializeOaParamArray: unsupported parameter type 7");
    EXPECT_EQ(failureOf([&] { writeParamValue(stream, 4000000000U, oa::oaParam()); }),
              "pcellBrokerCommon::serializeOaParamArray: unsupported parameter type 4000000000");
    EXPECT_EQ(stream.str(), "");
}

TEST(Wire, AStreamThatTakesNoMoreIsAFailure) {
    NarrowStream full(0);
    EXPECT_EQ(failureOf([&] { writeByte(full, 1); }), "stream: std::streambuf::sputc failed");
    EXPECT_EQ(failureOf([&] { writeInteger(full, 1); }), "stream: std::streambuf::sputn failed");
    EXPECT_EQ(failureOf([&] { writeText(full, "a"); }), "stream: std::streambuf::sputn failed");
    EXPECT_EQ(failureOf([&] { flush(full); }), "std::streambuf::pubsync failed");
    const oa::oaParam param("w", 1);
    NarrowStream count(4 + 2);
    EXPECT_EQ(failureOf([&] { writeParamArray(count, oa::oaParamArray(&param, 1)); }),
              "stream: std::streambuf::sputc failed");
}

TEST(Wire, ReadsBytesAndTexts) {
    std::stringbuf stream("\xff"
                          "ab\0\0c"s);
    EXPECT_EQ(readByte(stream), 255);
    EXPECT_EQ(readText(stream), "ab");
    EXPECT_EQ(readText(stream), "");
    EXPECT_EQ(failureOf([&] { readText(stream); }), "stream: std::streambuf::sbumpc failed");
    EXPECT_EQ(failureOf([&] { readByte(stream); }), "stream: std::streambuf::sbumpc failed");
}

TEST(Wire, ATextWithoutEndIsAFailure) {
    std::stringbuf longest(std::string(longestText, 'x') + '\0');
    EXPECT_EQ(readText(longest).size(), longestText);
    std::stringbuf endless(std::string(longestText + 1, 'x') + '\0');
    EXPECT_EQ(failureOf([&] { readText(endless); }), "stream: std::streambuf::sbumpc failed");
}
