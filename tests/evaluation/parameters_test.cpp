#include "evaluation/parameters.h"

#include <gtest/gtest.h>

#include "failure_of.h"

namespace evaluation {
namespace {

/// One parameter of every type.
oa::oaParamArray everyType() {
    return declaredParams(
        {"n:int=3", "f:float=0.5", "s:string=a b", "d:double=2.5", "b:boolean=true", "t:time=-1"});
}

std::string refusalOf(const std::string& assignment) {
    return failureOf([&] { givenParams(everyType(), {assignment}); });
}

const std::string choices = "; there are n (int), f (float), s (string), d (double), b (boolean), "
                            "t (time)";

TEST(DeclaredParams, HaveNameTypeAndValue) {
    const oa::oaParamArray params = everyType();
    EXPECT_EQ(textOf(params), "n = 3, f = 0.5, s = a b, d = 2.5, b = true, t = -1");
    ASSERT_EQ(params.getNumElements(), 6u);
    EXPECT_EQ(params[0], oa::oaParam("n", oa::oaInt4(3)));
    EXPECT_EQ(params[1], oa::oaParam("f", oa::oaFloat(0.5)));
    EXPECT_EQ(params[2], oa::oaParam("s", oa::oaString("a b")));
    EXPECT_EQ(params[3], oa::oaParam("d", 2.5));
    EXPECT_EQ(params[4].getType(), oa::oacBooleanParamType);
    EXPECT_EQ(params[5].getTimeVal(), -1);
}

TEST(DeclaredParams, TakeColonsInNamesAndEqualSignsInValues) {
    const oa::oaParamArray params = declaredParams({"a:b:string=c=d:e", "empty:string="});
    EXPECT_EQ(params[0], oa::oaParam("a:b", oa::oaString("c=d:e")));
    EXPECT_EQ(params[1], oa::oaParam("empty", oa::oaString("")));
}

TEST(DeclaredParams, SayWhatIsWrong) {
    const struct {
        std::vector<std::string> declarations;
        const char* expected;
    } rows[] = {
        {{"n"}, "\"n\" is no NAME:TYPE=VALUE"},
        {{"n=3"}, "\"n=3\" is no NAME:TYPE=VALUE"},
        {{":int=3"}, "\":int=3\" is no NAME:TYPE=VALUE"},
        {{"n:integer=3"},
         "\"integer\" is no type; there are int, float, string, double, boolean, time"},
        {{"n:app=3"}, "\"app\" is no type; there are int, float, string, double, boolean, time"},
        {{"n:int=3.5"}, "parameter \"n\" is of the type int, which \"3.5\" is not"},
        {{"n:int=1", "m:int=1", "n:double=1"}, "parameter \"n\" comes twice"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(failureOf([&] { declaredParams(row.declarations); }), row.expected);
}

TEST(GivenParams, TakeTheTypeOfTheDefault) {
    const oa::oaParamArray given = givenParams(
        everyType(), {"d=3", "n=-7", "s=", "b=0", "f=1e3", "t=5000000000", "s=x=y", "b=true"});
    EXPECT_EQ(textOf(given), "d = 3, n = -7, s = x=y, b = true, f = 1000, t = 5000000000");
    EXPECT_EQ(given[0], oa::oaParam("d", 3.0));
    EXPECT_EQ(given[4], oa::oaParam("f", oa::oaFloat(1000)));
}

TEST(GivenParams, ListWhatThereIsWhenOneIsWrong) {
    const struct {
        const char* assignment;
        std::string expected;
    } rows[] = {
        {"n", "\"n\" is no NAME=VALUE"},
        {"q=1", "no parameter \"q\""},
        {"=1", "no parameter \"\""},
        {"N=1", "no parameter \"N\""},
        {"n=2.5", "parameter \"n\" is of the type int, which \"2.5\" is not"},
        {"n=", "parameter \"n\" is of the type int, which \"\" is not"},
        {"n= 1", "parameter \"n\" is of the type int, which \" 1\" is not"},
        {"n=2147483648", "parameter \"n\" is of the type int, which \"2147483648\" is not"},
        {"f=x", "parameter \"f\" is of the type float, which \"x\" is not"},
        {"d=1,5", "parameter \"d\" is of the type double, which \"1,5\" is not"},
        {"b=yes", "parameter \"b\" is of the type boolean, which \"yes\" is not"},
        {"t=now", "parameter \"t\" is of the type time, which \"now\" is not"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(refusalOf(row.assignment), row.expected + choices);
    EXPECT_EQ(failureOf([] { givenParams(oa::oaParamArray(), {"q=1"}); }),
              "no parameter \"q\"; the pcell has no parameters");
}

TEST(GivenParams, CannotGiveWhatAnApplicationStoresItself) {
    const oa::oaByte bytes[] = {1, 2, 3};
    oa::oaParamArray defaults;
    defaults.append(oa::oaParam("a", "tool", 3, bytes));
    EXPECT_EQ(textOf(defaults), "a = 3 bytes of tool");
    EXPECT_EQ(failureOf([&] { givenParams(defaults, {"a=x"}); }),
              "parameter \"a\" is of the type app, which \"x\" is not; there are a (app)");
}

TEST(EffectiveParams, AreTheDefaultsWithTheGivenInTheirPlaces) {
    const oa::oaParamArray given = givenParams(everyType(), {"d=9", "n=1"});
    EXPECT_EQ(textOf(effectiveParams(everyType(), given)),
              "n = 1, f = 0.5, s = a b, d = 9, b = true, t = -1");
    EXPECT_EQ(effectiveParams(everyType(), oa::oaParamArray()), everyType());
    EXPECT_EQ(textOf(oa::oaParamArray()), "no parameters");
}

} // namespace
} // namespace evaluation
