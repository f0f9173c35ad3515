#include "dm_tests.h"

using namespace oa;
using namespace ovalis::test;
using testing::ElementsAre;

namespace {

class AttributesTest : public DMTest {
protected:
    std::vector<std::string> attributesOf(const oaLib* lib) {
        oaDMAttrArray attributes;
        lib->getAttributes(attributes);
        std::vector<std::string> result;
        for (oaUInt4 i = 0; i < attributes.getNumElements(); ++i)
            result.push_back(std::string(attributes[i].getName()) + "=" +
                             std::string(attributes[i].getValue()));
        return result;
    }

    oaDMAttrArray attribute(const char* name, const char* value) {
        oaDMAttrArray attributes;
        attributes.append(oaDMAttr(name, value));
        return attributes;
    }
};

} // namespace

TEST_F(AttributesTest, AreThoseOfTheMarkerAndThoseOfTheCreation) {
    oaDMAttrArray given = attribute("project", "radio");
    given.append(oaDMAttr("origFileSystem", "Unix"));
    oaLib* lib = oaLib::create(scalarName("lib"), path("lib").c_str(), oacSharedLibMode,
                               "oaDMSystem", &given);
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(attributesOf(lib),
                ElementsAre("libReadOnly=No", "origFileSystem=Unix", "project=radio"));
}

TEST_F(AttributesTest, AreKeptOnDisk) {
    oaLib* lib = createFor("lib", "Windows");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    lib->setAttributes(attribute("project", "radio"));
    lib->close();
    lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(attributesOf(lib),
                ElementsAre("libReadOnly=No", "origFileSystem=Windows", "project=radio"));
}

TEST_F(AttributesTest, StandInTheOrderInWhichTheyWereSet) {
    oaLib* lib = createFor("lib", "Unix");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    oaDMAttrArray attributes = attribute("project", "radio");
    attributes.append(oaDMAttr("origFileSystem", "Unix"));
    attributes.append(oaDMAttr("band", "k"));
    attributes.append(oaDMAttr("project", "radar"));
    lib->setAttributes(attributes);
    EXPECT_THAT(attributesOf(lib),
                ElementsAre("libReadOnly=No", "project=radar", "origFileSystem=Unix", "band=k"));
}

TEST_F(AttributesTest, AreTheSameWhenThoseThatWereReadAreSetAgain) {
    oaLib* lib = createFor("lib", "Windows");
    lib->close();
    put("lib/.oalib", "<Library DMSystem=\"oaDMFileSys\"><oaDMFileSys project=\"radio\" "
                      "origFileSystem=\"Windows\" band=\"k\" libReadOnly=\"No\"/></Library>");
    lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    const auto expected =
        ElementsAre("project=radio", "origFileSystem=Windows", "band=k", "libReadOnly=No");
    EXPECT_THAT(attributesOf(lib), expected);
    oaDMAttrArray attributes;
    lib->getAttributes(attributes);
    lib->setAttributes(attributes);
    EXPECT_THAT(attributesOf(lib), expected);
    lib->close();
    lib = open("lib", "lib");
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    EXPECT_THAT(attributesOf(lib), expected);
}

TEST_F(AttributesTest, NeedAccess) {
    oaLib* lib = create("lib");
    oaDMAttrArray attributes;
    EXPECT_EQ(thrownBy([&] { lib->getAttributes(attributes); }).id, oacLibAccessDenied);
    ASSERT_TRUE(lib->getAccess(oacReadLibAccess));
    lib->getAttributes(attributes);
    EXPECT_EQ(thrownBy([&] { lib->setAttributes(attributes); }).id, oacLibAccessDenied);
}

TEST_F(AttributesTest, ThatMakeNoSenseAreRefusedWhole) {
    oaLib* lib = createFor("lib", "Unix");
    ASSERT_TRUE(lib->getAccess(oacWriteLibAccess));
    struct Wrong {
        const char* name;
        const char* value;
        const char* reason;
    };
    const Wrong wrong[] = {
        {"libReadOnly", "maybe", "attribute 'libReadOnly' is 'maybe' instead of 'Yes' or 'No'"},
        {"origFileSystem", "Windows", "attribute 'origFileSystem' cannot be changed"},
        {"a b", "x", "'a b' is not a legal name of an attribute"},
        {"", "x", "'' is not a legal name of an attribute"},
    };
    for (const Wrong& given : wrong) {
        const Thrown thrown =
            thrownBy([&] { lib->setAttributes(attribute(given.name, given.value)); });
        EXPECT_EQ(thrown.id, oacInvalidLibAttribute);
        EXPECT_EQ(thrown.text,
                  std::string("Library 'lib' cannot have these attributes: ") + given.reason + ".");
    }
    EXPECT_THAT(attributesOf(lib), ElementsAre("libReadOnly=No", "origFileSystem=Unix"));
    const oaDMAttrArray bad = attribute("libReadOnly", "maybe");
    EXPECT_EQ(thrownBy([&] {
                  oaLib::create(scalarName("b"), path("b").c_str(), oacSharedLibMode, "oaDMFileSys",
                                &bad);
              }).id,
              oacLibCouldNotCreate);
    EXPECT_FALSE(platform::exists(path("b")));
}

TEST_F(AttributesTest, CompareByNameAndValue) {
    oaDMAttr attribute("name", "value");
    EXPECT_EQ(attribute, oaDMAttr("name", "value"));
    attribute.setValue("other");
    EXPECT_NE(attribute, oaDMAttr("name", "value"));
    attribute.setName("n");
    EXPECT_EQ(attribute.getName(), "n");
    EXPECT_EQ(attribute.getValue(), "other");
}
