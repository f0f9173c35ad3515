#pragma once

#include "oa/oaDesignEnums.h"
#include "oa/oaDesignObject.h"

namespace OpenAccess_4 {

class oaCustomViaDef;
class oaLib;
class oaNameSpace;
class oaOccurrence;
class oaParam;
class oaParamArray;
class oaPcellDef;
class oaScalarName;
class oaStdViaDef;
class oaTech;
class oaViaParam;
class oaViewType;

/// The design database of a cell view: opened, changed and saved as a whole.
///
/// - Mode 'r' shows what is stored, 'a' edits it or makes it, 'w' starts empty; what is on disk
///   changes with save() only. A mode stays what it is after a save.
/// - A design that is open already is answered again and counted. 'r' does not lower its mode; 'a'
///   and 'w' on one that is open for reading make it editable, and 'w' also empties it.
/// - A design open for editing is locked against other processes until it is purged.
class OA_API oaDesign : public oaDesignObject {
public:
    /// Opens a design; 'a' and 'w' make what is missing of cell, view and cell view. Null when the
    /// mode is 'r' and there is no such design.
    /// @throws oaDMError      oacCannotFindLibrary: the library is not open; oacCannotLockDatabase:
    ///                        another process edits the design
    /// @throws oaDesignError  oacOpenUndefinedModeDesign, oacInvalidDesignViewType,
    ///                        oacMismatchViewTypeForOpen, oacDesignCannotGetReadAccess,
    ///                        oacDesignCannotGetWriteAccess, oacDesignHasReadNeedWriteAccess
    /// @throws oaError        oacDatabaseFileDamaged, oacDatabaseFileNotRead
    static oaDesign* open(const oaScalarName& libName, const oaScalarName& cellName,
                          const oaScalarName& viewName, const oaViewType* viewType, oaChar mode);
    /// The same for a view of any type. A design that is made gets the type of an existing view of
    /// that name; else that of the names layout, schematic and symbol; else maskLayout.
    static oaDesign* open(const oaScalarName& libName, const oaScalarName& cellName,
                          const oaScalarName& viewName, oaChar mode);

    /// The submaster of a pcell for these parameters, the others being those of the super master:
    /// the one that there is, or one that is made and evaluated now. The super master is opened for
    /// reading when it is not open. Null when the evaluation failed, which the pcell observers are
    /// told, or when there is no such design.
    /// @throws oaDesignError  oacInvalidSuperMaster; oacInvalidDataTypeForParam: the super master
    /// has
    ///                        no parameter of that name and type; oacPcellEvaluatesItself,
    ///                        oacPcellEvaluationsTooDeep; and as open() for reading
    static oaDesign* open(const oaScalarName& libName, const oaScalarName& cellName,
                          const oaScalarName& viewName, const oaParamArray& params);

    /// The master of the standard vias of a definition that were given these parameters: cuts and
    /// the layers around them, as the definition and the parameters say now. It is in no library
    /// and can be neither changed nor saved; a change of the definition makes another one. Null
    /// when it would reach beyond the range of coordinates, or have too many cuts.
    static oaDesign* open(oaStdViaDef* viaDef, oaViaParam* params = nullptr);
    /// The master of a custom via, opened for reading; of a pcell the submaster, as above.
    static oaDesign* open(oaCustomViaDef* viaDef, oaParamArray* params = nullptr);

    /// The open design of these names, or null. It is not counted. Submasters and masters of
    /// standard vias are not found.
    static oaDesign* find(const oaScalarName& libName, const oaScalarName& cellName,
                          const oaScalarName& viewName);
    /// True when the design is open or its file has a content.
    static oaBoolean exists(const oaScalarName& libName, const oaScalarName& cellName,
                            const oaScalarName& viewName);
    /// Removes the file of a design that is not open.
    /// @throws oaDesignError  oacCannotFindDesign, oacCannotDestroyOpenDesign
    static void destroy(const oaScalarName& libName, const oaScalarName& cellName,
                        const oaScalarName& viewName);
    static oaCollection<oaDesign, oaDesign> getOpenDesigns();

    /// Writes the design to its file. After a failure the old file is whole, and the design is open
    /// and modified as before.
    /// @throws oaDesignError  oacSaveReadOnlyDesign; oacSaveScratchModeDesign: it is a submaster
    /// @throws oaError        oacDatabaseFileNotWritten
    void save();
    /// Writes the content to the file of another cell view, which is made when it is missing. The
    /// design stays open under its own names.
    void saveAs(const oaScalarName& libName, const oaScalarName& cellName,
                const oaScalarName& viewName);

    /// Undoes one open(); the last one purges the design.
    void close();
    /// Drops the design from memory, with all changes since the last save. One that was never saved
    /// leaves no cell view behind, and no cell. A super master takes its submasters along.
    /// @throws oaDesignError  oacPcellBeingEvaluated
    void purge();
    /// Changes the mode; 'w' empties the design. Going to 'r' drops changes since the last save.
    /// @throws oaDesignError  as open(); then the design is as before
    void reopen(oaChar mode);
    /// Drops all changes since the last save.
    void revert();

    /// Binds all instances, those of the masters they are bound to as well, and so on: that many
    /// levels, by default all. Masters that cannot be had are left out.
    void openHier(oaUInt4 numLevels = 0xFFFFFFFF);

    /// 's', scratch, for a submaster and the master of a standard via.
    oaChar getMode() const;
    /// Calls of open() less calls of close(), and the other open designs with an instance that is
    /// bound to this one. For a super master those with an instance bound to one of its submasters
    /// count as well, and so do its submasters that are open themselves.
    oaUInt4 getRefCount() const;
    oaBoolean isModified() const;

    oaLib* getLib() const;
    void getLibName(oaScalarName& libName) const;
    void getLibName(const oaNameSpace& ns, oaString& libName) const;
    void getCellName(oaScalarName& cellName) const;
    void getCellName(const oaNameSpace& ns, oaString& cellName) const;
    void getViewName(oaScalarName& viewName) const;
    void getViewName(const oaNameSpace& ns, oaString& viewName) const;
    oaViewType* getViewType() const;
    oaCellType getCellType() const;
    void setCellType(oaCellType cellType);
    /// The technology of the library, which is opened for reading when it is not open; null when
    /// there is none.
    oaTech* getTech() const;
    /// Null until oaBlock::create() made it.
    oaBlock* getTopBlock() const;
    /// The top of the hierarchy in which every path is told apart; null without a block.
    oaOccurrence* getTopOccurrence() const;

    oaBoolean isStdViaMaster() const;
    /// What the master of a standard via was made from; the values of the definition are those of
    /// parameters by default.
    /// @throws oaDesignError  oacInvalidViaMaster: it is another design
    void getParams(oaViaParam& params) const;

    oaTime getCreateTime() const;
    /// When the design was opened.
    oaTime getReadInTime() const;
    /// 0 for a design that was never saved.
    oaTime getLastSavedTime() const;

    // Pcells.

    /// Makes the design a super master: what instances name, and what the evaluator of `def` fills
    /// submasters from. Its content stays. The definition belongs to the database from now on,
    /// which hands it to IPcell::onUnbind() when the design is purged, undefined or defined anew;
    /// also when this call fails in the evaluator, after which the design is no super master.
    /// Submasters that there are stay the same designs and are evaluated anew.
    /// @throws oaDesignError  oacCannotModifyReadModeDesign, oacCannotModifySubMaster,
    ///                        oacPcellInvalidPcellDef, oacPcellBeingEvaluated, and what
    ///                        IPcell::onBind() throws
    void defineSuperMaster(oaPcellDef* def, const oaParamArray& defaults);
    /// Makes the design an ordinary one and purges its submasters.
    /// @throws oaDesignError  oacCannotModifyReadModeDesign, oacInvalidSuperMaster,
    ///                        oacPcellBeingEvaluated
    void undefineSuperMaster();
    /// Replaces the block of the super master by what its evaluator draws for the defaults. A
    /// failure of the evaluator leaves it without a block and is told to the pcell observers.
    /// @throws oaDesignError  oacInvalidSuperMaster, oacCannotModifyReadModeDesign
    void evalSuperMaster();
    oaBoolean isSuperMaster() const;
    /// True for what an evaluator made of a super master for some parameters: a design with the
    /// names of the super master that can be neither saved nor changed, except by its evaluation.
    oaBoolean isSubMaster() const;
    /// @throws oaDesignError  oacInvalidSubMaster
    oaDesign* getSuperMaster() const;
    /// The submasters that there are, in the order in which they were made; none for a design that
    /// is no super master.
    oaCollection<oaDesign, oaDesign> getSubMasters() const;
    /// Null when the evaluator is not known, or failed when the design was opened.
    /// @throws oaDesignError  oacInvalidSuperMaster
    oaPcellDef* getPcellDef() const;
    /// @throws oaDesignError  oacInvalidSuperMaster
    void getPcellEvaluatorName(oaString& name) const;
    /// The parameters of a super master with their defaults, in the order of their definition; none
    /// of them when `includeDefaults` is false. For a submaster the values that it has; only those
    /// that it was first asked for with when `includeDefaults` is false. Other designs have none.
    void getParams(oaParamArray& params, oaBoolean includeDefaults = true) const;
    oaBoolean findParam(const oaString& name, oaParam& param) const;

    OA_HANDLE(oaDesign);
};

} // namespace OpenAccess_4
