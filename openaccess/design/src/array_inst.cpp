#include "design/src/names.h"
#include "design/src/new_inst.h"
#include "design/src/shape_edit.h"
#include "oa/oaBox.h"
#include "oa/oaDesignException.h"
#include "oa/oaTransform.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

void requireSome(oaUInt4 numRows, oaUInt4 numCols) {
    if (numRows == 0 || numCols == 0)
        throw oaDesignError(oacArrayInstEmpty, numRows, numCols);
}

NewInst array(NewInst inst, oaOffset dX, oaOffset dY, oaUInt4 numRows, oaUInt4 numCols) {
    requireSome(numRows, numCols);
    inst.record.kind = InstKind::Array;
    inst.record.dX = dX;
    inst.record.dY = dY;
    inst.record.rows = numRows;
    inst.record.cols = numCols;
    return inst;
}

} // namespace

oaArrayInst* oaArrayInst::create(oaBlock* block, oaDesign* master, const oaScalarName& name,
                                 const oaTransform& xform, oaOffset dX, oaOffset dY,
                                 oaUInt4 numRows, oaUInt4 numCols, const oaParamArray* params,
                                 oaPlacementStatus status) {
    return static_cast<oaArrayInst*>(
        createInst(array(newInst(block, master, xform, params, status), dX, dY, numRows, numCols),
                   internalName(name)));
}

oaArrayInst* oaArrayInst::create(oaBlock* block, oaDesign* master, const oaTransform& xform,
                                 oaOffset dX, oaOffset dY, oaUInt4 numRows, oaUInt4 numCols,
                                 const oaParamArray* params, oaPlacementStatus status) {
    return static_cast<oaArrayInst*>(
        createInst(array(newInst(block, master, xform, params, status), dX, dY, numRows, numCols)));
}

oaArrayInst* oaArrayInst::create(oaBlock* block, const oaScalarName& libName,
                                 const oaScalarName& cellName, const oaScalarName& viewName,
                                 const oaScalarName& name, const oaTransform& xform, oaOffset dX,
                                 oaOffset dY, oaUInt4 numRows, oaUInt4 numCols,
                                 const oaParamArray* params, oaPlacementStatus status) {
    const NewInst inst = newInst(block, libName, cellName, viewName, xform, params, status);
    return static_cast<oaArrayInst*>(
        createInst(array(inst, dX, dY, numRows, numCols), internalName(name)));
}

oaArrayInst* oaArrayInst::create(oaBlock* block, const oaScalarName& libName,
                                 const oaScalarName& cellName, const oaScalarName& viewName,
                                 const oaTransform& xform, oaOffset dX, oaOffset dY,
                                 oaUInt4 numRows, oaUInt4 numCols, const oaParamArray* params,
                                 oaPlacementStatus status) {
    const NewInst inst = newInst(block, libName, cellName, viewName, xform, params, status);
    return static_cast<oaArrayInst*>(createInst(array(inst, dX, dY, numRows, numCols)));
}

oaArrayInst* oaArrayInst::find(const oaBlock* block, const oaScalarName& name) {
    return findInst<oaArrayInst>(block, name);
}

oaBoolean oaArrayInst::isValidName(const oaBlock* block, const oaScalarName& name) {
    return !name.isEmpty() && !oaInst::find(block, name);
}

void oaArrayInst::getName(oaScalarName& name) const {
    name = scalarNameOf(nameOf(this));
}

void oaArrayInst::setName(const oaScalarName& name) {
    renameInst(this, internalName(name));
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
