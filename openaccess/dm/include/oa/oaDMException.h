#pragma once

#include "oaDMMsgIds.h"
#include "oaException.h"

namespace OpenAccess_4 {

/// The failures of the library package.
class OA_API oaDMException : public oaException {
protected:
    using oaException::oaException;
    const oaChar* getFormatString() const override;
};

/// A failure of the library package, by message id.
class OA_API oaDMError : public oaDMException {
public:
    oaDMError(oaUInt4 msgId, ...);
};

/// A design-management system failed; carries the number and the text that it gave.
class OA_API oaDMPlugInError : public oaDMError {
public:
    oaDMPlugInError(oaUInt4 msgId, const oaString& systemName, const oaString& libName,
                    oaUInt4 plugInMsgId, const oaString& plugInMsg);

    oaUInt4 getPlugInMsgId() const { return plugInMsgId_; }

private:
    oaUInt4 plugInMsgId_;
};

} // namespace OpenAccess_4
