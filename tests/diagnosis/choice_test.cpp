#include "diagnosis/installation.h"

namespace diagnosis {

bool operator==(const Attempt& a, const Attempt& b) {
    return a.apiVersion == b.apiVersion && a.way == b.way && a.program == b.program &&
           a.works == b.works && a.answer == b.answer;
}

void PrintTo(const Attempt& attempt, std::ostream* stream) {
    *stream << attempt.apiVersion << " (" << attempt.way << ") " << attempt.program << ": "
            << attempt.answer;
}

} // namespace diagnosis

namespace diagnosis::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string internal = "through broker using internal OA libs";

std::string broker(const Installation& here, const std::string& version) {
    return here.at(Installation::program("broker" + version));
}

TEST(Choice, IsTheFirstBrokerThatTakesTheType) {
    Installation here;
    const Report report = here.diagnose();
    EXPECT_TRUE(report.isSound());
    EXPECT_THAT(faultsOf(report), IsEmpty());
    EXPECT_EQ(report.file, here.file());
    EXPECT_EQ(report.refusal, "");
    EXPECT_EQ(report.configString.value, "coil:X");
    EXPECT_EQ(report.configString.origin, "CONFIG (line 4)");
    EXPECT_EQ(report.probe, here.at(Installation::program("probe")));
    EXPECT_EQ(report.probeAnswer, "prefers version 6");
    ASSERT_EQ(report.types.size(), 1U);
    const TypeReport& type = report.types[0];
    EXPECT_EQ(type.name, "coil");
    EXPECT_THAT(type.versions, ElementsAre(6, 5));
    EXPECT_THAT(type.attempts,
                ElementsAre(Attempt{6, internal, broker(here, "6"), true, "takes the type"}));
    EXPECT_EQ(type.evaluator, "pcellBroker6 using internal OA libs");
}

TEST(Choice, TriesTheVersionThatTheProbePrefersFirst) {
    Installation here;
    here.set("TEST_BROKER_EXIT", "5");
    here.set("TEST_BROKER_TYPES", "another");
    here.set("PCELLBROKER_CONFIG", "coil:EX");
    const Report report = here.diagnose();
    const std::string external = "through broker using external OA libs";
    EXPECT_EQ(report.configString.origin, "PCELLBROKER_CONFIG");
    EXPECT_EQ(report.probeAnswer, "prefers version 5");
    ASSERT_EQ(report.types.size(), 1U);
    EXPECT_THAT(
        report.types[0].attempts,
        ElementsAre(Attempt{5, external, broker(here, "5"), false, "does not take the type"},
                    Attempt{6, external, broker(here, "6"), false, "does not take the type"}));
    EXPECT_EQ(report.types[0].evaluator, "");
}

TEST(Choice, AProbeWithoutPreferenceIsNoFault) {
    Installation here;
    here.set("TEST_BROKER_EXIT", "7");
    const Report report = here.diagnose();
    EXPECT_EQ(report.probeAnswer, "no preference");
    EXPECT_THAT(report.types.at(0).versions, ElementsAre(6, 5));
    EXPECT_THAT(faultsOf(report), IsEmpty());
}

TEST(Choice, AForcedVersionIsTheOnlyOneAndNeedsNoProbe) {
    Installation here;
    here.change("CONFIG", "coil");
    here.lines.push_back("FORCED_OA_API_VERSION=5");
    const Report report = here.diagnose();
    EXPECT_EQ(report.forcedVersion.origin, "FORCED_OA_API_VERSION (line 5)");
    EXPECT_EQ(report.probeAnswer, "not run, because a version is forced");
    EXPECT_THAT(report.types.at(0).versions, ElementsAre(5));
    EXPECT_THAT(report.types.at(0).attempts,
                ElementsAre(Attempt{5, internal, broker(here, "5"), true, "takes the type"}));
}

TEST(Choice, APlugInInThisProcessIsTriedFirst) {
    Installation here;
    here.change("CONFIG", "coil");
    const Report report = here.diagnose();
    ASSERT_EQ(report.types.at(0).attempts.size(), 2U);
    EXPECT_EQ(report.types[0].attempts[0].way, "native");
    EXPECT_FALSE(report.types[0].attempts[0].works);
    EXPECT_NE(report.types[0].attempts[0].answer.find("coil"), std::string::npos);
    EXPECT_TRUE(report.types[0].attempts[1].works);
    EXPECT_THAT(faultsOf(report), IsEmpty());
}

TEST(Choice, APlugInForThisProcessThatIsBrokenIsAFaultWhereNothingElseWorks) {
    Installation here;
    here.change("CONFIG", "coil");
    here.write("own/coil.plg", "<plugIn/>");
    here.set("OA_PLUGIN_PATH", here.at("own"));
    EXPECT_THAT(faultsOf(here.diagnose()), IsEmpty());
    here.change("BROKER_EXE_6", "absent");
    const Faults faults = here.diagnose().types.at(0).faults;
    ASSERT_EQ(faults.size(), 2U);
    EXPECT_EQ(faults[0].cure, "write <plugIn lib=\"NAME\"/> into it");
    EXPECT_EQ(faults[1].cure, "see the faults of BROKER_EXE_6");
}

TEST(Choice, APlugInThatThisProcessLacksIsNoFault) {
    Installation here;
    here.change("CONFIG", "coil");
    here.change("BROKER_EXE_6", "absent");
    const Faults faults = here.diagnose().types.at(0).faults;
    ASSERT_EQ(faults.size(), 1U);
    EXPECT_EQ(faults[0].cure, "see the faults of BROKER_EXE_6");
}

TEST(Choice, EndsAtTheFirstErrorThoughAnotherBrokerWouldTakeTheType) {
    Installation here;
    here.install("broker_exits_at_once", "broker6");
    const Report report = here.diagnose();
    EXPECT_THAT(report.types.at(0).attempts,
                ElementsAre(Attempt{6, internal, broker(here, "6"), false,
                                    "broken connection to pcellBroker6 using internal OA libs"}));
}

TEST(Choice, AfterAFailedProbeTheNextTypeHasAnEvaluator) {
    Installation here;
    here.change("CONFIG", "coil:X,wire:X");
    here.set("TEST_BROKER_EXIT", "10");
    const Report report = here.diagnose();
    ASSERT_EQ(report.types.size(), 2U);
    EXPECT_EQ(report.types[0].evaluator, "");
    EXPECT_EQ(report.types[1].evaluator, "pcellBroker6 using internal OA libs");
    EXPECT_FALSE(report.isSound());
}

TEST(Choice, ARefusedConfigurationIsToldInTheWordsOfTheLog) {
    Installation here;
    here.lines.push_back("comment");
    const Report report = here.diagnose();
    EXPECT_EQ(report.refusal, here.file() + ": missing '=' after key 'comment'");
    EXPECT_THAT(report.types, IsEmpty());
    EXPECT_FALSE(report.isSound());
}

} // namespace
} // namespace diagnosis::test
