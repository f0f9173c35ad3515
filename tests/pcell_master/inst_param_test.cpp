#include "recording_pcell.h"

#include "support/temporary_directory.h"

#include <gtest/gtest.h>

using namespace oa;
using namespace ovalis::test;

namespace {

oaScalarName name(const char* text) {
    return oaScalarName(oaNativeNS(), text);
}

/// A library with the super master "coil" of one integer parameter and the plain design "top".
class InstParam : public testing::Test {
protected:
    InstParam()
        : lib(oaLib::create(name("lib"), (directory.str() + "/lib").c_str())),
          evaluator(new RecordingPcell),
          link(oaPcellLink::create(evaluator)),
          coil(open("coil")),
          top(open("top")),
          block(oaBlock::create(top)) {
        coil->defineSuperMaster(evaluator->getPcellDef(), turns(3));
    }
    ~InstParam() override {
        lib->close();
        link->destroy();
    }

    static oaDesign* open(const char* cell) {
        return oaDesign::open(name("lib"), name(cell), name("layout"),
                              oaViewType::get(oacMaskLayout), 'w');
    }

    template <class Value>
    static oaParamArray turns(Value value) {
        oaParamArray params;
        params.append(oaParam("turns", value));
        return params;
    }

    oaInst* place(oaDesign* master, const oaParamArray& params) {
        return oaScalarInst::create(block, master, name("i"), oaTransform(), &params);
    }

    template <class Call>
    static std::string refused(oaUInt4 id, Call call) {
        try {
            call();
        } catch (const oaDesignError& error) {
            return error.getMsgId() == id ? std::string(error.getMsg()) : "another error";
        }
        return "nothing";
    }

    TemporaryDirectory directory;
    oaLib* lib;
    RecordingPcell* evaluator;
    oaPcellLink* link;
    oaDesign* coil;
    oaDesign* top;
    oaBlock* block;
};

} // namespace

TEST_F(InstParam, IsKeptByAnInstanceOfASuperMaster) {
    oaInst* inst = place(coil, turns(oaInt4(5)));
    oaParamArray params;
    inst->getParams(params);
    EXPECT_EQ(params, turns(oaInt4(5)));
}

TEST_F(InstParam, OfAnotherTypeIsRefused) {
    EXPECT_EQ(refused(oacInvalidDataTypeForParam, [&] { place(coil, turns(5.0)); }),
              "Parameter 'turns' does not exist with this type in the pcell 'lib/coil/layout'.");
    EXPECT_EQ(block->getInsts().getCount(), 0u);
}

TEST_F(InstParam, OfAnotherNameIsRefused) {
    oaParamArray params;
    params.append(oaParam("width", oaInt4(5)));
    EXPECT_EQ(refused(oacInvalidDataTypeForParam, [&] { place(coil, params); }),
              "Parameter 'width' does not exist with this type in the pcell 'lib/coil/layout'.");
}

TEST_F(InstParam, OfAPlainMasterIsRefused) {
    oaDesign* plain = open("plain");
    EXPECT_EQ(
        refused(oacParamsSuppliedForNonPCellInstMaster, [&] { place(plain, turns(oaInt4(5))); }),
        "Parameters were given for master 'lib/plain/layout', which is not a pcell.");
    EXPECT_NE(place(plain, oaParamArray()), nullptr);
}

TEST_F(InstParam, IsCheckedWhenItIsSetLater) {
    oaInst* inst = place(coil, oaParamArray());
    EXPECT_EQ(refused(oacInvalidDataTypeForParam, [&] { inst->setParams(turns("5")); }),
              "Parameter 'turns' does not exist with this type in the pcell 'lib/coil/layout'.");
    inst->setParams(turns(oaInt4(6)));
    oaParamArray params;
    inst->getParams(params);
    EXPECT_EQ(params, turns(oaInt4(6)));
}
