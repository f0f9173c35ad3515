#pragma once

#include "oaCollection.h"
#include "oaString.h"
#include "oaTechArray.h"
#include "oaTechEnums.h"
#include "oaTechObject.h"

namespace OpenAccess_4 {

class oaGroup;
class oaLayer;
class oaLib;
class oaNameSpace;
class oaPurpose;
class oaScalarName;
class oaSiteDef;
class oaValue;
class oaViaDef;
class oaViewType;

/// The technology of a library: its layers and purposes, the units of its designs, and values.
///
/// A library has at most one, in its file tech.db. An open technology exists once per process,
/// however often it is opened:
/// - 'r' opens for reading; 'a' for changing what is there; 'w' empties it in memory and leaves the
///   file alone until it is saved.
/// - Opening one that is open answers the same object and counts; 'r' never takes the right to
///   change away, 'a' and 'w' add it.
/// - While it may be changed, a lock keeps other processes from changing it.
///
/// A technology may refer to those of other libraries, and they to further ones: it sees their
/// layers, purposes, values, definitions and settings as if they were its own, its own first. What
/// cannot stand side by side there is told to the observers, see oaVersionedObserver<oaTech, 2>.
///
/// A library may instead be attached to another one: it then uses the technology of that, and has
/// none of its own.
///
/// Every call takes the access to the library that it needs, and gives it back before it returns.
class OA_API oaTech : public oaTechObject {
public:
    /// Makes the technology of an open library, open for writing. Nothing is on disk until it is
    /// saved.
    /// @throws oaDMError    oacCannotFindLibrary: no library of that name is open;
    ///                      oacCannotLockDatabase: another process is making or changing it
    /// @throws oaTechError  oacTechAlreadyExists; oacTechAttachedTechLibDetected: the library is
    ///                      attached to another one
    static oaTech* create(const oaScalarName& libName);
    static oaTech* create(oaLib* lib);

    /// Opens the technology that a library has, or is attached to, and those that it refers to; of
    /// these the ones that cannot be opened are left out.
    /// @throws oaDMError    oacCannotFindLibrary; oacCannotLockDatabase: another process changes it
    /// @throws oaTechError  oacTechNotFound: the library has none; oacOpenUndefinedModeTech;
    ///                      oacTechLibNotFound: the library that it is attached to is not open
    /// @throws oaError      oacDatabaseFileDamaged: tech.db is no whole and sound technology
    static oaTech* open(const oaScalarName& libName, oaChar mode = 'r');
    static oaTech* open(const oaLib* lib, oaChar mode = 'r');

    /// The technology that the library has, or is attached to, if it is open, else null. The count
    /// of its openings stays.
    /// @throws oaDMError  oacCannotFindLibrary
    static oaTech* find(const oaScalarName& libName);
    static oaTech* find(const oaLib* lib);

    /// True when the library has a technology, open or in a file that is not empty. With
    /// `inherited` also when one that it is attached to has, if that is open.
    /// @throws oaDMError  oacCannotFindLibrary
    static oaBoolean exists(const oaScalarName& libName, oaBoolean inherited = true);
    static oaBoolean exists(const oaLib* lib, oaBoolean inherited = true);

    /// Removes the technology of a library from disk.
    /// @throws oaDMError    oacCannotFindLibrary; oacCannotLockDatabase: another process changes it
    /// @throws oaTechError  oacTechNotFound; oacCannotDestroyOpenTech
    static void destroy(const oaScalarName& libName);
    static void destroy(oaLib* lib);

    static oaCollection<oaTech, oaTech> getOpenTechs();

    /// Lets a library use the technology of another one, as its data say from then on: the property
    /// "techLibName" names that library. The data are saved, with what else was changed in them.
    /// @throws oaTechError  oacTechAlreadyExists: it has one of its own; oacInvalidTechAttachment:
    ///                      it would be attached to itself
    /// @throws oaDMError    as oaDMData::open() and oaDMData::save()
    static void attach(oaLib* lib, const oaScalarName& attachLibName);
    /// Ends that; the other library keeps its technology.
    /// @throws oaTechError  oacTechNotAttached
    static void detach(oaLib* lib);
    static oaBoolean hasAttachment(const oaLib* lib);
    /// @throws oaTechError  oacTechNotAttached
    static void getAttachment(const oaLib* lib, oaScalarName& attachLibName);

    /// Writes the technology to the library's tech.db. A failure leaves the old file whole.
    /// @throws oaTechError  oacSaveReadOnlyTech
    /// @throws oaError      oacDatabaseFileNotWritten
    void save();

    /// Writes a copy into another open library, in the place of the technology that it may have
    /// there. This one stays the technology of its own library.
    /// @throws oaDMError    oacCannotFindLibrary; oacCannotLockDatabase
    /// @throws oaTechError  oacTechAlreadyExists: the technology of that library is open
    void saveAs(const oaScalarName& libName);

    /// Takes one opening back. The last one purges.
    void close();

    /// Closes the technology, whatever its count. What was not saved is lost, and its objects
    /// become invalid.
    void purge();

    /// Changes the mode: to 'w' empties the technology, to 'r' gives up what was not saved.
    /// Coming from 'r' the file is read again when another process has changed it. Whenever the
    /// content is replaced, the objects of the technology become invalid; it itself stays.
    /// @throws as open
    void reopen(oaChar mode);

    /// Gives up what was not saved: the content is that of the file again. The objects of the
    /// technology become invalid; it itself stays.
    /// @throws oaTechError  oacTechNotFound: it was never saved
    void revert();

    /// How the technology is open: 'r', 'a' or 'w'.
    oaChar getMode() const;
    oaUInt4 getRefCount() const;
    oaBoolean isModified() const;

    oaLib* getLib() const;
    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;

    // References. What they lead to is open while the technology is.

    /// Replaces the references. The technologies are counted as opened once more.
    /// @throws oaTechError  oacInvalidTechRef: one is named twice, or refers to this one itself;
    ///                      oacCannotModifyReadModeTech
    void setRefs(const oaTechArray& refs);
    void unsetRefs();
    /// The references of this technology, followed by those of the technologies that they lead to,
    /// unless `local` is set.
    void getTechHeaders(oaTechHeaderArray& refHeaders, oaBoolean local = false) const;
    /// True when a reference here, or of a technology that this one sees, leads nowhere.
    oaBoolean hasUnboundRefs() const;
    /// The references of open technologies that lead here.
    oaCollection<oaTechHeader, oaTech> getUsedIn() const;
    /// Tells the observers of the conflicts that this technology is the first to see. Answers true
    /// when there are none and each reference leads somewhere.
    oaBoolean validate() const;

    // Settings. The calls that read one answer what the technology says itself, else what the
    // nearest one that it refers to says, unless `local` is set, else the default. The calls that
    // tell whether one is set ask this technology alone.

    // Units. `viewType` must be one of the five that designs have: mask layout, schematic,
    // schematic symbol, netlist, hierarchical design. Every call below throws
    // oaTechError oacInvalidTechViewType for another one.

    oaBoolean isDBUPerUUSet(const oaViewType* viewType) const;
    /// Database units per user unit; the default when it is not set.
    oaUInt4 getDBUPerUU(const oaViewType* viewType, oaBoolean local = false) const;
    void setDBUPerUU(const oaViewType* viewType, oaUInt4 value);
    void unsetDBUPerUU(const oaViewType* viewType);
    /// 1000 for mask layouts, 160 for the others.
    static oaUInt4 getDefaultDBUPerUU(const oaViewType* viewType);

    oaBoolean isUserUnitsSet(const oaViewType* viewType) const;
    oaUserUnitsType getUserUnits(const oaViewType* viewType, oaBoolean local = false) const;
    void setUserUnits(const oaViewType* viewType, oaUserUnitsType value);
    void unsetUserUnits(const oaViewType* viewType);
    /// Microns for mask layouts, inches for the others.
    static oaUserUnitsType getDefaultUserUnits(const oaViewType* viewType);

    /// A coordinate in user units as the nearest in database units; one that has no place there
    /// becomes the least or the greatest.
    oaInt4 uuToDBU(const oaViewType* viewType, oaDouble value) const;
    oaUInt4 uuToDBUDistance(const oaViewType* viewType, oaDouble value) const;
    oaUInt8 uuToDBUArea(const oaViewType* viewType, oaDouble value) const;
    oaDouble dbuToUU(const oaViewType* viewType, oaInt4 value) const;
    oaDouble dbuToUUDistance(const oaViewType* viewType, oaUInt8 value) const;
    oaDouble dbuToUUArea(const oaViewType* viewType, oaUInt8 value) const;

    /// The grid in database units of layers that have none of their own; 0 means no grid, and is
    /// the default.
    oaDist getDefaultManufacturingGrid(oaBoolean local = false) const;
    void setDefaultManufacturingGrid(oaDist grid);
    void unsetDefaultManufacturingGrid();
    oaBoolean isDefaultManufacturingGridSet() const;

    static oaDist getDefaultDefaultManufacturingGrid();

    /// How distances are measured where a rule does not say so.
    oaClearanceMeasure getClearanceMeasure(oaBoolean local = false) const;
    void setClearanceMeasure(oaClearanceMeasure measure);
    void unsetClearanceMeasure();
    oaBoolean isClearanceMeasureSet() const;
    /// oacEuclidianClearanceMeasure.
    static oaClearanceMeasure getDefaultClearanceMeasure();

    /// Whether gates count as grounded where antennas are looked for.
    oaBoolean isGateGrounded(oaBoolean local = false) const;
    void setGateGrounded(oaBoolean gateGrounded);
    void unsetGateGrounded();
    oaBoolean isGateGroundedSet() const;
    /// False.
    static oaBoolean getDefaultIsGateGrounded();

    /// The name of the family of processes that the technology belongs to; empty when it is unset.
    void getProcessFamily(oaString& family, oaBoolean local = false) const;
    void setProcessFamily(const oaString& family);
    void unsetProcessFamily();
    oaBoolean hasProcessFamily(oaBoolean local = false) const;

    /// The layers, of all kinds, in the order of their creation; behind them those of the
    /// technologies that this one refers to, unless the flag says otherwise. The same holds for
    /// purposes, values and the definitions of vias and sites.
    oaCollection<oaLayer, oaTech> getLayers(oaUInt4 filterFlags = oacLayerIterAll) const;
    /// The reserved purposes first, then the others in the order of their creation.
    oaCollection<oaPurpose, oaTech> getPurposes(oaUInt4 filterFlags = oacPurposeIterAll) const;
    oaCollection<oaValue, oaTech> getValues(oaUInt4 filterFlags = oacTechValueIterAll) const;
    oaCollection<oaViaDef, oaTech> getViaDefs(oaUInt4 filterFlags = oacViaDefIterAll) const;
    oaCollection<oaSiteDef, oaTech> getSiteDefs(oaUInt4 filterFlags = oacSiteDefIterAll) const;

    oaCollection<oaGroup, oaTech> getGroups() const;
    oaCollection<oaGroup, oaTech> getGroupsByName(const oaString& name) const;
    /// False: there are no constraint groups here.
    oaBoolean hasDefaultConstraintGroup() const;

    OA_HANDLE(oaTech);
};

} // namespace OpenAccess_4
