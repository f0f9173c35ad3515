#pragma once

#include "oaArray.h"
#include "oaString.h"

namespace OpenAccess_4 {

/// A name and a value that the design-management system keeps with a library.
class OA_API oaDMAttr {
public:
    oaDMAttr() = default;
    oaDMAttr(const oaString& name, const oaString& value) : name_(name), value_(value) {}

    const oaString& getName() const { return name_; }
    const oaString& getValue() const { return value_; }
    void setName(const oaString& name) { name_ = name; }
    void setValue(const oaString& value) { value_ = value; }

    bool operator==(const oaDMAttr& other) const {
        return name_ == other.name_ && value_ == other.value_;
    }
    bool operator!=(const oaDMAttr& other) const { return !(*this == other); }

private:
    oaString name_;
    oaString value_;
};

/// The attributes of a library.
class OA_API oaDMAttrArray : public oaArray<oaDMAttr> {
public:
    explicit oaDMAttrArray(oaUInt4 sizeIn = 0) : oaArray<oaDMAttr>(sizeIn) {}
};

} // namespace OpenAccess_4
