#pragma once

#include "oa/oaObject.h"
#include "oa/oaString.h"

namespace OpenAccess_4 {

/// A named value on an object of a design or technology. The names of the properties of one object
/// differ; a property may itself carry properties.
class OA_API oaProp : public oaObject {
public:
    /// The property of that name, or null. Properties lie in one domain here.
    static oaProp* find(const oaObject* object, const oaString& name,
                        oaBoolean crossDomain = false);

    void getName(oaString& name) const;

    /// @throws oaError  oacPropNameUsed
    void setName(const oaString& name);

    oaObject* getOwner() const;

    /// The value as text, whatever the kind: a range as lower:value:upper, a boolean as true or
    /// false, bytes in hexadecimal, a hierarchical property as "hierProp".
    void getValue(oaString& value) const;

    /// Makes a property of the same name and value on `object`.
    /// @throws oaError  oacPropNameUsed, oacInvalidObjForProp
    oaProp* copyTo(oaObject* object) const;

    /// Moves the property to another object and answers it; in another database it is a new one.
    /// @throws oaError  oacPropNameUsed, oacInvalidObjForProp, oacPropBelowItself
    oaProp* moveTo(oaObject* object);

    void destroy();

    OA_HANDLE(oaProp);
};

} // namespace OpenAccess_4
