#include "design/src/vias.h"

#include "base/src/append_bytes.h"
#include "design/src/design_database.h"
#include "design/src/instance_edit.h"
#include "design/src/measuring.h"
#include "design/src/open_designs.h"
#include "design/src/param_records.h"
#include "design/src/via_masters.h"
#include "oa/oaException.h"
#include "oa/oaTech.h"
#include "oa/oaVia.h"
#include "oa/oaViaHeader.h"
#include "tech/src/via_defs.h"

#include <algorithm>

namespace OpenAccess_4::impl {

namespace {

/// The technology of a design; null also when it cannot be read.
const oaTech* techOf(const oaDesign* design) {
    try {
        return design->getTech();
    } catch (const oaException&) {
        return nullptr;
    }
}

bool isOfKind(const oaViaDef* def, ViaDefKind kind) {
    return def->getType() ==
           (kind == ViaDefKind::Standard ? oacStdViaDefType : oacCustomViaDefType);
}

oaObject* constructHeader(ViaDefKind kind, void* where) {
    return kind == ViaDefKind::Standard ? Handles::construct<oaStdViaHeader>(where)
                                        : Handles::construct<oaCustomViaHeader>(where);
}

oaTypeEnum headerType(ViaDefKind kind) {
    return kind == ViaDefKind::Standard ? oacStdViaHeaderType : oacCustomViaHeaderType;
}

} // namespace

oaTypeEnum ViaHeaderRecord::type() const {
    return headerType(kind);
}

oaObject* ViaHeaderRecord::construct(void* where) const {
    return constructHeader(kind, where);
}

oaTypeEnum ViaSubHeaderRecord::type() const {
    return headerType(kind);
}

oaObject* ViaSubHeaderRecord::construct(void* where) const {
    return constructHeader(kind, where);
}

oaObject* ViaRecord::construct(void* where) const {
    return isCustom ? Handles::construct<oaCustomVia>(where) : Handles::construct<oaStdVia>(where);
}

oaDesign* BoundDesigns::at(std::uint32_t slot) const {
    oaDesign* design = slot < bound_.size() ? bound_[slot] : nullptr;
    return design && design->isValid() ? design : nullptr;
}

oaDesign* BoundDesigns::set(std::uint32_t slot, oaDesign* design) {
    if (slot >= bound_.size()) {
        if (!design)
            return nullptr;
        bound_.resize(slot + 1);
    }
    oaDesign* former = std::exchange(bound_[slot], design);
    if (design)
        ++uses_[design];
    if (const auto use = uses_.find(former); use != uses_.end() && --use->second == 0)
        uses_.erase(use);
    return former;
}

void BoundDesigns::addTo(std::vector<oaDesign*>& designs) const {
    for (const auto& [design, count] : uses_)
        if (design->isValid())
            designs.push_back(design);
}

Vias::Vias(DesignDatabase& database)
    : headers(database.addTable<ViaHeaderRecord>(kViaHeaderTable)),
      subs(database.addTable<ViaSubHeaderRecord>(kViaSubHeaderTable)),
      params(database.addTable<ViaParamRecord>(kViaParamTable)),
      vias(database.addTable<ViaRecord>(kViaTable)),
      headerSubs(subs),
      subParams(params),
      subVias(vias),
      database_(database) {}

void Vias::catchUp() {
    for (; indexedHeaders_ < headers.slots(); ++indexedHeaders_)
        if (headers.isLive(indexedHeaders_)) {
            const ViaHeaderRecord& record = headers[indexedHeaders_];
            headerSlots_.emplace(std::pair(record.name, record.kind), indexedHeaders_);
        }
    for (; indexedSubs_ < subs.slots(); ++indexedSubs_)
        if (subs.isLive(indexedSubs_))
            subSlots_.emplace(keyOf(indexedSubs_), indexedSubs_);
}

std::uint32_t Vias::findHeader(std::string_view defName, ViaDefKind kind) {
    catchUp();
    const auto found = headerSlots_.find({database_.strings.find(defName), kind});
    return found == headerSlots_.end() ? kNone : found->second;
}

std::uint32_t Vias::header(std::string_view defName, ViaDefKind kind) {
    const std::uint32_t known = findHeader(defName, kind);
    return known != kNone ? known : headers.add({database_.strings.intern(defName), kind});
}

std::string Vias::keyOf(const ViaSubHeaderRecord& sub, std::vector<ViaParamRecord> given) const {
    std::string key;
    appendBytes(key, sub.header);
    appendBytes(key, sub.params);
    // Sets that differ in order only are the same.
    std::ranges::stable_sort(given, {}, &ViaParamRecord::name);
    for (const ViaParamRecord& param : given)
        appendKey(key, param);
    return key;
}

std::string Vias::keyOf(std::uint32_t sub) {
    std::vector<ViaParamRecord> given;
    for (const std::uint32_t param : subParams.of(sub))
        given.push_back(params[param]);
    return keyOf(subs[sub], std::move(given));
}

std::uint32_t Vias::subFor(const ViaSubHeaderRecord& sub,
                           const std::vector<ViaParamRecord>& given) {
    catchUp();
    const auto found = subSlots_.find(keyOf(sub, given));
    if (found != subSlots_.end())
        return found->second;
    const std::uint32_t slot = subs.add(sub);
    for (ViaParamRecord param : given) {
        param.owner = slot;
        params.add(param);
    }
    return slot;
}

std::uint32_t Vias::stdSub(std::string_view defName, const oaViaParam& given) {
    ViaSubHeaderRecord sub;
    sub.header = header(defName, ViaDefKind::Standard);
    sub.params = ViaParams::store(given, database_.strings);
    return subFor(sub, {});
}

std::uint32_t Vias::customSub(std::string_view defName, const oaParamArray& given) {
    ViaSubHeaderRecord sub;
    sub.kind = ViaDefKind::Custom;
    sub.header = header(defName, ViaDefKind::Custom);
    std::vector<ViaParamRecord> records(given.getNumElements());
    for (oaUInt4 i = 0; i < given.getNumElements(); ++i)
        storeParam(records[i], database_.strings, given[i]);
    return subFor(sub, records);
}

oaObject* Vias::add(std::uint32_t sub, const oaTransform& xform) {
    ViaRecord via;
    via.sub = sub;
    via.x = xform.xOffset();
    via.y = xform.yOffset();
    via.orient = std::uint8_t(oaOrientEnum(xform.orient()));
    via.isCustom = subs[sub].kind == ViaDefKind::Custom;
    return vias.handle(vias.add(via));
}

void Vias::setSub(std::uint32_t via, std::uint32_t sub) {
    const std::uint32_t former = vias[via].sub;
    if (former == sub)
        return;
    subVias.remove(via);
    vias[via].sub = sub;
    subVias.insert(via);
    release(former);
}

void Vias::destroy(std::uint32_t via) {
    database_.forgetAttachments({kViaTable, via});
    const std::uint32_t sub = vias[via].sub;
    subVias.remove(via);
    vias.destroy(via);
    release(sub);
}

void Vias::destroyAll() {
    vias.forEach([&](std::uint32_t slot, const ViaRecord&) {
        database_.destroyFig({kViaTable, slot});
    });
}

/// Destroys a sub header that has no via any more, and its header with the last one.
void Vias::release(std::uint32_t sub) {
    if (subVias.any(sub))
        return;
    catchUp();
    const std::uint32_t header = subs[sub].header;
    subSlots_.erase(keyOf(sub));
    forget(subMasters_, sub);
    for (const std::uint32_t param : subParams.of(sub)) {
        subParams.remove(param);
        params.destroy(param);
    }
    database_.forgetAttachments({kViaSubHeaderTable, sub});
    headerSubs.remove(sub);
    subs.destroy(sub);
    if (headerSubs.any(header))
        return;
    headerSlots_.erase({headers[header].name, headers[header].kind});
    forget(headerMasters_, header);
    database_.forgetAttachments({kViaHeaderTable, header});
    headers.destroy(header);
}

oaViaParam Vias::stdParamsOf(std::uint32_t sub) const {
    return ViaParams::load(subs[sub].params, database_.strings);
}

oaParamArray Vias::customParamsOf(std::uint32_t sub) {
    oaParamArray array;
    for (const std::uint32_t param : subParams.of(sub))
        array.append(paramOf(params[param], database_.strings));
    return array;
}

oaViaDef* Vias::definitionOf(std::uint32_t header) const {
    const ViaHeaderRecord& record = headers[header];
    const oaTech* tech = techOf(database_.design());
    oaViaDef* def = tech ? oaViaDef::find(tech, database_.strings.chars(record.name)) : nullptr;
    return def && isOfKind(def, record.kind) ? def : nullptr;
}

void Vias::bind(BoundDesigns& bound, std::uint32_t slot, oaDesign* design) {
    if (bound.at(slot) == design)
        return;
    oaDesign* former = bound.set(slot, design);
    if (design)
        noteBinder(design, database_.design());
    if (former)
        purgeUnused({former});
}

void Vias::forget(BoundDesigns& bound, std::uint32_t slot) {
    // Others of the same master may come; it stays open as long as this design, as for instances.
    if (oaDesign* former = bound.set(slot, nullptr))
        former_.insert(former);
}

oaDesign* Vias::headerMasterOf(std::uint32_t header) {
    if (headers[header].kind == ViaDefKind::Standard)
        return nullptr;
    oaDesign* master = nullptr;
    if (const oaViaDef* def = definitionOf(header)) {
        const ViaMasterNames names = masterNamesOf(static_cast<const oaCustomViaDef*>(def));
        master = openMaster({names.lib, names.cell, names.view});
    }
    bind(headerMasters_, header, master);
    return master;
}

oaDesign* Vias::customMasterOf(std::uint32_t sub, std::uint32_t header) {
    oaDesign* master = headerMasterOf(header);
    if (!master || !designDatabaseOf(master).pcell.isDefined())
        return master;
    return submasterFor(master, customParamsOf(sub));
}

oaDesign* Vias::masterOf(std::uint32_t sub) {
    const ViaSubHeaderRecord record = subs[sub];
    oaDesign* master = nullptr;
    if (record.kind == ViaDefKind::Custom)
        master = customMasterOf(sub, record.header);
    else if (const oaViaDef* def = definitionOf(record.header))
        master = stdViaMasterOf(static_cast<const oaStdViaDef*>(def), stdParamsOf(sub));
    // An evaluator may do anything, even destroy the vias that it is asked for.
    if (subs.isLive(sub))
        bind(subMasters_, sub, master);
    return master;
}

std::vector<oaDesign*> Vias::boundMasters() const {
    std::vector<oaDesign*> designs;
    subMasters_.addTo(designs);
    headerMasters_.addTo(designs);
    for (oaDesign* design : former_)
        if (design->isValid())
            designs.push_back(design);
    return designs;
}

oaBox Vias::masterBoxOf(std::uint32_t sub) {
    const oaDesign* master = masterOf(sub);
    const Measuring guard(database_.measuring);
    return master ? designDatabaseOf(master).extent() : emptyBox();
}

oaBox Vias::placed(oaBox masterBox, const ViaRecord& via) const {
    if (!masterBox.isInverted())
        masterBox.transform(oaTransform(via.x, via.y, oaOrientEnum(via.orient)));
    return masterBox;
}

oaBox Vias::boxOf(std::uint32_t via) {
    const ViaRecord record = vias[via];
    return placed(masterBoxOf(record.sub), record);
}

oaBox Vias::extent() {
    std::vector<oaBox> masters(subs.slots(), emptyBox());
    for (std::uint32_t sub = 0; sub < masters.size(); ++sub)
        if (subs.isLive(sub))
            masters[sub] = masterBoxOf(sub);
    oaBox box = emptyBox();
    vias.forEach([&](std::uint32_t, const ViaRecord& via) {
        if (via.sub < masters.size())
            enlarge(box, placed(masters[via.sub], via));
    });
    return box;
}

bool Vias::isSound() {
    catchUp();
    bool sound = headerSlots_.size() == headers.slots() && subSlots_.size() == subs.slots();
    for (std::uint32_t slot = 0; slot < headers.slots(); ++slot)
        sound = sound && headerSubs.any(slot);
    subs.forEach([&](std::uint32_t slot, const ViaSubHeaderRecord& sub) {
        sound = sound && subVias.any(slot) && sub.kind == headers[sub.header].kind &&
                ViaParams::isSound(sub.params, database_.strings);
    });
    params.forEach([&](std::uint32_t, const ViaParamRecord& param) {
        sound = sound && subs[param.owner].kind == ViaDefKind::Custom;
    });
    vias.forEach([&](std::uint32_t, const ViaRecord& via) {
        sound = sound && (via.isCustom != 0) == (subs[via.sub].kind == ViaDefKind::Custom);
    });
    return sound;
}

} // namespace OpenAccess_4::impl
