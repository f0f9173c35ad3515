#pragma once

#include "oaBaseEnums.h"
#include "oaByteArray.h"

#include <variant>

namespace OpenAccess_4 {

/// A named value of one of seven kinds, given to a pcell or read from one.
///
/// Setting a value sets the kind with it. A default parameter has no name and the integer 0.
class OA_API oaParam {
public:
    oaParam() = default;
    oaParam(const oaString& name, oaInt4 value);
    oaParam(const oaString& name, oaFloat value);
    oaParam(const oaString& name, oaDouble value);
    oaParam(const oaString& name, const oaString& value);
    /// A value that only the application named by `appType` understands.
    oaParam(const oaString& name, const oaString& appType, oaUInt4 numBytes, const oaByte* data);

    void getName(oaString& name) const { name = name_; }
    oaParamType getType() const { return static_cast<oaParamTypeEnum>(value_.index()); }

    /// The value, when it is of that kind.
    /// @throws oaError  oacParamTypeMismatch: it is of another kind.
    oaInt4 getIntVal() const;
    oaFloat getFloatVal() const;
    oaDouble getDoubleVal() const;
    oaBoolean getBooleanVal() const;
    oaTime getTimeVal() const;
    /// Valid until the parameter changes.
    const oaChar* getStringVal() const;
    void getStringVal(oaString& value) const;
    /// Fills in getNumBytes() bytes.
    void getAppVal(oaByte* data) const;
    void getAppType(oaString& appType) const;
    /// The size of the value in bytes; of a text, its length without the terminator.
    oaUInt4 getNumBytes() const;

    void setName(const oaChar* name) { name_ = name; }
    void setIntVal(oaInt4 value);
    void setFloatVal(oaFloat value);
    void setDoubleVal(oaDouble value);
    void setBooleanVal(oaBoolean value);
    void setTimeVal(oaTime value);
    void setStringVal(const oaChar* value);
    /// Replaces the bytes; the application type stays, or becomes empty when there was none.
    void setAppVal(oaUInt4 numBytes, const oaByte* data);
    /// Replaces the application type; the bytes stay, or there are none.
    void setAppType(const oaChar* appType);

    bool operator==(const oaParam& other) const {
        return name_ == other.name_ && value_ == other.value_;
    }
    bool operator!=(const oaParam& other) const { return !(*this == other); }

private:
    struct AppValue {
        oaString type;
        std::vector<oaByte> bytes;

        bool operator==(const AppValue& other) const {
            return type == other.type && bytes == other.bytes;
        }
    };

    // The alternatives stand in the order of oaParamTypeEnum.
    using Value = std::variant<oaInt4, oaFloat, oaString, AppValue, oaDouble, oaBoolean, oaTime>;

    template <oaParamTypeEnum Type>
    const std::variant_alternative_t<Type, Value>& get() const;
    AppValue& appValue();

    oaString name_;
    Value value_;
};

} // namespace OpenAccess_4
