#pragma once

#include "oaDMAttr.h"
#include "oaDMEnums.h"
#include "oaLibDefListMem.h"
#include "oaName.h"

namespace OpenAccess_4 {

/// The definition of a library in a list: its name, where it lies and how it is opened.
class OA_API oaLibDef : public oaLibDefListMem {
public:
    /// Adds a definition in front of `followingMem`, at the end of the list without one. A relative
    /// path counts from the directory of the list's file.
    /// @throws oaDMError  oacLibDefExists: the list has one of that name;
    ///                    oacInvalidLibDefText: a text cannot be written into a definition file;
    ///                    oacLibDefListMemNotInList
    static oaLibDef* create(oaLibDefList* defList, const oaScalarName& libName,
                            const oaString& libPath, const oaString& writePath = "",
                            oaLibMode libMode = oacSharedLibMode,
                            const oaDMAttrArray* libAttrs = nullptr,
                            oaLibDefListMem* followingMem = nullptr);

    /// The definition of that name, the last one when there are several; null without one.
    static oaLibDef* find(const oaLibDefList* defList, const oaScalarName& libName);

    void getLibName(oaScalarName& libName) const;

    /// The path as the list states it, with the values of its variables. A variable that is not set
    /// stays as it is written.
    void getLibPath(oaString& path) const;

    /// Empty when the list assigns none. Variables as in getLibPath().
    void getLibWritePath(oaString& writePath) const;
    oaLibMode getLibMode() const;

    /// What the list assigns beside the write path and the mode.
    void getLibAttributes(oaDMAttrArray& attrs) const;

    /// Change what the list says of the library, in its own lines where it has some. An empty write
    /// path takes back what is assigned.
    /// @throws oaDMError  oacInvalidLibDefText: the text cannot be written into a definition file
    void setLibPath(const oaString& path);
    void setLibWritePath(const oaString& writePath);
    void setLibMode(oaLibMode mode);

    /// Adds an attribute, or gives it another value. "writePath" and "libMode" set those.
    /// @throws oaDMError  oacInvalidLibDefText
    void addLibAttribute(const oaString& name, const oaString& value);

    /// Takes back an attribute; without it, nothing happens.
    void removeLibAttribute(const oaString& name);

    OA_HANDLE(oaLibDef);
};

} // namespace OpenAccess_4
