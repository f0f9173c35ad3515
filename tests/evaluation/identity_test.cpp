#include "evaluation/identity.h"

#include <stdexcept>

#include <gtest/gtest.h>

#include "evaluation/parameters.h"

namespace evaluation {

void PrintTo(const IdentityField& field, std::ostream* stream) {
    *stream << field.label << " [" << field.bytes.size() << " bytes] " << field.text;
}

namespace {

using namespace std::string_literals;

TEST(Identity, ComesApartIntoItsFields) {
    oa::oaParamArray params =
        declaredParams({"w:double=2.5", "n:int=-2", "s:string=ab", "b:boolean=true",
                        "t:time=4294967296", "f:float=0.5"});
    const oa::oaByte data[] = {7, 0, 9};
    params.append(oa::oaParam("x", "tool", 3, data));
    const std::string bytes = ovalis::identifySubmaster("lib", "cell", "view", params).bytes;
    const std::vector<IdentityField> expected = {
        {"library", "lib\0"s, "\"lib\""},
        {"cell", "cell\0"s, "\"cell\""},
        {"view", "view\0"s, "\"view\""},
        {"parameters", "\7\0\0\0"s, "7"},
        {"parameter 1 name", "b\0"s, "\"b\""},
        {"parameter 1 type", "\5"s, "boolean"},
        {"parameter 1 value", "\1"s, "true"},
        {"parameter 2 name", "f\0"s, "\"f\""},
        {"parameter 2 type", "\1"s, "float"},
        {"parameter 2 value", "\0\0\0\x3f"s, "0.5"},
        {"parameter 3 name", "n\0"s, "\"n\""},
        {"parameter 3 type", "\0"s, "int"},
        {"parameter 3 value", "\xfe\xff\xff\xff"s, "-2"},
        {"parameter 4 name", "s\0"s, "\"s\""},
        {"parameter 4 type", "\2"s, "string"},
        {"parameter 4 value", "ab\0"s, "\"ab\""},
        {"parameter 5 name", "t\0"s, "\"t\""},
        {"parameter 5 type", "\6"s, "time"},
        {"parameter 5 value", "\0\0\0\0\1\0\0\0"s, "4294967296"},
        {"parameter 6 name", "w\0"s, "\"w\""},
        {"parameter 6 type", "\4"s, "double"},
        {"parameter 6 value", "\0\0\0\0\0\0\4\x40"s, "2.5"},
        {"parameter 7 name", "x\0"s, "\"x\""},
        {"parameter 7 type", "\3"s, "app"},
        {"parameter 7 app type", "tool\0"s, "\"tool\""},
        {"parameter 7 size", "\3\0\0\0"s, "3"},
        {"parameter 7 value", "\7\0\11"s, ""},
    };
    const std::vector<IdentityField> fields = fieldsOf(bytes);
    EXPECT_EQ(fields, expected);
    std::string together;
    for (const IdentityField& field : fields)
        together += field.bytes;
    EXPECT_EQ(together, bytes);
}

TEST(Identity, BytesThatEndTooSoonOrHaveAnUnknownTypeAreNone) {
    const std::string bytes =
        ovalis::identifySubmaster("l", "c", "v", declaredParams({"n:int=1"})).bytes;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        // Ten bytes are whole: three names and the number of parameters.
        if (size == 10)
            continue;
        EXPECT_THROW(fieldsOf(bytes.substr(0, size)), std::runtime_error) << size;
    }
    std::string unknown = bytes;
    unknown[12] = 7;
    EXPECT_THROW(fieldsOf(unknown), std::runtime_error);
}

} // namespace
} // namespace evaluation
