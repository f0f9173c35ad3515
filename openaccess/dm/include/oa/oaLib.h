#pragma once

#include "oaCellView.h"
#include "oaDMAttr.h"

namespace OpenAccess_4 {

/// An open library: a directory of cells, their views and files.
///
/// - The structure is read and changed under an access right that excludes other processes:
///   getAccess(), then releaseAccess(). Without it the calls throw oacLibAccessDenied.
/// - close() ends the life of the object and of everything that it handed out.
/// - Two open libraries on one directory exclude each other like two processes.
class OA_API oaLib : public oaDMContainer {
public:
    /// Makes a library in a directory that is new or empty, and leaves it open without access. The
    /// parent directory must exist.
    ///
    /// The attributes go into the library; "libReadOnly" ("Yes" or "No") and "origFileSystem"
    /// ("Unix" or "Windows", by default the running system) steer it.
    /// @throws oaDMError  oacLibNameExists, oacLibCouldNotCreate
    static oaLib* create(const oaScalarName& name, const oaString& libPath,
                         oaLibMode mode = oacSharedLibMode, const oaString& dmSystem = "oaDMSystem",
                         const oaDMAttrArray* dmAttrList = nullptr);

    /// Opens a library under `name`; an empty `writePath` means the library itself. A directory
    /// without the marker ".oalib" is accepted when exists() is true for it.
    /// @throws oaDMError  oacCannotOpenOpenedLib: the name is taken; oacLibCouldNotOpen
    static oaLib* open(const oaScalarName& name, const oaString& libPath,
                       const oaString& writePath = "", oaLibMode mode = oacSharedLibMode);

    /// The open library of that name, null when there is none.
    static oaLib* find(const oaScalarName& name);

    /// True for a directory that holds ".oalib", "tech.db", "data.dm" or a cell view.
    static oaBoolean exists(const oaString& libPath);

    /// In the order in which they were opened.
    static oaCollection<oaLib, oaLib> getOpenLibs();

    /// Purges what is open in the library and releases all access. What was not saved is lost.
    void close();

    /// Asks for access, waiting up to `timeout` seconds for others to release theirs.
    ///
    /// Further calls for the same or a lower kind succeed and are counted; each is undone by one
    /// releaseAccess(). Write access is refused for libraries that are read-only or not writable.
    /// @throws oaDMError  oacLibAccessCannotUpgrade: read access is held and write access asked for
    oaBoolean getAccess(oaLibAccess accessType, oaUInt4 timeout = 0);

    /// @throws oaDMError  oacLibReleaseNoAccess
    void releaseAccess();
    oaLibAccessLevel getAccessLevel() const;

    void getName(oaScalarName& name) const;
    void getName(const oaNameSpace& ns, oaString& out) const;

    /// The path as it was given.
    void getPath(oaString& path) const;
    void getFullPath(oaString& fullPath) const;
    void getWritePath(oaString& writePath) const;
    oaLibMode getMode() const;
    void getDMSystemName(oaString& dmSystem) const;

    oaBoolean isReadable() const;

    /// False when write access would be refused whatever other processes do.
    oaBoolean isWritable() const;

    /// Closing is never put off, so this is false for every open library.
    oaBoolean isMarkedToBeClosed() const;

    /// False: files are kept without version control.
    oaBoolean hasVC() const;

    /// @throws oaDMError  oacLibAccessDenied without read access
    void getAttributes(oaDMAttrArray& attrs) const;

    /// Replaces the attributes in this order; those two that steer the library stay, in front, when
    /// they are not given. The change of "libReadOnly" counts from the next access on.
    /// @throws oaDMError  oacLibAccessDenied without write access; oacInvalidLibAttribute
    void setAttributes(const oaDMAttrArray& attrs);

    /// Sorted by name. @throws oaDMError  oacLibAccessDenied without read access
    oaCollection<oaCell, oaLib> getCells() const;
    oaCollection<oaView, oaLib> getViews() const;
    oaCollection<oaView, oaLib> getViewsByName(const oaScalarName& name) const;
    oaCollection<oaCellView, oaLib> getCellViews() const;

    OA_HANDLE(oaLib);
};

} // namespace OpenAccess_4
