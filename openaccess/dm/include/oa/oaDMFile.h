#pragma once

#include "oaDMContainer.h"
#include "oaDMEnums.h"

namespace OpenAccess_4 {

/// A file of a library, a cell or a cell view.
///
/// The entry and the file on disk are two things: an entry can be created before the file is
/// written, and stays until it is destroyed or the library is closed. A file that appears on disk
/// is found without having been created.
class OA_API oaDMFile : public oaDMObject {
public:
    /// Makes an entry; the file itself is left to the caller, who writes to getPath().
    /// @throws oaDMError  oacDMFileExists, oacInvalidDMName, oacInvalidContainer,
    ///                    oacLibAccessDenied without write access
    static oaDMFile* create(const oaDMContainer* parent, const oaString& name);

    /// Makes an entry and copies the file at `srcPath` into it.
    /// @throws oaError  oacFileCopyFailed; no entry is left
    static oaDMFile* create(const oaDMContainer* parent, const oaString& name,
                            const oaString& srcPath);

    /// The file of that name, null when there is neither an entry nor a file.
    /// @throws oaDMError  oacLibAccessDenied without read access, oacInvalidContainer
    static oaDMFile* find(const oaDMContainer* parent, const oaString& name);

    /// Removes the entry and the file. @throws oaDMError  oacLibAccessDenied without write access
    void destroy();

    oaDMContainer* getParent() const;
    void getName(oaString& name) const;

    /// The absolute path on disk.
    void getPath(oaString& path) const;

    oaBoolean existsOnDisk() const;

    /// @throws oaDMError  oacDMFileDoesNotExistOnDisk
    oaUInt8 getOnDiskSize() const;

    /// Takes the edit lock of the file. False when anyone, the caller included, holds it, or when
    /// the directory does not let a lock be made.
    oaBoolean getLock();

    /// @throws oaDMError  oacDMFileNotLocked: the lock was not taken with getLock()
    void releaseLock();

    oaDMLockStatus getLockStatus() const;

    /// The files of one container can follow one of them, for systems that treat them as one. Who
    /// leads is remembered until the library is closed or one of the two is destroyed.
    ///
    /// Null takes the file away from its leader.
    /// @throws oaDMError  oacInvalidDMFileLeader: the leader is the file itself, lies in another
    ///                    container or follows a file, or the file has followers;
    ///                    oacLibAccessDenied without write access
    void setLeader(oaDMFile* leader);

    /// Null when the file follows none.
    oaDMFile* getLeader() const;

    /// True when at least one file follows this one.
    oaBoolean isLeader() const;

    /// Sorted by name. @throws oaDMError  oacLibAccessDenied without read access
    oaCollection<oaDMFile, oaDMFile> getFollowers() const;

    /// True for the file that holds the content of its cell view.
    oaBoolean isPrimary() const;

    OA_HANDLE(oaDMFile);
};

} // namespace OpenAccess_4
