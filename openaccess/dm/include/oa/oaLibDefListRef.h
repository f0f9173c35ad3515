#pragma once

#include "oaLibDefListMem.h"
#include "oaString.h"

namespace OpenAccess_4 {

/// A reference of a library definition list to another one, which is read when the libraries of
/// the first one are opened.
class OA_API oaLibDefListRef : public oaLibDefListMem {
public:
    /// Adds a reference in front of `followingMem`, at the end of the list without one. A relative
    /// path counts from the directory of the list's file.
    /// @throws oaDMError  oacLibDefListRefExists: the list refers to that file already;
    ///                    oacInvalidLibDefText: the path cannot be written into a definition file;
    ///                    oacLibDefListMemNotInList
    static oaLibDefListRef* create(oaLibDefList* libList, const oaString& refListPath,
                                   oaLibDefListMem* followingMem = nullptr);

    /// The reference to that file, spelled as in the list or as getRefListPath() answers it; null
    /// without one.
    static oaLibDefListRef* find(const oaLibDefList* defList, const oaString& refListPath);

    /// A path that oaLibDefList::get() finds from any working directory: with the values of its
    /// variables, and a relative one behind the directory of the list's file.
    void getRefListPath(oaString& path) const;

    OA_HANDLE(oaLibDefListRef);
};

} // namespace OpenAccess_4
