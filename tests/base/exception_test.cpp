#include <oa/oaDesignDB.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace oa;

TEST(Exception, CarriesItsIdAndItsFormattedText) {
    const oaDesignError error(oacTermPositionAlreadyTaken, 3u, "clk");
    EXPECT_EQ(error.getMsgId(), oaUInt4(oacTermPositionAlreadyTaken));
    EXPECT_EQ(error.getMsg(), "Terminal position 3 is already taken by 'clk'.");
}

TEST(Exception, OfEachPackageFindsItsOwnText) {
    EXPECT_EQ(oaError(oacFileNotOpen, "a.txt").getMsg(), "File 'a.txt' is not open.");
    EXPECT_EQ(oaOSError(oacFileNotOpen, "a.txt").getMsg(), "File 'a.txt' is not open.");
    EXPECT_EQ(oaMemoryError(oacFileNotOpen, "a").getMsg(), "File 'a' is not open.");
    EXPECT_EQ(oaSocketError(oacFileNotOpen, "a").getMsg(), "File 'a' is not open.");
    EXPECT_EQ(oaDMError(oacLibNameExists, "lib").getMsg(),
              "A library named 'lib' is already open.");
    EXPECT_EQ(oaTechError(oacLayerNumberExists, "lib", 5u).getMsg(),
              "The technology of library 'lib' already has a layer with number 5.");
}

TEST(Exception, KeepsTheFixedNumbers) {
    EXPECT_EQ(oaError(41).getMsg(), "The text given as a name is empty or has a length of 0.");
    EXPECT_EQ(oaDesignError(1201).getMsg(), "The pcell submaster cannot be produced.");
    EXPECT_EQ(oaDMError(3107, "v", "maskLayout", "netlist").getMsg(),
              "View 'v' already exists with view type 'maskLayout', not 'netlist'.");
}

TEST(Exception, NamesAnUnknownId) {
    EXPECT_EQ(oaError(54321).getMsg(), "Unknown message 54321.");
}

TEST(Exception, OfAPlugInKeepsTheNumberThatThePlugInGave) {
    const oaDMPlugInError error(oacDMPlugInFailed, "oaDMFileSys", "lib", 77, "no disk");
    EXPECT_EQ(error.getPlugInMsgId(), 77u);
    EXPECT_EQ(error.getMsg(),
              "The design-management system 'oaDMFileSys' failed on library 'lib': no disk");
}

TEST(Exception, OfAForeignDataModelTellsWhereTheDatabaseComesFrom) {
    const oaCompatibilityError error("lib/tech.db", 9, "30.00.p001");
    EXPECT_EQ(error.getDatabaseName(), "lib/tech.db");
    EXPECT_EQ(error.getDBDataModelRev(), 9u);
    EXPECT_EQ(error.getKitDataModelRev(), oacDataModelRevNumber);
    EXPECT_EQ(error.getDataModelBuildName(), "30.00.p001");
    EXPECT_EQ(error.getKitBuildName(), "22.60.p000");
    EXPECT_EQ(error.getMsg(), "Database 'lib/tech.db' has data model revision 9 (build "
                              "'30.00.p001'), the library reads up to 6.");
}

TEST(Exception, OfAForeignDataModelTellsWhatTheApplicationAskedFor) {
    oaBaseInit(6, 603, 4);
    EXPECT_EQ(oaCompatibilityError("x", 9, "y").getAppDataModelRev(), 4u);
    oaBaseInit();
    EXPECT_EQ(oaCompatibilityError("x", 9, "y").getAppDataModelRev(), oacDataModelRevNumber);
}

TEST(Exception, CrossesTheEdgeOfTheLibraryAndIsCopied) {
    try {
        oaBaseInit(5, 0, 0);
        FAIL() << "a foreign major revision was accepted";
    } catch (const oaException& caught) {
        const oaUInt4 id = caught.getMsgId();
        EXPECT_EQ(id, oaUInt4(oacInvalidMajorAPIRev));
        EXPECT_EQ(caught.getMsg(),
                  "The application was built for API revision 5, the library has 6.");
    }
}

TEST(Exception, ClassesOfThePackagesAreNotRelated) {
    EXPECT_FALSE((std::is_base_of_v<oaError, oaDMError>));
    EXPECT_FALSE((std::is_base_of_v<oaError, oaDesignError>));
    EXPECT_FALSE((std::is_base_of_v<std::exception, oaException>));
    EXPECT_TRUE((std::is_base_of_v<oaDMException, oaDMPlugInError>));
    EXPECT_TRUE((std::is_base_of_v<oaTechException, oaTechError>));
    EXPECT_TRUE((std::is_base_of_v<oaDesignException, oaDesignError>));
}
