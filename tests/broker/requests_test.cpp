#include "design_fixture.h"

#include <platform/private_directory.h>

#include "broker/requests.h"

namespace pcellBrokerClient::test {

namespace {

using namespace std::string_literals;

const std::string broken = "broken connection to pcellBroker6 using internal OA libs";

class Requests : public DesignTest {
protected:
    BrokerConnection started(const std::string& programName, BrokerKey key = {6, false}) {
        BrokerConnection connection = connectionTo(programName, key);
        startBroker(connection, system);
        return connection;
    }

    std::string checked(BrokerConnection& connection) {
        return failureOf([&] { checkConnection(connection); });
    }

    std::string evaluated(BrokerConnection& connection, oa::oaDesign& subject) {
        std::optional<std::string> refusal;
        const std::string failure =
            failureOf([&] { refusal = evaluateThroughBroker(connection, subject, system); });
        return refusal ? "refused: " + *refusal : failure;
    }

    std::string evaluated(BrokerConnection& connection) {
        return evaluated(connection, design("cell"));
    }

    std::string requests() { return ovalis::test::readText(path("requests")); }

    /// The directory in a first request.
    static std::string setUpDirectoryIn(const std::string& bytes) { return bytes.c_str() + 2; }

    static std::string setUp() { return "\1" + platform::currentDirectory() + "\0"s; }
};

} // namespace

TEST_F(Requests, LivenessIsTheColon) {
    tell("GOOD", "2");
    BrokerConnection connection = started("broker_wrong_liveness");
    EXPECT_EQ(checked(connection), "none");
    EXPECT_EQ(checked(connection), "none");
    EXPECT_EQ(checked(connection), broken);
}

TEST_F(Requests, ABrokenConnectionStaysBroken) {
    BrokerConnection connection = started("broker_wrong_liveness", {5, true});
    const std::string failure = "broken connection to pcellBroker5 using external OA libs";
    EXPECT_EQ(checked(connection), failure);
    // It is not even looked at.
    connection.fromBroker.reset();
    connection.toBroker.reset();
    EXPECT_EQ(checked(connection), failure);
    EXPECT_EQ(evaluated(connection), failure);
    EXPECT_EQ(failureOf([&] { canEvaluate(connection, "type"); }), failure);
}

TEST_F(Requests, ABrokerThatIsGoneIsABrokenConnection) {
    BrokerConnection connection = started("broker_exits_at_once");
    EXPECT_EQ(checked(connection), broken);
    EXPECT_EQ(evaluated(connection), broken);
}

TEST_F(Requests, TypesAreTakenOrNot) {
    tell("TYPES", "a,b");
    BrokerConnection connection = started("broker_answers");
    EXPECT_TRUE(canEvaluate(connection, "b"));
    EXPECT_FALSE(canEvaluate(connection, "c"));
    EXPECT_TRUE(canEvaluate(connection, "a"));
}

TEST_F(Requests, ResultReplacesTheContentAndItsFileIsRemoved) {
    tell("RESULT", resultFile(70));
    BrokerConnection connection = started("broker_answers");
    for (const char* cell : {"a", "b"}) {
        oa::oaDesign& subject = design(cell);
        EXPECT_EQ(evaluated(connection, subject), "none");
        EXPECT_EQ(widthOf(subject), 70);
        EXPECT_EQ(filesBeside("result."), 0U);
    }
}

TEST_F(Requests, AResultThatIsNoneStays) {
    ovalis::test::writeText(path("result"), "no pcell file");
    tell("RESULT", path("result"));
    BrokerConnection connection = started("broker_answers");
    EXPECT_THROW(static_cast<void>(evaluateThroughBroker(connection, design("cell"), system)),
                 oa::oaException);
    EXPECT_EQ(filesBeside("result."), 1U);
    EXPECT_EQ(checked(connection), "none");
}

TEST_F(Requests, HaveTheirBytes) {
    tell("REQUESTS", path("requests"));
    BrokerConnection connection = started("broker_answers");
    const oa::oaParam param("w", 258);
    evaluated(connection, masterWith(oa::oaParamArray(&param, 1), "m"));
    canEvaluate(connection, "type");
    evaluated(connection, design("p"));
    checkConnection(connection); // which shows that everything has been read
    EXPECT_EQ(requests(), "\0"s + setUp() + "\4lib\0m\0layout\0\1\0\0\0w\0\0\2\1\0\0"s +
                              "\3type\0"s + "\0\4lib\0p\0layout\0\0\0\0\0"s + "\0"s);
}

TEST_F(Requests, NamesAreNative) {
    tell("REQUESTS", path("requests"));
    BrokerConnection connection = started("broker_answers");
    connection.setUpNeeded = false;
    evaluated(connection, design("a b(c)"));
    checkConnection(connection);
    oa::oaString spelled;
    oa::oaDesign::find(name("lib"), name("a b(c)"), name("layout"))
        ->getCellName(oa::oaNativeNS(), spelled);
    EXPECT_EQ(requests(), "\0\4lib\0"s + std::string(spelled) + "\0layout\0\0\0\0\0\0"s);
}

TEST_F(Requests, SetUpNamesTheLibraryDefinitionsWhenThereAreSome) {
    ovalis::test::writeText(path("lib.defs"), "");
    oa::oaLibDefList::openLibs(path("lib.defs").c_str());
    oa::oaLibDefList* const list = oa::oaLibDefList::getTopList();
    oa::oaString full;
    list->getFullPath(full);
    tell("REQUESTS", path("requests"));
    BrokerConnection connection = started("broker_answers");
    evaluated(connection);
    evaluated(connection);
    list->destroy();
    checkConnection(connection);
    EXPECT_EQ(requests(), "\0"s + setUp() + "\2" + std::string(full) + "\0"s +
                              "\4lib\0cell\0layout\0\0\0\0\0"s +
                              "\0\4lib\0cell\0layout\0\0\0\0\0"s + "\0"s);
}

TEST_F(Requests, SetUpNamesDirectoriesOfAnyLetters) {
    const std::string before = platform::currentDirectory();
    platform::createDirectory(path("größe"));
    platform::File(path("größe/lib.defs"), platform::OpenMode::write).close();
    oa::oaLibDefList::openLibs(path("größe/lib.defs").c_str());
    oa::oaLibDefList* const list = oa::oaLibDefList::getTopList();
    oa::oaString full;
    list->getFullPath(full);
    tell("REQUESTS", path("requests"));
    BrokerConnection connection = started("broker_answers");
    platform::setCurrentDirectory(path("größe"));
    const std::string expected =
        "\0"s + setUp() + "\2" + std::string(full) + "\0"s + "\4lib\0cell\0layout\0\0\0\0\0"s;
    evaluated(connection);
    platform::setCurrentDirectory(before);
    list->destroy();
    EXPECT_EQ(requests(), expected);
    EXPECT_THAT(setUpDirectoryIn(expected), testing::EndsWith("größe"));
    EXPECT_THAT(std::string(full), testing::HasSubstr("größe"));
}

TEST_F(Requests, SetUpIsNotLostWhenTheDirectoryCannotBeFound) {
    tell("REQUESTS", path("requests"));
    BrokerConnection connection = started("broker_answers");
    FailingSystem failing(0);
    EXPECT_EQ(failureOf([&] {
                  static_cast<void>(evaluateThroughBroker(connection, design("cell"), failing));
              }),
              "GetCurrentDirectoryW failed: " + FailingSystem::errorText());
    EXPECT_TRUE(connection.setUpNeeded);
    evaluated(connection);
    EXPECT_FALSE(connection.setUpNeeded);
    checkConnection(connection);
    EXPECT_EQ(requests(), "\0\0"s + setUp() + "\4lib\0cell\0layout\0\0\0\0\0"s + "\0"s);
}

TEST_F(Requests, SetUpIsNotLostWhenTheBrokerDoesNotLive) {
    BrokerConnection connection = started("broker_wrong_liveness");
    EXPECT_EQ(evaluated(connection), broken);
    EXPECT_TRUE(connection.setUpNeeded);
}

TEST_F(Requests, AFailedEvaluationLeavesTheConnectionUsable) {
    tell("FAILURE", "bad width");
    BrokerConnection connection = started("broker_status_0");
    EXPECT_EQ(evaluated(connection), "refused: bad width");
    EXPECT_EQ(evaluated(connection), "refused: bad width");
    EXPECT_TRUE(canEvaluate(connection, "type"));
}

// The answers are: alive, can evaluate, alive, "-", alive, "-".
TEST_F(Requests, AnswersThatEndEarlyAreFailuresOfTheStreamAndBreakTheConnection) {
    tell("FAILURE", "-");
    const std::string ended = "std::streambuf::sbumpc failed";
    for (int bytes = 0; bytes <= 10; ++bytes) {
        SCOPED_TRACE(bytes);
        tell("BYTES", std::to_string(bytes));
        BrokerConnection connection = started("broker_exits_after_bytes");
        EXPECT_EQ(checked(connection), bytes >= 1 ? "none" : broken);
        EXPECT_EQ(failureOf([&] { canEvaluate(connection, "type"); }), bytes >= 2   ? "none"
                                                                       : bytes == 1 ? ended
                                                                                    : broken);
        EXPECT_EQ(evaluated(connection), bytes >= 6 ? "refused: -" : bytes >= 3 ? ended : broken);
        EXPECT_EQ(evaluated(connection), bytes >= 10 ? "refused: -" : bytes >= 7 ? ended : broken);
        EXPECT_EQ(evaluated(connection), broken);
        EXPECT_EQ(checked(connection), broken);
    }
}

// The answers are: alive, status, the path.
TEST_F(Requests, ResultsWhoseAnswerEndsEarlyAreLeftAlone) {
    const std::string result = resultFile(70);
    tell("EVALUATED", result);
    oa::oaDesign& subject = design("cell");
    const std::size_t whole = 2 + result.size() + 1;
    for (std::size_t bytes = 1; bytes < whole; ++bytes) {
        SCOPED_TRACE(bytes);
        tell("BYTES", std::to_string(bytes));
        BrokerConnection connection = started("broker_exits_after_bytes");
        EXPECT_EQ(evaluated(connection, subject), "std::streambuf::sbumpc failed");
        EXPECT_EQ(evaluated(connection, subject), broken);
    }
    EXPECT_EQ(subject.getTopBlock(), nullptr);
    EXPECT_TRUE(platform::isFile(result));
    tell("BYTES", std::to_string(whole));
    BrokerConnection connection = started("broker_exits_after_bytes");
    EXPECT_EQ(evaluated(connection, subject), "none");
    EXPECT_EQ(widthOf(subject), 70);
    EXPECT_FALSE(platform::exists(result));
}

namespace {

/// A broker that is there until some requests have been sent to it.
class Deaf : public std::streambuf {
public:
    explicit Deaf(int requests) : requests_(requests) {}

protected:
    int sync() override { return requests_-- > 0 ? 0 : -1; }
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }

private:
    int requests_;
};

/// A broker that is there whenever it is asked.
class Colons : public AnswerStream {
protected:
    int_type uflow() override { return ':'; }
    int_type underflow() override { return traits_type::eof(); }
};

BrokerConnection deafAfter(int requests) {
    BrokerConnection connection;
    connection.key = {6, false};
    connection.fromBroker = std::make_unique<Colons>();
    connection.toBroker = std::make_unique<Deaf>(requests);
    connection.alive = true;
    return connection;
}

} // namespace

TEST_F(Requests, ThatCannotBeSentAreFailuresOfTheStreamAndBreakTheConnection) {
    const std::string unsent = "std::streambuf::pubsync failed";
    BrokerConnection asked = deafAfter(0);
    EXPECT_EQ(failureOf([&] { canEvaluate(asked, "type"); }), unsent);
    EXPECT_EQ(failureOf([&] { canEvaluate(asked, "type"); }), broken);
    BrokerConnection evaluating = deafAfter(1);
    EXPECT_EQ(evaluated(evaluating), unsent);
    EXPECT_TRUE(evaluating.setUpNeeded);
    EXPECT_EQ(evaluated(evaluating), broken);
    BrokerConnection lifeless = deafAfter(0);
    EXPECT_EQ(evaluated(lifeless), broken);
}

TEST_F(Requests, AnswersMayComeByteByByte) {
    tell("FAILURE", "slow but sound");
    BrokerConnection connection = started("broker_answers_slowly");
    EXPECT_EQ(checked(connection), "none");
    EXPECT_TRUE(canEvaluate(connection, "type"));
    EXPECT_EQ(evaluated(connection), "refused: slow but sound");
    EXPECT_EQ(evaluated(connection), "refused: slow but sound");
}

// Else a colon too many would pass for the next sign of life, and the one after it for an answer.
TEST_F(Requests, WhatIsAnsweredTooMuchBreaksTheConnection) {
    tell("FAILURE", "first");
    for (const std::string& extra : {":"s, "::::"s, "x"s}) {
        tell("EXTRA", extra);
        tell("COMMAND", "4");
        BrokerConnection behindEvaluation = started("broker_answers_too_much");
        EXPECT_EQ(evaluated(behindEvaluation), "refused: first");
        EXPECT_EQ(evaluated(behindEvaluation), broken);

        tell("COMMAND", "0");
        BrokerConnection behindLiveness = started("broker_answers_too_much");
        EXPECT_EQ(checked(behindLiveness), "none");
        EXPECT_EQ(failureOf([&] { canEvaluate(behindLiveness, "type"); }), broken);

        BrokerConnection beforeEvaluation = started("broker_answers_too_much");
        EXPECT_EQ(evaluated(beforeEvaluation), broken);

        tell("COMMAND", "3");
        BrokerConnection behindQuestion = started("broker_answers_too_much");
        EXPECT_TRUE(canEvaluate(behindQuestion, "type"));
        EXPECT_EQ(evaluated(behindQuestion), broken);
    }
}

} // namespace pcellBrokerClient::test
