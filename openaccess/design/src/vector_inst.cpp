#include "design/src/names.h"
#include "design/src/new_inst.h"
#include "design/src/shape_edit.h"
#include "design/src/vector_insts.h"
#include "oa/oaDesignException.h"
#include "oa/oaTransform.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

NewInst ofKind(NewInst inst, InstKind kind, oaBlockDomainVisibility view) {
    inst.record.kind = kind;
    return visible(inst, view);
}

/// The internal name of a vector or a bit.
/// @throws oaDesignError  oacInvalidInstName
template <class... Indices>
std::string indexedName(std::string (*spelling)(std::string_view, Indices...),
                        const oaScalarName& base, Indices... indices) {
    if (base.isEmpty())
        throw oaDesignError(oacInvalidInstName, "", "it is empty");
    return spelling(scalarText(base), indices...);
}

oaScalarName baseOf(const oaInst* inst) {
    return scalarName(std::string(rangeOf(nameOf(inst)).base).c_str());
}

} // namespace

oaVectorInst* oaVectorInst::create(oaBlock* block, oaDesign* master, const oaScalarName& baseName,
                                   oaUInt4 start, oaUInt4 stop, const oaTransform& xform,
                                   const oaParamArray* params, oaBlockDomainVisibility view,
                                   oaPlacementStatus status) {
    const NewInst inst = newInst(block, master, xform, params, status);
    return static_cast<oaVectorInst*>(createInst(ofKind(inst, InstKind::Vector, view),
                                                 indexedName(rangeName, baseName, start, stop)));
}

oaVectorInst* oaVectorInst::create(oaBlock* block, const oaScalarName& libName,
                                   const oaScalarName& cellName, const oaScalarName& viewName,
                                   const oaScalarName& baseName, oaUInt4 start, oaUInt4 stop,
                                   const oaTransform& xform, const oaParamArray* params,
                                   oaBlockDomainVisibility view, oaPlacementStatus status) {
    const NewInst inst = newInst(block, libName, cellName, viewName, xform, params, status);
    return static_cast<oaVectorInst*>(createInst(ofKind(inst, InstKind::Vector, view),
                                                 indexedName(rangeName, baseName, start, stop)));
}

oaVectorInst* oaVectorInst::find(const oaBlock* block, const oaScalarName& baseName, oaUInt4 start,
                                 oaUInt4 stop) {
    return findInst<oaVectorInst>(block, oaVectorName(baseName, start, stop));
}

oaBoolean oaVectorInst::isValidName(const oaBlock* block, const oaScalarName& baseName,
                                    oaUInt4 start, oaUInt4 stop) {
    if (baseName.isEmpty())
        return false;
    try {
        const std::string name = rangeName(scalarText(baseName), start, stop);
        requireFreeInstName(designDatabaseOf(block), name);
        requireFreeBits(designDatabaseOf(block), name, {});
        return true;
    } catch (const oaDesignError&) {
        return false;
    }
}

void oaVectorInst::getName(oaVectorName& name) const {
    name = oaVectorName(baseOf(this), getStart(), getStop());
}

oaUInt4 oaVectorInst::getStart() const {
    return rangeOf(nameOf(this)).start;
}

oaUInt4 oaVectorInst::getStop() const {
    return rangeOf(nameOf(this)).stop;
}

oaVectorInstBit* oaVectorInst::getBit(oaUInt4 bitIndex) const {
    const InstRange range = rangeOf(nameOf(this));
    if (bitIndex >= range.bits())
        return nullptr;
    Instances& instances = designDatabaseOf(this).instances;
    return static_cast<oaVectorInstBit*>(
        instances.insts.handle(instances.names.find(range.bitName(bitIndex))));
}

void oaVectorInst::setBaseName(const oaScalarName& baseName) {
    renameInst(this, indexedName(rangeName, baseName, getStart(), getStop()));
}

void oaVectorInst::setRange(oaUInt4 start, oaUInt4 stop) {
    renameInst(this, indexedName(rangeName, baseOf(this), start, stop));
}

oaVectorInstBit* oaVectorInstBit::create(oaBlock* block, oaDesign* master,
                                         const oaScalarName& baseName, oaUInt4 bitIndex,
                                         const oaTransform& xform, const oaParamArray* params,
                                         oaBlockDomainVisibility view, oaPlacementStatus status) {
    const NewInst inst = newInst(block, master, xform, params, status);
    return static_cast<oaVectorInstBit*>(createInst(ofKind(inst, InstKind::VectorBit, view),
                                                    indexedName(bitName, baseName, bitIndex)));
}

oaVectorInstBit* oaVectorInstBit::create(oaBlock* block, const oaScalarName& libName,
                                         const oaScalarName& cellName, const oaScalarName& viewName,
                                         const oaScalarName& baseName, oaUInt4 bitIndex,
                                         const oaTransform& xform, const oaParamArray* params,
                                         oaBlockDomainVisibility view, oaPlacementStatus status) {
    const NewInst inst = newInst(block, libName, cellName, viewName, xform, params, status);
    return static_cast<oaVectorInstBit*>(createInst(ofKind(inst, InstKind::VectorBit, view),
                                                    indexedName(bitName, baseName, bitIndex)));
}

oaVectorInstBit* oaVectorInstBit::find(const oaBlock* block, const oaScalarName& baseName,
                                       oaUInt4 bitIndex) {
    return findInst<oaVectorInstBit>(block, oaVectorBitName(baseName, bitIndex));
}

oaBoolean oaVectorInstBit::isValidName(const oaBlock* block, const oaScalarName& baseName,
                                       oaUInt4 bitIndex) {
    return !baseName.isEmpty() && !oaInst::find(block, oaVectorBitName(baseName, bitIndex));
}

void oaVectorInstBit::getName(oaVectorBitName& name) const {
    name = oaVectorBitName(baseOf(this), getBitIndex());
}

oaUInt4 oaVectorInstBit::getBitIndex() const {
    return rangeOf(nameOf(this)).start;
}

void oaVectorInstBit::setName(const oaScalarName& baseName, oaUInt4 bitIndex) {
    renameInst(this, indexedName(bitName, baseName, bitIndex));
}

} // namespace OpenAccess_4
