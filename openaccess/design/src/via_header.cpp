#include "oa/oaViaHeader.h"

#include "base/src/source.h"
#include "design/src/instance_edit.h"
#include "design/src/names.h"
#include "design/src/open_designs.h"
#include "design/src/via_edit.h"
#include "oa/oaBlock.h"
#include "oa/oaDesign.h"
#include "oa/oaVia.h"
#include "oa/oaViaDef.h"
#include "tech/src/via_defs.h"

namespace OpenAccess_4 {

using namespace impl;

namespace {

Vias& viasOf(const oaObject* object) {
    return designDatabaseOf(object).vias;
}

std::vector<oaObject*> handlesOf(TableBase& table, const std::vector<std::uint32_t>& slots) {
    std::vector<oaObject*> handles;
    for (const std::uint32_t slot : slots)
        handles.push_back(table.handle(slot));
    return handles;
}

oaViaHeader* headerIn(Vias& vias, std::uint32_t slot) {
    return slot == kNone ? nullptr : static_cast<oaViaHeader*>(vias.headers.handle(slot));
}

/// The names of the master of custom vias, empty without a definition.
ViaMasterNames masterNames(const oaCustomViaHeader* header) {
    const oaViaDef* def = header->getViaDef();
    return def ? masterNamesOf(static_cast<const oaCustomViaDef*>(def)) : ViaMasterNames();
}

void getPart(const std::string& part, oaScalarName& name) {
    name = part.empty() ? oaScalarName() : scalarName(part.c_str());
}

void getPart(const std::string& part, const oaNameSpace& ns, oaString& name) {
    if (part.empty())
        name = "";
    else
        spell(part.c_str(), ns, name);
}

/// The header of the vias of a definition in an open design, or null.
oaViaHeader* usedBy(const OpenDesignRecord& design, const oaViaDef* def, const oaString& name) {
    if (!design.content)
        return nullptr;
    Vias& vias = design.content->vias;
    const bool isStandard = def->getType() == oacStdViaDefType;
    const std::uint32_t header = vias.findHeader(
        std::string_view(name), isStandard ? ViaDefKind::Standard : ViaDefKind::Custom);
    return header != kNone && vias.definitionOf(header) == def ? headerIn(vias, header) : nullptr;
}

} // namespace

namespace impl {

ViaHeaderView::ViaHeaderView(const oaObject* header)
    : vias_(viasOf(header)),
      isSub_(tableOf(header).id().number == kViaSubHeaderTable),
      slot_(slotOf(header)) {}

oaDesign* ViaHeaderView::master() const {
    return isSub_ ? vias_.masterOf(slot_) : vias_.headerMasterOf(slot_);
}

oaDesign* ViaHeaderView::boundMaster() const {
    return isSub_ ? vias_.boundMaster(slot_) : vias_.boundHeaderMaster(slot_);
}

std::uint32_t ViaHeaderView::superHeader() const {
    return isSub_ ? vias_.subs[slot_].header : slot_;
}

std::vector<std::uint32_t> ViaHeaderView::vias() const {
    if (isSub_)
        return vias_.subVias.of(slot_);
    std::vector<std::uint32_t> all;
    for (const std::uint32_t sub : vias_.headerSubs.of(slot_)) {
        const std::vector<std::uint32_t> some = vias_.subVias.of(sub);
        all.insert(all.end(), some.begin(), some.end());
    }
    return all;
}

oaBox ViaHeaderView::box() const {
    oaBox box = emptyBox();
    for (const std::uint32_t via : vias())
        enlarge(box, vias_.boxOf(via));
    return box;
}

} // namespace impl

oaViaHeader* oaViaHeader::find(const oaBlock* block, const oaString& viaDefName) {
    Vias& vias = viasOf(block);
    const std::string_view name(viaDefName);
    const std::uint32_t standard = vias.findHeader(name, ViaDefKind::Standard);
    const std::uint32_t custom = vias.findHeader(name, ViaDefKind::Custom);
    // When there are both, the one that follows the definition that there is.
    const bool isCustom = standard == kNone || (custom != kNone && vias.definitionOf(custom));
    return headerIn(vias, isCustom ? custom : standard);
}

oaViaHeader* oaViaHeader::find(const oaBlock* block, const oaViaDef* viaDef) {
    oaString name;
    viaDef->getName(name);
    return usedBy(recordFor(designDatabaseOf(block).design()), viaDef, name);
}

oaViaDef* oaViaHeader::getViaDef() const {
    return viasOf(this).definitionOf(ViaHeaderView(this).superHeader());
}

void oaViaHeader::getViaDefName(oaString& name) const {
    const std::uint32_t header = ViaHeaderView(this).superHeader();
    name = databaseOf(this).strings.chars(viasOf(this).headers[header].name);
}

oaCollection<oaVia, oaViaHeader> oaViaHeader::getVias() const {
    return collectionOf<oaCollection<oaVia, oaViaHeader>>(
        handlesOf(viasOf(this).vias, ViaHeaderView(this).vias()));
}

oaCollection<oaViaHeader, oaViaHeader> oaViaHeader::getSubHeaders() const {
    Vias& vias = viasOf(this);
    std::vector<oaObject*> headers;
    if (!ViaHeaderView(this).isSub())
        headers = handlesOf(vias.subs, vias.headerSubs.of(slotOf(this)));
    return collectionOf<oaCollection<oaViaHeader, oaViaHeader>>(std::move(headers));
}

void oaStdViaHeader::getParams(oaViaParam& params) const {
    oaViaParam defaults;
    if (const oaViaDef* def = getViaDef())
        static_cast<const oaStdViaDef*>(def)->getParams(defaults);
    const oaViaParam given =
        ViaHeaderView(this).isSub() ? viasOf(this).stdParamsOf(slotOf(this)) : oaViaParam();
    params = ViaParams::overlaid(defaults, given);
}

void oaCustomViaHeader::getLibName(oaScalarName& libName) const {
    getPart(masterNames(this).lib, libName);
}

void oaCustomViaHeader::getLibName(const oaNameSpace& ns, oaString& libName) const {
    getPart(masterNames(this).lib, ns, libName);
}

void oaCustomViaHeader::getCellName(oaScalarName& cellName) const {
    getPart(masterNames(this).cell, cellName);
}

void oaCustomViaHeader::getCellName(const oaNameSpace& ns, oaString& cellName) const {
    getPart(masterNames(this).cell, ns, cellName);
}

void oaCustomViaHeader::getViewName(oaScalarName& viewName) const {
    getPart(masterNames(this).view, viewName);
}

void oaCustomViaHeader::getViewName(const oaNameSpace& ns, oaString& viewName) const {
    getPart(masterNames(this).view, ns, viewName);
}

void oaCustomViaHeader::getParams(oaParamArray& params) const {
    params =
        ViaHeaderView(this).isSub() ? viasOf(this).customParamsOf(slotOf(this)) : oaParamArray();
}

void oaCustomViaHeader::getAllParams(oaParamArray& params) const {
    getParams(params);
    addDefaults(params, viasOf(this).headerMasterOf(ViaHeaderView(this).superHeader()));
}

oaCollection<oaViaHeader, oaBlock> oaBlock::getViaHeaders() const {
    return collectionOf<oaCollection<oaViaHeader, oaBlock>>(
        std::vector<TableBase*>{&viasOf(this).headers});
}

oaCollection<oaViaHeader, oaViaDef> oaViaDef::getUsedIn() const {
    std::vector<oaObject*> used;
    oaString name;
    getName(name);
    for (Table<OpenDesignRecord>* designs : {&openDesigns(), &openSubmasters()})
        designs->forEach([&](std::uint32_t, const OpenDesignRecord& design) {
            if (oaViaHeader* header = usedBy(design, this, name))
                used.push_back(header);
        });
    return collectionOf<oaCollection<oaViaHeader, oaViaDef>>(std::move(used));
}

} // namespace OpenAccess_4
