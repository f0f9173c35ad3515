#pragma once

#include "oaObject.h"
#include "oaString.h"

namespace OpenAccess_4 {

class oaLib;

/// Base of what a library consists of, and of the library itself.
class OA_API oaDMObject : public oaObject {
public:
    /// The library that the object belongs to; a library answers itself.
    oaLib* getLib() const;

    /// True for objects that can hold files.
    oaBoolean isContainer() const;

    /// Sets `path` to the name of a file that does not exist yet and that no other call answers.
    /// With `sameFileSystem` it lies under the write path of the library, so that it can be renamed
    /// into it; else where the system wants temporary files. The caller makes and removes it.
    void getTempFile(oaString& path, oaBoolean sameFileSystem = false) const;

    OA_HANDLE(oaDMObject);
};

} // namespace OpenAccess_4
