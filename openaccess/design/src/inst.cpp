#include "oa/oaInst.h"

#include "base/src/source.h"
#include "design/src/instance_edit.h"
#include "design/src/names.h"
#include "design/src/open_designs.h"
#include "design/src/shape_edit.h"
#include "oa/oaDesignException.h"
#include "oa/oaParamArray.h"
#include "oa/oaTransform.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

oaTransform transformOf(const InstRecord& inst) {
    return oaTransform(inst.x, inst.y, oaOrientEnum(inst.orient));
}

void place(InstRecord& inst, const oaTransform& xform) {
    inst.x = xform.xOffset();
    inst.y = xform.yOffset();
    inst.orient = std::uint8_t(oaOrientEnum(xform.orient()));
}

InstRecord& editedInst(oaObject* inst) {
    edited(inst);
    return recordOf<InstRecord>(inst);
}

DesignNames masterNames(const oaInst* inst) {
    return designDatabaseOf(inst).instances.namesOf(recordOf<InstRecord>(inst).master);
}

} // namespace

namespace impl {

void moveInst(oaObject* inst, const oaTransform& xform) {
    InstRecord& record = editedInst(inst);
    place(record, oaTransform(transformOf(record), xform));
    if (!record.isArray)
        return;
    // Rows and columns keep running along the axes, in the direction in which they are carried.
    const oaPoint column(oaPoint(record.dX, 0), oaTransform(xform.orient()));
    const oaPoint row(oaPoint(0, record.dY), oaTransform(xform.orient()));
    const bool swapped = xform.orient() % 2 == 1;
    record.dX = swapped ? row.x() : column.x();
    record.dY = swapped ? column.y() : row.y();
    if (swapped)
        std::swap(record.rows, record.cols);
}

oaFig* copyInst(const oaObject* inst, const oaTransform& xform, DesignDatabase& to) {
    DesignDatabase& from = designDatabaseOf(inst);
    InstRecord record = recordOf<InstRecord>(inst);
    record.master = to.instances.master(from.instances.namesOf(record.master));
    record.name = to.strings.intern(to.instances.names.automaticName("I__"));
    oaParamArray params;
    static_cast<const oaInst*>(inst)->getParams(params);
    auto* copy = static_cast<oaInst*>(to.instances.insts.handle(to.instances.insts.add(record)));
    moveInst(copy, xform);
    to.instances.setParams(slotOf(copy), params);
    return copy;
}

} // namespace impl

oaDesign* oaRef::getMaster() const {
    return designDatabaseOf(this).instances.bind(recordOf<InstRecord>(this).master);
}

oaBoolean oaRef::isBound() const {
    return designDatabaseOf(this).instances.boundMaster(recordOf<InstRecord>(this).master) !=
           nullptr;
}

void oaRef::getOrigin(oaPoint& origin) const {
    const InstRecord& inst = recordOf<InstRecord>(this);
    origin = oaPoint(inst.x, inst.y);
}

oaOrient oaRef::getOrient() const {
    return oaOrientEnum(recordOf<InstRecord>(this).orient);
}

void oaRef::getTransform(oaTransform& xform) const {
    xform = transformOf(recordOf<InstRecord>(this));
}

void oaRef::setOrigin(const oaPoint& origin) {
    InstRecord& inst = editedInst(this);
    inst.x = origin.x();
    inst.y = origin.y();
}

void oaRef::setOrient(oaOrient orient) {
    editedInst(this).orient = std::uint8_t(orient);
}

void oaRef::setTransform(const oaTransform& xform) {
    place(editedInst(this), xform);
}

oaInst* oaInst::find(const oaBlock* block, const oaSimpleName& name) {
    Instances& instances = designDatabaseOf(block).instances;
    const std::uint32_t slot = instances.names.find(internalName(name));
    return slot == kNone ? nullptr : static_cast<oaInst*>(instances.insts.handle(slot));
}

namespace {

const char* nameOf(const oaInst* inst) {
    return databaseOf(inst).strings.chars(recordOf<InstRecord>(inst).name);
}

} // namespace

void oaInst::getName(oaSimpleName& name) const {
    name = scalarName(nameOf(this));
}

void oaInst::getName(const oaNameSpace& ns, oaString& name) const {
    spell(nameOf(this), ns, name);
}

void oaInst::getLibName(oaScalarName& libName) const {
    libName = scalarName(masterNames(this).lib.c_str());
}

void oaInst::getLibName(const oaNameSpace& ns, oaString& libName) const {
    spell(masterNames(this).lib.c_str(), ns, libName);
}

void oaInst::getCellName(oaScalarName& cellName) const {
    cellName = scalarName(masterNames(this).cell.c_str());
}

void oaInst::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    spell(masterNames(this).cell.c_str(), ns, cellName);
}

void oaInst::getViewName(oaScalarName& viewName) const {
    viewName = scalarName(masterNames(this).view.c_str());
}

void oaInst::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    spell(masterNames(this).view.c_str(), ns, viewName);
}

oaUInt4 oaInst::getNumBits() const {
    slotOf(this);
    return 1;
}

oaBoolean oaInst::isImplicit() const {
    slotOf(this);
    return false;
}

oaPlacementStatus oaInst::getPlacementStatus() const {
    return oaPlacementStatusEnum(recordOf<InstRecord>(this).status);
}

void oaInst::setPlacementStatus(oaPlacementStatus status) {
    editedInst(this).status = std::uint8_t(status);
}

void oaInst::getParams(oaParamArray& params) const {
    params = designDatabaseOf(this).instances.paramsOf(slotOf(this));
}

oaBoolean oaInst::findParam(const oaString& name, oaParam& param) const {
    return designDatabaseOf(this).instances.paramsOf(slotOf(this)).find(name, param);
}

void oaInst::setParams(const oaParamArray& params) {
    designDatabaseOf(this).requireEditable();
    requireParamsOf(findOpenDesign(masterNames(this)), params);
    edited(this).instances.setParams(slotOf(this), params);
}

void oaInst::setMaster(const oaDesign* master) {
    Instances& instances = edited(this).instances;
    const std::uint32_t slot = instances.master(designDatabaseOf(master).names());
    recordOf<InstRecord>(this).master = slot;
    instances.bind(slot, designDatabaseOf(master).design());
}

void oaInst::setMaster(const oaScalarName& libName, const oaScalarName& cellName,
                       const oaScalarName& viewName) {
    Instances& instances = edited(this).instances;
    recordOf<InstRecord>(this).master = instances.master(designNames(libName, cellName, viewName));
}

namespace {

/// What all forms of create() have in common.
struct NewInst {
    oaBlock* block;
    DesignNames master;
    oaDesign* open; // the master when it was given, not named
    const oaTransform& xform;
    const oaParamArray* params;
    oaPlacementStatus status;
    InstRecord record{};
};

NewInst masterOf(oaBlock* block, oaDesign* master, const oaTransform& xform,
                 const oaParamArray* params, oaPlacementStatus status) {
    return {block, designDatabaseOf(master).names(), master, xform, params, status};
}

void requireFreeName(DesignDatabase& database, std::string_view name) {
    if (name.empty())
        throw oaDesignError(oacInvalidInstName, "", "it is empty");
    if (database.instances.names.find(name) != kNone)
        throw oaDesignError(oacInstNameExists, std::string(name).c_str());
}

oaInst* createInst(NewInst inst, std::string_view name) {
    DesignDatabase& database = designDatabaseOf(inst.block);
    requireFreeName(database, name);
    database.requireEditable();
    if (inst.params)
        requireParamsOf(inst.open ? inst.open : findOpenDesign(inst.master), *inst.params);
    database.edit();
    Instances& instances = database.instances;
    inst.record.name = database.strings.intern(name);
    inst.record.master = instances.master(inst.master);
    inst.record.status = std::uint8_t(inst.status);
    place(inst.record, inst.xform);
    if (inst.open)
        instances.bind(inst.record.master, inst.open);
    const std::uint32_t slot = instances.insts.add(inst.record);
    if (inst.params)
        instances.setParams(slot, *inst.params);
    return static_cast<oaInst*>(instances.insts.handle(slot));
}

oaInst* createInst(NewInst inst) {
    const std::string name = designDatabaseOf(inst.block).instances.names.automaticName("I__");
    return createInst(std::move(inst), name);
}

NewInst visible(NewInst inst, oaBlockDomainVisibility view) {
    inst.record.visibility = std::uint8_t(view);
    return inst;
}

void requireSome(oaUInt4 numRows, oaUInt4 numCols) {
    if (numRows == 0 || numCols == 0)
        throw oaDesignError(oacArrayInstEmpty, numRows, numCols);
}

NewInst array(NewInst inst, oaOffset dX, oaOffset dY, oaUInt4 numRows, oaUInt4 numCols) {
    requireSome(numRows, numCols);
    inst.record.isArray = 1;
    inst.record.dX = dX;
    inst.record.dY = dY;
    inst.record.rows = numRows;
    inst.record.cols = numCols;
    return inst;
}

template <class Class>
Class* findInst(const oaBlock* block, const oaScalarName& name) {
    return dynamic_cast<Class*>(oaInst::find(block, name));
}

oaBoolean isFreeName(const oaBlock* block, const oaScalarName& name) {
    return !name.isEmpty() && !oaInst::find(block, name);
}

void rename(oaInst* inst, const oaScalarName& name) {
    DesignDatabase& database = designDatabaseOf(inst);
    const std::string_view text = internalName(name);
    if (text == nameOf(inst))
        return;
    requireFreeName(database, text);
    database.edit();
    database.instances.names.remove(slotOf(inst));
    recordOf<InstRecord>(inst).name = database.strings.intern(text);
    database.instances.names.insert(slotOf(inst));
    database.noteGarbage();
}

} // namespace

oaScalarInst* oaScalarInst::create(oaBlock* block, oaDesign* master, const oaScalarName& name,
                                   const oaTransform& xform, const oaParamArray* params,
                                   oaBlockDomainVisibility view, oaPlacementStatus status) {
    return static_cast<oaScalarInst*>(createInst(
        visible(masterOf(block, master, xform, params, status), view), internalName(name)));
}

oaScalarInst* oaScalarInst::create(oaBlock* block, oaDesign* master, const oaTransform& xform,
                                   const oaParamArray* params, oaBlockDomainVisibility view,
                                   oaPlacementStatus status) {
    return static_cast<oaScalarInst*>(
        createInst(visible(masterOf(block, master, xform, params, status), view)));
}

oaScalarInst* oaScalarInst::create(oaBlock* block, const oaScalarName& libName,
                                   const oaScalarName& cellName, const oaScalarName& viewName,
                                   const oaScalarName& name, const oaTransform& xform,
                                   const oaParamArray* params, oaBlockDomainVisibility view,
                                   oaPlacementStatus status) {
    NewInst inst{block, designNames(libName, cellName, viewName), nullptr, xform, params, status,
                 {}};
    return static_cast<oaScalarInst*>(
        createInst(visible(std::move(inst), view), internalName(name)));
}

oaScalarInst* oaScalarInst::create(oaBlock* block, const oaScalarName& libName,
                                   const oaScalarName& cellName, const oaScalarName& viewName,
                                   const oaTransform& xform, const oaParamArray* params,
                                   oaBlockDomainVisibility view, oaPlacementStatus status) {
    NewInst inst{block, designNames(libName, cellName, viewName), nullptr, xform, params, status,
                 {}};
    return static_cast<oaScalarInst*>(createInst(visible(std::move(inst), view)));
}

oaScalarInst* oaScalarInst::find(const oaBlock* block, const oaScalarName& name) {
    return findInst<oaScalarInst>(block, name);
}

oaBoolean oaScalarInst::isValidName(const oaBlock* block, const oaScalarName& name) {
    return isFreeName(block, name);
}

void oaScalarInst::getName(oaScalarName& name) const {
    name = scalarName(nameOf(this));
}

void oaScalarInst::setName(const oaScalarName& name) {
    rename(this, name);
}

oaArrayInst* oaArrayInst::create(oaBlock* block, oaDesign* master, const oaScalarName& name,
                                 const oaTransform& xform, oaOffset dX, oaOffset dY,
                                 oaUInt4 numRows, oaUInt4 numCols, const oaParamArray* params,
                                 oaPlacementStatus status) {
    return static_cast<oaArrayInst*>(
        createInst(array(masterOf(block, master, xform, params, status), dX, dY, numRows, numCols),
                   internalName(name)));
}

oaArrayInst* oaArrayInst::create(oaBlock* block, oaDesign* master, const oaTransform& xform,
                                 oaOffset dX, oaOffset dY, oaUInt4 numRows, oaUInt4 numCols,
                                 const oaParamArray* params, oaPlacementStatus status) {
    return static_cast<oaArrayInst*>(createInst(
        array(masterOf(block, master, xform, params, status), dX, dY, numRows, numCols)));
}

oaArrayInst* oaArrayInst::create(oaBlock* block, const oaScalarName& libName,
                                 const oaScalarName& cellName, const oaScalarName& viewName,
                                 const oaScalarName& name, const oaTransform& xform, oaOffset dX,
                                 oaOffset dY, oaUInt4 numRows, oaUInt4 numCols,
                                 const oaParamArray* params, oaPlacementStatus status) {
    NewInst inst{block, designNames(libName, cellName, viewName), nullptr, xform, params, status,
                 {}};
    return static_cast<oaArrayInst*>(
        createInst(array(std::move(inst), dX, dY, numRows, numCols), internalName(name)));
}

oaArrayInst* oaArrayInst::create(oaBlock* block, const oaScalarName& libName,
                                 const oaScalarName& cellName, const oaScalarName& viewName,
                                 const oaTransform& xform, oaOffset dX, oaOffset dY,
                                 oaUInt4 numRows, oaUInt4 numCols, const oaParamArray* params,
                                 oaPlacementStatus status) {
    NewInst inst{block, designNames(libName, cellName, viewName), nullptr, xform, params, status,
                 {}};
    return static_cast<oaArrayInst*>(createInst(array(std::move(inst), dX, dY, numRows, numCols)));
}

oaArrayInst* oaArrayInst::find(const oaBlock* block, const oaScalarName& name) {
    return findInst<oaArrayInst>(block, name);
}

oaBoolean oaArrayInst::isValidName(const oaBlock* block, const oaScalarName& name) {
    return isFreeName(block, name);
}

void oaArrayInst::getName(oaScalarName& name) const {
    name = scalarName(nameOf(this));
}

void oaArrayInst::setName(const oaScalarName& name) {
    rename(this, name);
}

oaOffset oaArrayInst::getDX() const {
    return recordOf<InstRecord>(this).dX;
}

oaOffset oaArrayInst::getDY() const {
    return recordOf<InstRecord>(this).dY;
}

oaUInt4 oaArrayInst::getNumRows() const {
    return recordOf<InstRecord>(this).rows;
}

oaUInt4 oaArrayInst::getNumCols() const {
    return recordOf<InstRecord>(this).cols;
}

void oaArrayInst::setDX(oaOffset dX) {
    editedInst(this).dX = dX;
}

void oaArrayInst::setDY(oaOffset dY) {
    editedInst(this).dY = dY;
}

void oaArrayInst::setNumRows(oaUInt4 numRows) {
    requireSome(numRows, getNumCols());
    editedInst(this).rows = numRows;
}

void oaArrayInst::setNumCols(oaUInt4 numCols) {
    requireSome(getNumRows(), numCols);
    editedInst(this).cols = numCols;
}

namespace {

/// How far one of an array lies from the first.
oaPoint stepTo(const InstRecord& array, oaUInt4 row, oaUInt4 col) {
    return {oaCoord(oaInt8(array.dX) * col), oaCoord(oaInt8(array.dY) * row)};
}

} // namespace

void oaArrayInst::getBBox(oaUInt4 row, oaUInt4 col, oaBox& bBox) const {
    Instances& instances = designDatabaseOf(this).instances;
    bBox = instances.boxOfOne(slotOf(this));
    if (!bBox.isInverted())
        bBox.transform(stepTo(recordOf<InstRecord>(this), row, col));
}

void oaArrayInst::getTransform(oaUInt4 row, oaUInt4 col, oaTransform& xform) const {
    oaRef::getTransform(xform);
    xform.offset() += stepTo(recordOf<InstRecord>(this), row, col);
}

} // namespace OpenAccess_4
