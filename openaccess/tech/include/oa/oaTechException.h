#pragma once

#include "oaException.h"
#include "oaTechMsgIds.h"

namespace OpenAccess_4 {

/// The failures of the technology package.
class OA_API oaTechException : public oaException {
protected:
    using oaException::oaException;
    const oaChar* getFormatString() const override;
};

/// A failure of the technology package, by message id.
class OA_API oaTechError : public oaTechException {
public:
    oaTechError(oaUInt4 msgId, ...);
};

} // namespace OpenAccess_4
