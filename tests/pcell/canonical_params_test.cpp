#include <algorithm>
#include <cstring>
#include <sstream>
#include <stdexcept>

#include <gtest/gtest.h>

#include "core/param_encoding.h"
#include "pcell/canonical_params.h"

using namespace ovalis;
using namespace std::string_literals;

namespace oa = OpenAccess_4;

namespace {

oa::oaParam intParam(const char* name, oa::oaInt4 value) {
    return {name, value};
}

oa::oaParam stringParam(const char* name, const char* value) {
    return {name, oa::oaString(value)};
}

oa::oaParam booleanParam(const char* name, bool value) {
    oa::oaParam param;
    param.setName(name);
    param.setBooleanVal(value);
    return param;
}

oa::oaParam timeParam(const char* name, oa::oaTime value) {
    oa::oaParam param;
    param.setName(name);
    param.setTimeVal(value);
    return param;
}

oa::oaParam appParam(const char* name, const char* type, std::string_view bytes) {
    return {name, type, static_cast<oa::oaUInt4>(bytes.size()),
            reinterpret_cast<const oa::oaByte*>(bytes.data())};
}

oa::oaParamArray arrayOf(const std::vector<oa::oaParam>& params) {
    return {params.data(), static_cast<oa::oaUInt4>(params.size())};
}

/// The bytes of an array, the same from the buffer and from the stream.
std::string bytesOf(const std::vector<oa::oaParam>& params) {
    const oa::oaParamArray array = arrayOf(params);
    ByteBuffer buffer;
    CanonicalParams(array).appendTo(buffer);
    std::stringbuf stream;
    serialize_oa_param_array(stream, array);
    EXPECT_EQ(stream.str(), buffer.view());
    return std::string(buffer.view());
}

/// Takes some bytes and refuses those after them.
class FullStream : public std::streambuf {
public:
    explicit FullStream(std::size_t room) : room_(room) {}

protected:
    int_type overflow(int_type c) override {
        if (room_ == 0) {
            return traits_type::eof();
        }
        --room_;
        return traits_type::not_eof(c);
    }

private:
    std::size_t room_;
};

/// What stops the writing into a stream with room for so many bytes.
std::string failureAfter(std::size_t room, const oa::oaParamArray& params) {
    FullStream stream(room);
    try {
        serialize_oa_param_array(stream, params);
    } catch (const std::ios_base::failure& failure) {
        return failure.what();
    }
    return "nothing thrown";
}

} // namespace

TEST(CanonicalParams, AreTheirNumberAloneWhenThereAreNone) {
    EXPECT_EQ(bytesOf({}), "\0\0\0\0"s);
}

TEST(CanonicalParams, HoldEachTypeInItsOwnForm) {
    const std::pair<oa::oaParam, std::string> table[] = {
        {intParam("p", 0x01020304), "\0\4\3\2\1"s},
        {intParam("p", -2), "\0\xFE\xFF\xFF\xFF"s},
        {intParam("p", 0), "\0\0\0\0\0"s},
        {oa::oaParam("p", oa::oaFloat(0.15625F)), "\1\0\0\x20\x3E"s},
        {oa::oaParam("p", oa::oaFloat(-0.0F)), "\1\0\0\0\x80"s},
        {stringParam("p", "top metal"), "\2top metal\0"s},
        {stringParam("p", "größe"), "\2gr\xC3\xB6\xC3\x9F"
                                    "e\0"s},
        {stringParam("p", ""), "\2\0"s},
        {appParam("p", "list", "a\0b"s), "\3list\0\3\0\0\0a\0b"s},
        {appParam("p", "list", ""), "\3list\0\0\0\0\0"s},
        {appParam("p", "", "\xFF"), "\3\0\1\0\0\0\xFF"s},
        {oa::oaParam("p", 1.5), "\4\0\0\0\0\0\0\xF8\x3F"s},
        {oa::oaParam("p", -0.1), "\4\x9A\x99\x99\x99\x99\x99\xB9\xBF"s},
        {booleanParam("p", true), "\5\1"s},
        {booleanParam("p", false), "\5\0"s},
        {timeParam("p", 0x0102030405060708), "\6\x08\7\6\5\4\3\2\1"s},
        {timeParam("p", -1), "\6\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"s},
    };
    for (const auto& [param, value] : table) {
        EXPECT_EQ(bytesOf({param}), "\1\0\0\0p\0"s + value);
    }
}

TEST(CanonicalParams, AreSortedByTheBytesOfTheirNames) {
    std::vector<oa::oaParam> params = {intParam("width", 1),        intParam("w", 2),
                                       intParam("Width", 3),        intParam("", 4),
                                       intParam("größe", 5),        intParam("gr", 6),
                                       intParam("widthOfMetal", 7), intParam("widthOf", 8),
                                       intParam("w2", 9),           intParam("widthOfMetal1", 10)};
    const auto entry = [](const char* name, char value) {
        return std::string(name) + "\0\0"s + value + "\0\0\0"s;
    };
    const std::string expected = "\x0A\0\0\0"s + entry("", 4) + entry("Width", 3) + entry("gr", 6) +
                                 entry("größe", 5) + entry("w", 2) + entry("w2", 9) +
                                 entry("width", 1) + entry("widthOf", 8) +
                                 entry("widthOfMetal", 7) + entry("widthOfMetal1", 10);
    EXPECT_EQ(bytesOf(params), expected);
    std::reverse(params.begin(), params.end());
    EXPECT_EQ(bytesOf(params), expected);
    for (std::size_t i = 0; i < params.size(); ++i) {
        std::rotate(params.begin(), params.begin() + 1, params.end());
        EXPECT_EQ(bytesOf(params), expected) << i;
    }
}

TEST(CanonicalParams, HoldTheLastOfOneNameAndCountAll) {
    EXPECT_EQ(bytesOf({intParam("w", 1), intParam("w", 2)}), "\2\0\0\0w\0\0\2\0\0\0"s);
    EXPECT_EQ(bytesOf({stringParam("w", "x"), intParam("l", 7), intParam("w", 2),
                       intParam("widthOfMetal", 1), intParam("widthOfMetal", 3),
                       booleanParam("w", true)}),
              "\6\0\0\0l\0\0\7\0\0\0w\0\5\1widthOfMetal\0\0\3\0\0\0"s);
}

TEST(CanonicalParams, SayWhichElementsAreWritten) {
    const oa::oaParamArray params =
        arrayOf({intParam("w", 1), intParam("l", 2), intParam("w", 3), intParam("a", 4)});
    EXPECT_EQ(CanonicalParams(params).order(), (std::vector<oa::oaUInt4>{3, 1, 2}));
}

TEST(CanonicalParams, MayBeManyAndLong) {
    std::vector<oa::oaParam> params;
    std::string expected = "\xE8\3\0\0"s; // a thousand
    for (int i = 0; i < 1000; ++i) {
        const std::string name = "parameter" + std::to_string(1000 + i);
        const std::string value(static_cast<std::size_t>(i), 'v');
        params.push_back(stringParam(name.c_str(), value.c_str()));
        expected += name + "\0\2"s + value + '\0';
    }
    std::reverse(params.begin(), params.end());
    EXPECT_EQ(bytesOf(params), expected);
}

TEST(CanonicalParams, SayHowAStreamRefusedThem) {
    const std::string single = "std::streambuf::sputc in vexPcellCache::serialize_oa_param_array";
    const std::string several = "std::streambuf::sputn in vexPcellCache::serialize_oa_param_array";
    const oa::oaParamArray params = arrayOf({intParam("ab", 1), booleanParam("c", true)});
    // The number and the name; the type alone; value and name; the type and the truth value alone.
    const std::size_t size = 4 + 3 + 1 + 4 + 2 + 1 + 1;
    for (std::size_t room = 0; room < size; ++room) {
        const bool isSingle = room == 7 || room == 14 || room == 15;
        EXPECT_EQ(failureAfter(room, params), isSingle ? single : several) << room;
    }
    EXPECT_EQ(failureAfter(size, params), "nothing thrown");
}

// A parameter of the embedded database has one of the types above whatever is done to it, so an
// array with another one, as later databases may have, cannot be made here.
TEST(ParamEncoding, LeavesOutValuesOfAnUnknownType) {
    ByteBuffer bytes;
    for (const oa::oaUInt4 type : {7U, 200U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(encodeParamValue(bytes, type, intParam("p", 1)));
    }
    EXPECT_EQ(bytes.size(), 0U);
}

TEST(ParamEncoding, NamesAnUnknownTypeInItsFailure) {
    std::string told = "nothing thrown";
    try {
        failForParamType(7);
    } catch (const std::runtime_error& error) {
        told = error.what();
    }
    EXPECT_EQ(told, "serialize_oa_param_array: unsupported parameter type 7");
}
