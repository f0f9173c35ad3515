#include "oa/oaInstHeader.h"

#include "base/src/geometry.h"
#include "base/src/source.h"
#include "design/src/design_database.h"
#include "design/src/instance_edit.h"
#include "design/src/names.h"
#include "design/src/via_edit.h"
#include "oa/oaBlock.h"
#include "oa/oaDesign.h"
#include "oa/oaParamArray.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

Instances& instancesOf(const oaRefHeader* header) {
    return designDatabaseOf(header).instances;
}

bool isSub(const oaRefHeader* header) {
    return tableOf(header).id().number == kSubHeaderTable;
}

/// The slot of the master of a header of any kind.
std::uint32_t masterOf(const oaRefHeader* header) {
    return isSub(header) ? recordOf<SubHeaderRecord>(header).master : slotOf(header);
}

std::vector<std::uint32_t> instsOf(const oaRefHeader* header) {
    Instances& instances = instancesOf(header);
    return isSub(header) ? instances.subHeaders.instsOf(slotOf(header))
                         : instances.masterInsts.of(slotOf(header));
}

DesignNames namesOf(const oaInstHeader* header) {
    return instancesOf(header).namesOf(masterOf(header));
}

oaInstHeader* headerOf(Instances& instances, std::uint32_t master) {
    if (master == kNone || !instances.masterInsts.any(master))
        return nullptr;
    return static_cast<oaInstHeader*>(instances.masters.handle(master));
}

oaInstHeader* headerBoundTo(Instances& instances, const oaDesign* submaster) {
    oaObject* found = nullptr;
    instances.subHeaders.table.forEach([&](std::uint32_t slot, const SubHeaderRecord& sub) {
        if (!found && sub.bound == submaster)
            found = instances.subHeaders.table.handle(slot);
    });
    return static_cast<oaInstHeader*>(found);
}

} // namespace

void impl::addDefaults(oaParamArray& given, const oaDesign* superMaster) {
    if (!superMaster || !superMaster->isSuperMaster())
        return;
    oaParamArray params;
    superMaster->getParams(params);
    for (oaUInt4 i = 0; i < params.getNumElements(); ++i) {
        oaString name;
        oaParam param;
        params[i].getName(name);
        if (given.find(name, param) && param.getType() == params[i].getType())
            params[i] = param;
    }
    given = params;
}

oaDesign* oaRefHeader::getMaster() const {
    if (ViaHeaderView::isOne(this))
        return ViaHeaderView(this).master();
    Instances& instances = instancesOf(this);
    return isSub(this) ? instances.masterOf(instances.subHeaders.firstInst(slotOf(this)))
                       : instances.bind(slotOf(this));
}

oaBoolean oaRefHeader::isBound() const {
    if (ViaHeaderView::isOne(this))
        return ViaHeaderView(this).boundMaster() != nullptr;
    Instances& instances = instancesOf(this);
    return (isSub(this) ? instances.boundMasterOf(instances.subHeaders.firstInst(slotOf(this)))
                        : instances.boundMaster(slotOf(this))) != nullptr;
}

oaBoolean oaRefHeader::isSuperHeader() const {
    if (ViaHeaderView::isOne(this))
        return !ViaHeaderView(this).isSub();
    return !isSub(this) && instancesOf(this).isPcell(slotOf(this));
}

oaBoolean oaRefHeader::isSubHeader() const {
    return ViaHeaderView::isOne(this) ? ViaHeaderView(this).isSub() : isSub(this);
}

oaRefHeader* oaRefHeader::getSuperHeader() const {
    if (!isSubHeader())
        return nullptr;
    if (ViaHeaderView::isOne(this))
        return static_cast<oaRefHeader*>(
            designDatabaseOf(this).vias.headers.handle(ViaHeaderView(this).superHeader()));
    return static_cast<oaRefHeader*>(instancesOf(this).masters.handle(masterOf(this)));
}

void oaRefHeader::getMasterBBox(oaBox& bBox) const {
    const oaDesign* master = getMaster();
    bBox = master ? designDatabaseOf(master).extent() : emptyBox();
}

void oaRefHeader::getBBox(oaBox& bBox) const {
    if (ViaHeaderView::isOne(this)) {
        bBox = ViaHeaderView(this).box();
        return;
    }
    bBox = emptyBox();
    for (const std::uint32_t inst : instsOf(this))
        enlarge(bBox, instancesOf(this).boxOf(inst));
}

oaInstHeader* oaInstHeader::find(const oaBlock* block, const oaDesign* master) {
    Instances& instances = designDatabaseOf(block).instances;
    if (master->isSubMaster())
        return headerBoundTo(instances, master);
    return headerOf(instances, instances.findMaster(designDatabaseOf(master).names()));
}

oaInstHeader* oaInstHeader::find(const oaBlock* block, const oaScalarName& libName,
                                 const oaScalarName& cellName, const oaScalarName& viewName) {
    Instances& instances = designDatabaseOf(block).instances;
    return headerOf(instances, instances.findMaster(designNames(libName, cellName, viewName)));
}

void oaInstHeader::getLibName(oaScalarName& libName) const {
    libName = scalarName(namesOf(this).lib.c_str());
}

void oaInstHeader::getLibName(const oaNameSpace& ns, oaString& libName) const {
    spell(namesOf(this).lib.c_str(), ns, libName);
}

void oaInstHeader::getCellName(oaScalarName& cellName) const {
    cellName = scalarName(namesOf(this).cell.c_str());
}

void oaInstHeader::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    spell(namesOf(this).cell.c_str(), ns, cellName);
}

void oaInstHeader::getViewName(oaScalarName& viewName) const {
    viewName = scalarName(namesOf(this).view.c_str());
}

void oaInstHeader::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    spell(namesOf(this).view.c_str(), ns, viewName);
}

oaCollection<oaInst, oaInstHeader> oaInstHeader::getInsts(oaUInt4 filterFlags) const {
    std::vector<oaObject*> shown;
    for (const std::uint32_t inst : instsOf(this))
        instancesOf(this).collect(inst, filterFlags, shown);
    return collectionOf<oaCollection<oaInst, oaInstHeader>>(std::move(shown));
}

oaCollection<oaInstHeader, oaInstHeader> oaInstHeader::getSubHeaders() const {
    std::vector<oaObject*> headers;
    SubHeaders& subs = instancesOf(this).subHeaders;
    if (isSuperHeader())
        for (const std::uint32_t sub : subs.ofMaster(slotOf(this)))
            headers.push_back(subs.table.handle(sub));
    return collectionOf<oaCollection<oaInstHeader, oaInstHeader>>(std::move(headers));
}

void oaInstHeader::getParams(oaParamArray& params) const {
    Instances& instances = instancesOf(this);
    params = isSub(this) ? instances.paramsOf(instances.subHeaders.firstInst(slotOf(this)))
                         : oaParamArray();
}

void oaInstHeader::getAllParams(oaParamArray& params) const {
    getParams(params);
    addDefaults(params, instancesOf(this).bind(masterOf(this)));
}

oaBoolean oaInstHeader::findParam(const oaString& name, oaParam& param) const {
    oaParamArray params;
    getAllParams(params);
    return params.find(name, param);
}

oaCollection<oaInstHeader, oaBlock> oaBlock::getInstHeaders() const {
    Instances& instances = designDatabaseOf(this).instances;
    std::vector<oaObject*> headers;
    instances.masters.forEach([&](std::uint32_t slot, const MasterRecord&) {
        if (instances.masterInsts.any(slot))
            headers.push_back(instances.masters.handle(slot));
    });
    return collectionOf<oaCollection<oaInstHeader, oaBlock>>(std::move(headers));
}

} // namespace OpenAccess_4
