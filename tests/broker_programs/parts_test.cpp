// Answers, settings, the talk of a worker and the directory of results.

#include "tools/broker/answer.h"
#include "tools/broker/result_directory.h"
#include "tools/broker/settings.h"
#include "tools/broker/talk.h"

#include <memory>
#include <set>

#include "broker_tests.h"

namespace broker::test {

namespace {

using ovalis::test::EnvironmentOverride;

TEST(BrokerAnswer, IsStatusAndTerminatedText) {
    EXPECT_EQ(encode({true, "/tmp/result"}), std::string("\1/tmp/result\0", 13));
    EXPECT_EQ(encode({false, ""}), std::string("\0\0", 2));
    EXPECT_EQ(encode({false, std::string("a\0b", 3)}), std::string("\0a\0", 3));
}

TEST(BrokerAnswer, IsCutAtAWholeCharacter) {
    const std::string full(longestAnswer, 'x');
    EXPECT_EQ(encode({false, full + "y"}), '\0' + full + '\0');
    const std::string start = full.substr(1);
    EXPECT_EQ(encode({false, start + "ö"}), '\0' + start + '\0');
}

TEST(BrokerAnswer, CarriesACodeThatFits31Bits) {
    EXPECT_EQ(errorText("pcellBroker6", 1234, "bad width"), "pcellBroker6: Error[1234]: bad width");
    EXPECT_EQ(errorText("b", 0x7fffffff, "m"), "b: Error[2147483647]: m");
    EXPECT_EQ(errorText("b", 0x80000000, "m"), "b: Error[2]: m");
}

Settings settingsOf(const char* seconds, const char* megabytes,
                    std::vector<std::string>& complaints) {
    const EnvironmentOverride first("PCELLBROKER_EVALUATION_SECONDS", seconds);
    const EnvironmentOverride second("PCELLBROKER_EVALUATION_MEGABYTES", megabytes);
    return readSettings(complaints);
}

TEST(BrokerSettings, AreThoseOfTheEnvironment) {
    std::vector<std::string> complaints;
    const Settings settings = settingsOf("1.5", "64", complaints);
    EXPECT_EQ(settings.deadline, 1500ms);
    EXPECT_EQ(settings.memory, std::uint64_t{64} << 20);
    EXPECT_EQ(settingsOf("2", "0", complaints).memory, 0u);
    EXPECT_EQ(complaints, std::vector<std::string>());
}

TEST(BrokerSettings, KeepTheirDefaultsWhenTheEnvironmentSaysNothingUsable) {
    std::vector<std::string> complaints;
    for (const char* text : {"", "abc", "-1", "0", "1 ", "1e3", "nan", "inf", "99999999"}) {
        const Settings settings = settingsOf(text, "4 GB", complaints);
        EXPECT_EQ(settings.deadline, 300s) << text;
        EXPECT_EQ(settings.memory, std::uint64_t{4096} << 20);
    }
    EXPECT_EQ(complaints.size(), 8u + 9u);
    EXPECT_EQ(complaints.front(), "PCELLBROKER_EVALUATION_MEGABYTES: no usable number: '4 GB'");
    EXPECT_EQ(complaints[1], "PCELLBROKER_EVALUATION_SECONDS: no usable number: 'abc'");
}

std::string lastOf(const std::string& said) {
    Talk talk;
    talk.add(said.data(), said.size());
    return talk.lastLines();
}

TEST(WorkerTalk, IsRememberedByItsLastLines) {
    EXPECT_EQ(lastOf(""), "");
    EXPECT_EQ(lastOf("one\r\n\ntwo"), "one\ntwo");
    EXPECT_EQ(lastOf("1\n2\n3\n4\n5\n6\n7\n8\n9\n"), "2\n3\n4\n5\n6\n7\n8\n9");
    EXPECT_EQ(lastOf(std::string(1000, 'x') + "\nend\n"), std::string(240, 'x') + "\nend");
}

TEST(ResultToken, IsLongAndNeverTheSame) {
    std::set<std::string> tokens;
    for (int number = 0; number < 100; ++number)
        tokens.insert(unguessableToken());
    EXPECT_EQ(tokens.size(), 100u);
    for (const std::string& token : tokens) {
        EXPECT_EQ(token.size(), 32u);
        EXPECT_EQ(token.find_first_not_of("0123456789abcdef"), std::string::npos);
    }
}

class ResultDirectoryTest : public BrokerTest {};

TEST_F(ResultDirectoryTest, IsMadeAndRemovedWithAllInIt) {
    {
        const ResultDirectory first;
        const ResultDirectory second;
        EXPECT_EQ(leftovers(), 2u);
        EXPECT_NE(first.path(), second.path());
        const std::string path = first.resultPath("0123");
        EXPECT_EQ(path, platform::joinPath(first.path(), "0123.pcell"));
        platform::File(path, platform::OpenMode::write).write("x", 1);
    }
    EXPECT_EQ(leftovers(), 0u);
}

} // namespace

} // namespace broker::test
