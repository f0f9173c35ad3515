#pragma once

#include "oaDMObject.h"

namespace OpenAccess_4 {

class oaDMFile;

/// Base of what can hold files: libraries, cells and cell views.
class OA_API oaDMContainer : public oaDMObject {
public:
    /// The files of the container sorted by name, with those that were created as an entry and are
    /// not written yet. What keeps the library's own books is left out.
    /// @throws oaDMError  oacLibAccessDenied: the library is not open for reading;
    ///                    oacInvalidContainer: the container is a view
    oaCollection<oaDMFile, oaDMContainer> getDMFiles() const;

    OA_HANDLE(oaDMContainer);
};

} // namespace OpenAccess_4
