#include <ovalis/core.h>
#include <ovalis/pcell.h>

#include "pcell/real_text.h"

namespace ovalis {

namespace {

constexpr int attributeBBit = 2048;
constexpr int attributeABit = 1024;
constexpr int notEditedBit = 1;
constexpr int notEvaluatedBit = 0x20000000;
constexpr int notDisplayedBit = 512;
constexpr int booleanBit = 32;

constexpr int realType = 65536;
constexpr int wholeType = 131072;
constexpr int textType = 262144;

std::string opening(const Param& param, int attributes) {
    return "create_parm(\"" + param.name() + "\",\"" + param.description() + "\"," +
           std::to_string(attributes);
}

} // namespace

Param::Param(const std::string& name, bool attributeA, bool attributeB)
    : name_(name), attributeA_(attributeA), attributeB_(attributeB) {}

Param::~Param() = default;

int Param::baseParmType() const {
    return (attributeB_ ? attributeBBit : 0) + (attributeA_ ? attributeABit : 0) +
           (notEdited_ ? notEditedBit : 0) + (evaluated_ ? 0 : notEvaluatedBit) +
           (displayOnSchematic_ ? 0 : notDisplayedBit);
}

std::string Param::parmImpl() const {
    return opening(*this, parmType() + baseParmType() + netListBit()) +
           ",\"StdFormSet\",-1,prm(\"StdForm\",\"" + parmValue() + "\"))";
}

BoolParam::BoolParam(const std::string& name, bool value) : Param(name), value_(value) {}

int BoolParam::parmType() const {
    return wholeType;
}

std::string BoolParam::parmValue() const {
    return value_ ? "1" : "0";
}

oa::oaParam BoolParam::asNativeOaParamImpl() const {
    return oa::oaParam(toOa(name()), toOa(parmValue()));
}

// The bits of the kind are left out on purpose, here and for layers.
std::string BoolParam::parmImpl() const {
    return opening(*this, baseParmType() + booleanBit + netListBit()) + ",\"boolean\",-1,prm(\"" +
           (value_ ? "boolean_yes" : "boolean_no") + "\"))";
}

IntParam::IntParam(const std::string& name, int value) : Param(name), value_(value) {}

int IntParam::parmType() const {
    return wholeType;
}

std::string IntParam::parmValue() const {
    return std::to_string(value_);
}

oa::oaParam IntParam::asNativeOaParamImpl() const {
    return oa::oaParam(toOa(name()), oa::oaInt4{value_});
}

RealParam::RealParam(const std::string& name, double value) : Param(name), value_(value) {}

int RealParam::parmType() const {
    return realType;
}

std::string RealParam::parmValue() const {
    return valueWithUnit_.empty() ? realText(value_) : valueWithUnit_;
}

oa::oaParam RealParam::asNativeOaParamImpl() const {
    return oa::oaParam(toOa(name()), oa::oaDouble{value_});
}

std::string RealParam::parmImpl() const {
    return opening(*this, parmType() + baseParmType() + netListBit()) + ",\"StdFormSet\"," +
           std::to_string(unitType_) + ",prm(\"StdForm\",\"" + parmValue() + "\"))";
}

StringParam::StringParam(const std::string& name, const std::string& value)
    : Param(name), value_(value) {}

int StringParam::parmType() const {
    return textType;
}

std::string StringParam::parmValue() const {
    return value_;
}

oa::oaParam StringParam::asNativeOaParamImpl() const {
    return oa::oaParam(toOa(name()), toOa(value_));
}

LayerParam::LayerParam(const std::string& name, const std::string& valueStr)
    : Param(name), value_(0), valueStr_(valueStr) {}

LayerParam::LayerParam(const std::string& name, int value) : Param(name), value_(value) {}

int LayerParam::parmType() const {
    return wholeType;
}

std::string LayerParam::parmValue() const {
    return value_ != 0 ? "layer_" + std::to_string(value_) : "\"default:drawing\"";
}

oa::oaParam LayerParam::asNativeOaParamImpl() const {
    return oa::oaParam(toOa(name()), oa::oaInt4{value_});
}

std::string LayerParam::parmImpl() const {
    return opening(*this, baseParmType() + netListBit()) +
           ",\"ckt_pad_layer\",-1,prm(\"layer_text_form\",\"" +
           (valueStr_.empty() ? std::to_string(value_) : valueStr_) + "\"))";
}

} // namespace ovalis
