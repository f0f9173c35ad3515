#pragma once

#include "oaSession.h"

namespace OpenAccess_4 {

class oaLibDefList;

/// A member of a library definition list: a definition (oaLibDef) or a reference to another list
/// (oaLibDefListRef). getType() tells them apart: oacLibDefType, oacLibDefListRefType.
class OA_API oaLibDefListMem : public oaSessionObject {
public:
    oaLibDefList* getList() const;

    /// Takes the member out of its list. What assigned attributes to it in this list goes with it.
    void destroy();

    /// Move the member within its list; the order decides which of two definitions counts.
    /// @throws oaDMError  oacLibDefListMemNotInList: `member` belongs to another list
    void moveAfter(oaLibDefListMem* member);
    void moveToFirst();
    void moveToLast();

    OA_HANDLE(oaLibDefListMem);
};

} // namespace OpenAccess_4
