// The description of connections of instances, of which one may be gone.

#include "core/statics.h"
#include "xml/describe.h"

#include "support/library_fixture.h"

using namespace oa;

namespace ovalis {

// What the descriptions spell names in; that of the library is inside it.
const oaNativeNS nativeNameSpace;

namespace test {

namespace {

class ConnectionDescription : public LibraryTest {
protected:
    static std::string described(const oaInstTerm& instTerm) {
        std::string result;
        XmlText text(result);
        describe(text, instTerm);
        text.flush();
        return result;
    }
};

} // namespace

TEST_F(ConnectionDescription, OfOneThatIsGoneSaysNoMore) {
    const oaScalarName name(oaNativeNS(), "i");
    oaBlock* const block = oaBlock::create(&design("cell", "layout", 'w'));
    oaInst* const inst = oaScalarInst::create(
        block, oaScalarName(oaNativeNS(), "lib"), oaScalarName(oaNativeNS(), "leaf"),
        oaScalarName(oaNativeNS(), "layout"), name, oaTransform());
    oaNet* const net = oaNet::create(block, oaName(oaNativeNS(), "n"));
    oaInstTerm* const instTerm = oaInstTerm::create(net, inst, oaName(oaNativeNS(), "a"));
    EXPECT_EQ(described(*instTerm), "<instTerm \n"
                                    "    termName=\"a\"\n"
                                    "    termPosition=\"4294967295\"\n"
                                    "    usesTermPosition=\"0\"\n"
                                    "    numBits=\"1\"\n"
                                    "    isImplicit=\"0\"\n"
                                    "    getInst=\"i\"\n"
                                    "    getTerm=\"\"\n"
                                    "    getNet=\"n\"/>\n"
                                    "</instTerm>\n");
    instTerm->destroy();
    EXPECT_EQ(described(*instTerm), "<instTerm value=\"INVALID\"/>\n");
}

} // namespace test

} // namespace ovalis
