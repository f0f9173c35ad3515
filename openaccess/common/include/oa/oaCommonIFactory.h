#pragma once

#include "oaCommonIBase.h"

namespace oaCommon {

/// Makes the objects of one class.
class OA_API IFactory : public IBase {
public:
    ~IFactory() override;

    /// The number of this interface.
    static const Guid& getId();

    /// Makes an object and stores its interface `interfaceID`, with a reference for the caller, in
    /// `*ptr`. `reserved` is null. Stores null and answers a status other than cOK on failure.
    virtual long createInstance(IBase* reserved, const Guid& interfaceID, void** ptr) = 0;
};

} // namespace oaCommon
