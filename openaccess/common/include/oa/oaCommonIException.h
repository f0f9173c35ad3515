#pragma once

#include "oaExport.h"

namespace oaCommon {

/// The failure of a plug-in. Thrown by value of a derived class, caught by reference.
class OA_API IException {
public:
    virtual ~IException();
    virtual long getMsgId() const = 0;
    /// The text, owned by the exception.
    virtual const char* getMsg() const = 0;
};

} // namespace oaCommon
