#include <ovalis/core.h>

#include <type_traits>

#include <gtest/gtest.h>

using ovalis::Exception;

namespace {

Exception databaseFailure() {
    return Exception(oa::oaDesignError(1201));
}

std::string databaseText() {
    return ovalis::fromOa(oa::oaDesignError(1201).getMsg());
}

} // namespace

TEST(Exception, KeepsTextAndIdOfADatabaseException) {
    const Exception error = databaseFailure();
    EXPECT_EQ(error.what(), databaseText());
    EXPECT_NE(databaseText(), "");
    EXPECT_EQ(error.msgId(), 1201);
}

TEST(Exception, KeepsTextAndIdOfAPlugInException) {
    const Exception error(oaCommon::ExceptionBase(-17, "größer als erlaubt"));
    EXPECT_STREQ(error.what(), "größer als erlaubt");
    EXPECT_EQ(error.msgId(), -17);
}

TEST(Exception, HasAnEmptyTextWhenThePlugInGivesNone) {
    const Exception error(oaCommon::ExceptionBase(3, nullptr));
    EXPECT_STREQ(error.what(), "");
    EXPECT_EQ(error.msgId(), 3);
}

TEST(Exception, KeepsBothThroughACopyAndAMove) {
    const Exception original = databaseFailure();
    const Exception copy(original);
    Exception source(original);
    const Exception moved(std::move(source));
    EXPECT_EQ(copy.what(), databaseText());
    EXPECT_EQ(copy.msgId(), 1201);
    EXPECT_EQ(moved.what(), databaseText());
    EXPECT_EQ(moved.msgId(), 1201);
}

TEST(Exception, KeepsBothThroughAssignment) {
    Exception error(oaCommon::ExceptionBase(3, "old"));
    error = databaseFailure();
    EXPECT_EQ(error.what(), databaseText());
    EXPECT_EQ(error.msgId(), 1201);
}

TEST(Exception, StaysTheSameWhenAssignedToItself) {
    Exception error = databaseFailure();
    const Exception& same = error;
    error = same;
    EXPECT_EQ(error.what(), databaseText());
    EXPECT_EQ(error.msgId(), 1201);
}

TEST(Exception, IsCaughtAsARuntimeError) {
    static_assert(std::is_base_of_v<std::runtime_error, Exception>);
    try {
        throw databaseFailure();
    } catch (const std::runtime_error& error) {
        EXPECT_EQ(error.what(), databaseText());
        return;
    }
    FAIL() << "not caught";
}
