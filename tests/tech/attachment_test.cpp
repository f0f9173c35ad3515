#include "tech_news.h"

using namespace oa;
using namespace ovalis::test;

TEST(Attachment, LetsALibraryUseTheTechnologyOfAnotherOne) {
    NewTech tech("chip");
    NewLibrary user("user");
    EXPECT_FALSE(oaTech::hasAttachment(user.lib()));
    EXPECT_FALSE(oaTech::exists(user.lib()));
    oaTech::attach(user.lib(), name("chip"));
    EXPECT_TRUE(oaTech::hasAttachment(user.lib()));
    oaScalarName attached;
    oaTech::getAttachment(user.lib(), attached);
    EXPECT_EQ(textOf(attached), "chip");
    EXPECT_TRUE(oaTech::exists(user.lib()));
    EXPECT_FALSE(oaTech::exists(user.lib(), false));
    EXPECT_EQ(oaTech::find(user.lib()), tech);
    EXPECT_EQ(oaTech::open(user.lib()), tech);
    EXPECT_EQ(tech->getRefCount(), 2u);
}

TEST(Attachment, IsThereWhenTheLibraryIsOpenedAgain) {
    NewTech tech("chip");
    NewLibrary user("user");
    oaTech::attach(user.lib(), name("chip"));
    user.reopen();
    EXPECT_EQ(oaTech::find(user.lib()), tech);
    oaDMData* data = oaDMData::open(user.lib(), 'r');
    oaString value;
    oaProp::find(data, "techLibName")->getValue(value);
    EXPECT_EQ(value, "chip");
    data->close();
}

TEST(Attachment, IsTakenAway) {
    NewTech tech("chip");
    NewLibrary user("user");
    oaTech::attach(user.lib(), name("chip"));
    oaTech::detach(user.lib());
    EXPECT_FALSE(oaTech::hasAttachment(user.lib()));
    EXPECT_EQ(oaTech::find(user.lib()), nullptr);
    oaScalarName attached;
    EXPECT_EQ(thrown<oaTechError>(oacTechNotAttached, [&] { oaTech::detach(user.lib()); }),
              "Library 'user' does not use the technology of another one.");
    EXPECT_EQ(thrown<oaTechError>(oacTechNotAttached,
                                  [&] { oaTech::getAttachment(user.lib(), attached); }),
              "Library 'user' does not use the technology of another one.");
}

TEST(Attachment, KeepsALibraryFromHavingATechnologyOfItsOwn) {
    NewTech tech("chip");
    NewLibrary user("user");
    oaTech::attach(user.lib(), name("chip"));
    EXPECT_EQ(
        thrown<oaTechError>(oacTechAttachedTechLibDetected, [&] { oaTech::create(user.lib()); }),
        "Library 'user' uses the technology of library 'chip' and cannot have one of its own.");
    EXPECT_EQ(
        thrown<oaTechError>(oacTechAttachedTechLibDetected, [&] { tech->saveAs(name("user")); }),
        "Library 'user' uses the technology of library 'chip' and cannot have one of its own.");
}

TEST(Attachment, IsRefusedToALibraryWithATechnologyAndToItself) {
    NewTech tech("chip");
    NewLibrary user("user");
    EXPECT_EQ(thrown<oaTechError>(oacTechAlreadyExists,
                                  [&] { oaTech::attach(tech.lib(), name("user")); }),
              "Library 'chip' already has a technology.");
    EXPECT_EQ(thrown<oaTechError>(oacInvalidTechAttachment,
                                  [&] { oaTech::attach(user.lib(), name("user")); }),
              "Library 'user' cannot use the technology of library 'user': it is the library "
              "itself.");
}

TEST(Attachment, ToALibraryThatIsNotOpenGivesNoTechnology) {
    NewLibrary user("user");
    oaTech::attach(user.lib(), name("chip"));
    EXPECT_FALSE(oaTech::exists(user.lib()));
    EXPECT_EQ(oaTech::find(user.lib()), nullptr);
    EXPECT_EQ(thrown<oaTechError>(oacTechLibNotFound, [&] { oaTech::open(user.lib()); }),
              "The technology of library 'user' cannot be reached: there is no open library "
              "'chip'.");
}

TEST(Attachment, LeadsOverOthers) {
    NewTech tech("chip");
    NewLibrary middle("middle");
    NewLibrary user("user");
    oaTech::attach(middle.lib(), name("chip"));
    oaTech::attach(user.lib(), name("middle"));
    EXPECT_EQ(oaTech::find(user.lib()), tech);
    oaTech::detach(middle.lib());
    oaTech::attach(middle.lib(), name("user"));
    EXPECT_EQ(oaTech::find(user.lib()), nullptr);
}

TEST(Attachment, IsToldToTheObservers) {
    NewLibrary user("user");
    TechNews news;
    oaTech::attach(user.lib(), name("chip"));
    oaTech::detach(user.lib());
    EXPECT_EQ(news.take(), (News{"attach user to chip", "attached user to chip", "detach user",
                                 "detached user"}));
}

TEST(Attachment, LeavesOpenDataInTheirMode) {
    NewLibrary user("user");
    oaDMData::open(user.lib(), 'a')->save();
    oaDMData* data = oaDMData::find(user.lib());
    data->reopen('r');
    oaTech::attach(user.lib(), name("chip"));
    EXPECT_EQ(data->getMode(), 'r');
    EXPECT_EQ(data->getRefCount(), 1u);
    EXPECT_TRUE(data->hasProp());
}
