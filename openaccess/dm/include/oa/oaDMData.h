#pragma once

#include "oaDMContainer.h"

namespace OpenAccess_4 {

class oaGroup;
class oaLib;
class oaNameSpace;
class oaScalarName;

/// What applications keep with a library, a cell, a view or a cell view: properties and
/// application-defined values of this object. The objects of the library itself carry none.
///
/// Open data exist once per process, however often they are opened:
/// - 'r' opens for reading what is there; 'a' for changing it, with what is missing made empty; 'w'
///   empties them in memory and leaves the file alone until they are saved.
/// - Opening what is open answers the same object and counts; 'r' never takes the right to change
///   away, 'a' and 'w' add it.
/// - While they may be changed, a lock keeps other processes from changing them.
///
/// Every call takes the access to the library that it needs, and gives it back before it returns.
/// Data are purged with the object that they belong to, and with its library.
class OA_API oaDMData : public oaObject {
public:
    /// Opens the data of a library, cell, view or cell view.
    /// @throws oaDMError  oacDMDataNotFound: mode 'r' and there are none;
    ///                    oacOpenUndefinedModeDMData; oacCannotLockDatabase: another process
    ///                    changes them; oacLibAccessDenied, oacLibAccessCannotUpgrade
    /// @throws oaError    oacDatabaseFileDamaged: the file holds something else
    static oaDMData* open(const oaDMContainer* container, oaChar mode);

    /// The data if they are open, else null. The count of their openings stays.
    static oaDMData* find(const oaDMContainer* container);

    /// True when there are data, open or on disk.
    static oaBoolean exists(const oaDMContainer* container);

    /// Removes the data from disk.
    /// @throws oaDMError  oacDMDataNotFound, oacCannotDestroyOpenDMData, oacCannotLockDatabase,
    ///                    oacLibAccessDenied, oacLibAccessCannotUpgrade
    static void destroy(const oaDMContainer* container);

    static oaCollection<oaDMData, oaDMData> getOpenDMDataObjs();

    /// Writes the data to disk. A failure leaves the old file whole.
    /// @throws oaDMError  oacSaveReadOnlyDMData, oacLibAccessDenied, oacLibAccessCannotUpgrade
    /// @throws oaError    oacDatabaseFileNotWritten
    void save();

    /// Takes one opening back. The last one purges.
    void close();

    /// Closes the data, whatever their count. What was not saved is lost.
    void purge();

    /// Changes the mode: to 'w' empties the data, to 'r' gives up what was not saved. Coming from
    /// 'r' the file is read again when another process has changed it. Whenever the content is
    /// replaced, its properties become invalid; the object itself stays.
    /// @throws as open()
    void reopen(oaChar mode);

    /// Gives up what was not saved: the content is that of the file again.
    /// @throws as open() in mode 'r'
    void revert();

    oaChar getMode() const;
    oaUInt4 getRefCount() const;

    /// True when something was changed since the data were opened or saved.
    oaBoolean isModified() const;

    oaCollection<oaGroup, oaDMData> getGroups() const;
    oaCollection<oaGroup, oaDMData> getGroupsByName(const oaString& name) const;

    oaLib* getLib() const;
    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;

    OA_HANDLE(oaDMData);
};

} // namespace OpenAccess_4
