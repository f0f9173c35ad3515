#pragma once

#include "oaCommonGuid.h"
#include "oaExport.h"

namespace oaCommon {

/// The interface that every plug-in interface derives from: queries and a reference count.
///
/// The order of the virtual members is part of the binary interface.
class OA_API IBase {
public:
    /// What queryInterface and the factories answer.
    enum { cOK = 0, cFail = 1, cNoInterface = 2 };

    virtual ~IBase();
    /// Stores the interface `id` of this object in `*iPtr` and adds a reference to it.
    /// Stores null and answers cNoInterface when the object has no such interface.
    virtual long queryInterface(const Guid& id, void** iPtr) = 0;
    virtual unsigned long addRef() = 0;
    virtual unsigned long release() = 0;
    virtual unsigned long getRefCount() = 0;

    /// The number of this interface, IID_IBase.
    static const Guid& getId();

    /// While set, addRef and release change no count and delete nothing.
    static bool s_refCountDisabled;
};

OA_API extern const Guid IID_IBase;

} // namespace oaCommon
