#include "oa/oaInst.h"

#include "base/src/source.h"
#include "design/src/instance_edit.h"
#include "design/src/names.h"
#include "design/src/new_inst.h"
#include "design/src/open_designs.h"
#include "design/src/shape_edit.h"
#include "design/src/vector_insts.h"
#include "design/src/via_edit.h"
#include "oa/oaDesignException.h"
#include "oa/oaInstHeader.h"
#include "oa/oaInstTerm.h"
#include "oa/oaParamArray.h"
#include "oa/oaTransform.h"
#include "oa/oaVia.h"
#include "oa/oaViaHeader.h"

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

DesignNames masterNames(const oaInst* inst) {
    return designDatabaseOf(inst).instances.namesOf(recordOf<InstRecord>(inst).master);
}

} // namespace

namespace impl {

void moveInst(oaObject* inst, const oaTransform& xform) {
    InstRecord& record = editedInst(inst);
    place(record, oaTransform(transformOf(record), xform));
    if (!record.isArray())
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

namespace {

/// An automatic name for a copy of an instance, with the indices of the original.
std::string automaticNameLike(const oaInst* inst, InstKind kind, Instances& to) {
    std::string name = to.names.automaticName("I__");
    if (kind != InstKind::Vector && kind != InstKind::VectorBit)
        return name;
    const InstRange range = rangeOf(nameOf(inst));
    const auto indexed = [&] {
        return range.isVector ? rangeName(name, range.start, range.stop)
                              : bitName(name, range.start);
    };
    while (to.names.find(indexed()) != kNone)
        name = to.names.automaticName("I__");
    return indexed();
}

} // namespace

oaFig* copyInst(const oaObject* original, const oaTransform& xform, DesignDatabase& to) {
    DesignDatabase& from = designDatabaseOf(original);
    const auto* inst = static_cast<const oaInst*>(original);
    InstRecord record = shownInst(inst);
    if (recordOf<InstRecord>(inst).isImplicit())
        record.kind = InstKind::Scalar;
    const std::string name = automaticNameLike(inst, record.kind, to.instances);
    if (record.isVector())
        requireFreeBits(to, name, {});
    record.master = to.instances.master(from.instances.namesOf(record.master));
    record.name = to.strings.intern(name);
    oaParamArray params;
    inst->getParams(params);
    const std::uint32_t slot = to.instances.insts.add(record);
    to.instances.setParams(slot, params);
    if (record.isVector())
        to.instances.addBits(slot);
    auto* copy = static_cast<oaInst*>(to.instances.insts.handle(slot));
    moveInst(copy, xform);
    return copy;
}

} // namespace impl

oaDesign* oaRef::getMaster() const {
    if (isVia())
        return designDatabaseOf(this).vias.masterOf(recordOf<ViaRecord>(this).sub);
    return designDatabaseOf(this).instances.masterOf(slotOf(this));
}

oaBoolean oaRef::isBound() const {
    if (isVia())
        return designDatabaseOf(this).vias.boundMaster(recordOf<ViaRecord>(this).sub) != nullptr;
    return designDatabaseOf(this).instances.boundMasterOf(slotOf(this)) != nullptr;
}

oaRefHeader* oaRef::getHeader() const {
    if (isVia())
        return static_cast<const oaVia*>(this)->getHeader();
    return static_cast<const oaInst*>(this)->getHeader();
}

void oaRef::getOrigin(oaPoint& origin) const {
    oaTransform xform;
    getTransform(xform);
    origin = xform.offset();
}

oaOrient oaRef::getOrient() const {
    if (isVia())
        return oaOrientEnum(recordOf<ViaRecord>(this).orient);
    return oaOrientEnum(shownInst(this).orient);
}

void oaRef::getTransform(oaTransform& xform) const {
    xform = isVia() ? viaTransform(recordOf<ViaRecord>(this)) : transformOf(shownInst(this));
}

void oaRef::setOrigin(const oaPoint& origin) {
    setTransform(oaTransform(origin, getOrient()));
}

void oaRef::setOrient(oaOrient orient) {
    oaPoint origin;
    getOrigin(origin);
    setTransform(oaTransform(origin, orient));
}

void oaRef::setTransform(const oaTransform& xform) {
    if (isVia()) {
        edited(this);
        placeVia(recordOf<ViaRecord>(this), xform);
    } else {
        place(editedInst(this), xform);
    }
}

oaInst* oaInst::find(const oaBlock* block, const oaSimpleName& name) {
    Instances& instances = designDatabaseOf(block).instances;
    const std::uint32_t slot = instances.names.find(internalName(name));
    return slot == kNone ? nullptr : static_cast<oaInst*>(instances.insts.handle(slot));
}

void oaInst::getName(oaSimpleName& name) const {
    if (const InstKind kind = recordOf<InstRecord>(this).kind;
        kind == InstKind::Scalar || kind == InstKind::Array)
        name = scalarNameOf(nameOf(this));
    else
        name = simpleName(nameOf(this));
}

void oaInst::getName(const oaNameSpace& ns, oaString& name) const {
    oaSimpleName simple;
    getName(simple);
    simple.get(ns, name);
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
    return recordOf<InstRecord>(this).isVector() ? rangeOf(nameOf(this)).bits() : 1;
}

oaBoolean oaInst::isImplicit() const {
    return recordOf<InstRecord>(this).isImplicit();
}

oaInstHeader* oaInst::getHeader() const {
    Instances& instances = designDatabaseOf(this).instances;
    const std::uint32_t slot = instances.explicitOf(slotOf(this));
    const std::uint32_t master = instances.insts[slot].master;
    if (instances.isPcell(master))
        return static_cast<oaInstHeader*>(
            instances.subHeaders.table.handle(instances.subHeaders.of(slot)));
    return static_cast<oaInstHeader*>(instances.masters.handle(master));
}

oaCollection<oaInstTerm, oaInst> oaInst::getInstTerms(oaUInt4 /*filterFlags*/) const {
    // All of them were made by the application.
    InstTerms& terms = designDatabaseOf(this).instances.terms;
    std::vector<oaObject*> own;
    for (const std::uint32_t slot : terms.ofInst.of(slotOf(this)))
        own.push_back(terms.table.handle(slot));
    return collectionOf<oaCollection<oaInstTerm, oaInst>>(std::move(own));
}

oaBoolean oaInst::usesTermPositions() const {
    return designDatabaseOf(this).instances.terms.usesPositions(slotOf(this));
}

oaPlacementStatus oaInst::getPlacementStatus() const {
    return oaPlacementStatusEnum(shownInst(this).status);
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
    requireExplicitInst(this);
    designDatabaseOf(this).requireEditable();
    requireParamsOf(findOpenDesign(masterNames(this)), params);
    Instances& instances = edited(this).instances;
    const bool wasBound = instances.boundMasterOf(slotOf(this)) != nullptr;
    instances.setParams(slotOf(this), params);
    if (wasBound)
        instances.masterOf(slotOf(this));
}

void oaInst::setMaster(const oaDesign* master) {
    requireNoSubmasterGiven(master);
    requireExplicitInst(this);
    Instances& instances = edited(this).instances;
    const std::uint32_t slot = instances.master(designDatabaseOf(master).names());
    instances.setMaster(slotOf(this), slot);
    instances.bind(slot, designDatabaseOf(master).design());
    instances.masterOf(slotOf(this));
}

void oaInst::setMaster(const oaScalarName& libName, const oaScalarName& cellName,
                       const oaScalarName& viewName) {
    requireExplicitInst(this);
    Instances& instances = edited(this).instances;
    instances.setMaster(slotOf(this), instances.master(designNames(libName, cellName, viewName)));
}

oaScalarInst* oaScalarInst::create(oaBlock* block, oaDesign* master, const oaScalarName& name,
                                   const oaTransform& xform, const oaParamArray* params,
                                   oaBlockDomainVisibility view, oaPlacementStatus status) {
    return static_cast<oaScalarInst*>(createInst(
        visible(newInst(block, master, xform, params, status), view), internalName(name)));
}

oaScalarInst* oaScalarInst::create(oaBlock* block, oaDesign* master, const oaTransform& xform,
                                   const oaParamArray* params, oaBlockDomainVisibility view,
                                   oaPlacementStatus status) {
    return static_cast<oaScalarInst*>(
        createInst(visible(newInst(block, master, xform, params, status), view)));
}

oaScalarInst* oaScalarInst::create(oaBlock* block, const oaScalarName& libName,
                                   const oaScalarName& cellName, const oaScalarName& viewName,
                                   const oaScalarName& name, const oaTransform& xform,
                                   const oaParamArray* params, oaBlockDomainVisibility view,
                                   oaPlacementStatus status) {
    const NewInst inst = newInst(block, libName, cellName, viewName, xform, params, status);
    return static_cast<oaScalarInst*>(createInst(visible(inst, view), internalName(name)));
}

oaScalarInst* oaScalarInst::create(oaBlock* block, const oaScalarName& libName,
                                   const oaScalarName& cellName, const oaScalarName& viewName,
                                   const oaTransform& xform, const oaParamArray* params,
                                   oaBlockDomainVisibility view, oaPlacementStatus status) {
    const NewInst inst = newInst(block, libName, cellName, viewName, xform, params, status);
    return static_cast<oaScalarInst*>(createInst(visible(inst, view)));
}

oaScalarInst* oaScalarInst::find(const oaBlock* block, const oaScalarName& name) {
    return findInst<oaScalarInst>(block, name);
}

oaBoolean oaScalarInst::isValidName(const oaBlock* block, const oaScalarName& name) {
    return !name.isEmpty() && !oaInst::find(block, name);
}

void oaScalarInst::getName(oaScalarName& name) const {
    name = scalarNameOf(nameOf(this));
}

void oaScalarInst::setName(const oaScalarName& name) {
    renameInst(this, internalName(name));
}

} // namespace OpenAccess_4
