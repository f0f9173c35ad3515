#pragma once

#include "oa/oaTechObject.h"

namespace OpenAccess_4 {

class oaNameSpace;
class oaScalarName;
class oaString;

/// The reference of a technology to that of another library, by the name of the library.
class OA_API oaTechHeader : public oaTechObject {
public:
    /// The reference of `tech` to the technology of that library, or to `refTech`; null when it
    /// has none.
    static oaTechHeader* find(const oaTech* tech, const oaScalarName& refLibName);
    static oaTechHeader* find(const oaTech* tech, const oaTech* refTech);

    void getRefLibName(oaScalarName& refLibName) const;
    void getRefLibName(const oaNameSpace& ns, oaString& refLibName) const;

    /// The technology, if it is open in a library of that name; else null.
    oaTech* getRefTech() const;
    oaBoolean isBound() const;

    OA_HANDLE(oaTechHeader);
};

} // namespace OpenAccess_4
