#pragma once

#include "oaDesignMsgIds.h"
#include "oaException.h"

namespace OpenAccess_4 {

/// The failures of the design package.
class OA_API oaDesignException : public oaException {
protected:
    using oaException::oaException;
    const oaChar* getFormatString() const override;
};

/// A failure of the design package, by message id.
class OA_API oaDesignError : public oaDesignException {
public:
    oaDesignError(oaUInt4 msgId, ...);
};

} // namespace OpenAccess_4
