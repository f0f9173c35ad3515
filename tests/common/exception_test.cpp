#include <oa/oaCommon.h>

#include <gtest/gtest.h>

#include <string>

using namespace oaCommon;

TEST(PlugInException, KeepsItsNumberAndACopyOfItsText) {
    std::string text("no licence");
    const ExceptionBase error(12, text.c_str());
    text = "changed";
    const IException& caught = error;
    EXPECT_EQ(caught.getMsgId(), 12);
    EXPECT_STREQ(caught.getMsg(), "no licence");
}

TEST(PlugInException, IsCaughtByItsInterface) {
    try {
        throw oaPlugInError(IBase::cNoInterface, "nothing of that name");
    } catch (const IException& error) {
        EXPECT_EQ(error.getMsgId(), IBase::cNoInterface);
        EXPECT_STREQ(error.getMsg(), "nothing of that name");
    }
}

TEST(PlugInException, HasAStatusAndMayLackAText) {
    const oaPlugInError error(IBase::cFail);
    EXPECT_EQ(error.getStatus(), IBase::cFail);
    EXPECT_STREQ(error.getMsg(), "");
}
