#include "design/src/instances.h"

#include "base/src/geometry.h"
#include "design/src/design_database.h"
#include "design/src/instance_edit.h"
#include "design/src/measuring.h"
#include "design/src/open_designs.h"
#include "oa/oaInst.h"
#include "oa/oaTransform.h"

#include <unordered_set>

namespace OpenAccess_4::impl {

oaTypeEnum InstRecord::type() const {
    switch (kind) {
    case InstKind::Array:
        return oacArrayInstType;
    case InstKind::Vector:
        return oacVectorInstType;
    case InstKind::VectorBit:
    case InstKind::ImplicitBit:
        return oacVectorInstBitType;
    default:
        return oacScalarInstType;
    }
}

oaObject* InstRecord::construct(void* where) const {
    switch (kind) {
    case InstKind::Array:
        return Handles::construct<oaArrayInst>(where);
    case InstKind::Vector:
        return Handles::construct<oaVectorInst>(where);
    case InstKind::VectorBit:
    case InstKind::ImplicitBit:
        return Handles::construct<oaVectorInstBit>(where);
    default:
        return Handles::construct<oaScalarInst>(where);
    }
}

Instances::Instances(DesignDatabase& database)
    : masters(database.addTable<MasterRecord>(kMasterTable)),
      insts(database.addTable<InstRecord>(kInstTable)),
      params(database.addTable<InstParamRecord>(kInstParamTable)),
      names(database, insts),
      instParams(params),
      masterInsts(insts),
      terms(database),
      subHeaders(database),
      database_(database) {}

std::uint32_t Instances::master(const DesignNames& design) {
    const std::uint32_t known = findMaster(design);
    if (known != kNone)
        return known;
    return masters.add({database_.strings.intern(design.lib), database_.strings.intern(design.cell),
                        database_.strings.intern(design.view)});
}

std::uint32_t Instances::findMaster(const DesignNames& design) {
    const std::array<StringId, 3> key = {database_.strings.find(design.lib),
                                         database_.strings.find(design.cell),
                                         database_.strings.find(design.view)};
    for (; indexed_ < masters.slots(); ++indexed_) {
        if (!masters.isLive(indexed_))
            continue;
        const MasterRecord& master = masters[indexed_];
        masterSlots_.emplace(std::array{master.lib, master.cell, master.view}, indexed_);
    }
    const auto found = masterSlots_.find(key);
    return found == masterSlots_.end() ? kNone : found->second;
}

DesignNames Instances::namesOf(std::uint32_t master) const {
    const MasterRecord& record = masters[master];
    return {database_.strings.chars(record.lib), database_.strings.chars(record.cell),
            database_.strings.chars(record.view)};
}

oaDesign* Instances::boundMaster(std::uint32_t master) const {
    oaDesign* design = master < bound_.size() ? bound_[master] : nullptr;
    return design && design->isValid() ? design : nullptr;
}

oaDesign* Instances::bind(std::uint32_t master) {
    if (oaDesign* design = boundMaster(master))
        return design;
    oaDesign* design = openMaster(namesOf(master));
    if (design)
        bind(master, design);
    return design;
}

void Instances::bind(std::uint32_t master, oaDesign* design) {
    bound_.resize(masters.slots());
    if (bound_[master] == design)
        return;
    bound_[master] = design;
    noteBinder(design, database_.design());
}

bool Instances::isPcell(std::uint32_t master) {
    if (const oaDesign* design = boundMaster(master))
        return designDatabaseOf(design).pcell.isDefined();
    return hasParams(master); // only instances of pcells are given some
}

bool Instances::hasParams(std::uint32_t master) {
    const std::uint32_t destroyed = params.slots() - params.live();
    if (destroyed != paramsSeen_.destroyed) {
        paramsSeen_ = {0, destroyed};
        mastersWithParams_.clear();
    }
    mastersWithParams_.resize(masters.slots());
    for (; paramsSeen_.slots < params.slots(); ++paramsSeen_.slots)
        if (params.isLive(paramsSeen_.slots))
            mastersWithParams_[insts[params[paramsSeen_.slots].owner].master] = true;
    return mastersWithParams_[master];
}

oaDesign* Instances::boundMasterOf(std::uint32_t inst) {
    const std::uint32_t slot = explicitOf(inst);
    oaDesign* design = boundMaster(insts[slot].master);
    if (!design || !designDatabaseOf(design).pcell.isDefined())
        return design;
    return subHeaders.bound(subHeaders.of(slot));
}

oaDesign* Instances::masterOf(std::uint32_t inst) {
    const std::uint32_t slot = explicitOf(inst);
    oaDesign* design = bind(insts[slot].master);
    if (!design || !designDatabaseOf(design).pcell.isDefined())
        return design;
    const std::uint32_t sub = subHeaders.of(slot);
    if (oaDesign* submaster = subHeaders.bound(sub))
        return submaster;
    oaDesign* submaster = bindSub(slot, design);
    // An evaluator may do anything, even change the instance that it is asked for.
    if (submaster && insts.isLive(slot) && subHeaders.of(slot) == sub)
        subHeaders.bind(sub, submaster);
    return submaster;
}

std::vector<oaDesign*> Instances::boundMasters() const {
    std::vector<oaDesign*> designs = subHeaders.boundDesigns();
    for (std::uint32_t master = 0; master < bound_.size(); ++master)
        if (oaDesign* design = boundMaster(master))
            designs.push_back(design);
    return designs;
}

/// The slot of the master that is bound to `design`, or kNone.
std::uint32_t Instances::masterBoundTo(const oaDesign* design) {
    const std::uint32_t master = findMaster(recordFor(design).names);
    return master < bound_.size() && bound_[master] == design ? master : kNone;
}

bool Instances::isBoundTo(const oaDesign* design) {
    if (subHeaders.isBoundTo(design))
        return true;
    const std::uint32_t master = masterBoundTo(design);
    return master != kNone && masterInsts.any(master);
}

bool Instances::knows(const oaDesign* design) {
    return subHeaders.isBoundTo(design) || masterBoundTo(design) != kNone;
}

void Instances::setMaster(std::uint32_t slot, std::uint32_t master) {
    subHeaders.forget(slot);
    masterInsts.remove(slot);
    paramsSeen_.slots = 0;
    mastersWithParams_.clear();
    insts[slot].master = master;
    masterInsts.insert(slot);
    if (insts[slot].isVector())
        for (const std::uint32_t bit : bitsOf(slot))
            insts[bit].master = master;
}

void Instances::destroy(std::uint32_t slot) {
    if (insts[slot].isVector())
        for (const std::uint32_t bit : bitsOf(slot))
            if (bit != kNone) // it went already, when everything is destroyed
                database_.destroyFig({kInstTable, bit});
    subHeaders.forget(slot);
    terms.destroyOfInst(slot);
    clearParams(slot);
    database_.forgetAttachments({kInstTable, slot});
    names.remove(slot);
    masterInsts.remove(slot);
    insts.destroy(slot);
}

oaBox Instances::extent() {
    oaBox box = emptyBox();
    insts.forEach([&](std::uint32_t slot, const InstRecord& inst) {
        if (!inst.isImplicit())
            enlarge(box, boxOf(slot));
    });
    return box;
}

oaBox Instances::boxOfOne(std::uint32_t slot) {
    const InstRecord inst = insts[explicitOf(slot)];
    const oaDesign* master = masterOf(slot);
    const Measuring guard(database_.measuring);
    oaBox box = master ? designDatabaseOf(master).extent() : emptyBox();
    if (!box.isInverted())
        box.transform(oaTransform(inst.x, inst.y, oaOrientEnum(inst.orient)));
    return box;
}

oaBox Instances::boxOf(std::uint32_t slot) {
    const oaBox box = boxOfOne(slot);
    const InstRecord& inst = insts[slot];
    if (box.isInverted() || !inst.isArray())
        return box;
    const double dX = double(inst.dX) * (inst.cols - 1);
    const double dY = double(inst.dY) * (inst.rows - 1);
    return {nearestCoord(box.left() + std::min(dX, 0.0)),
            nearestCoord(box.bottom() + std::min(dY, 0.0)),
            nearestCoord(box.right() + std::max(dX, 0.0)),
            nearestCoord(box.top() + std::max(dY, 0.0))};
}

namespace {

/// The masters of the instances and vias of a design, which are bound on the way.
std::vector<oaDesign*> mastersIn(DesignDatabase& design) {
    std::vector<oaDesign*> masters;
    const auto add = [&](oaDesign* master) {
        if (master)
            masters.push_back(master);
    };
    Instances& instances = design.instances;
    for (std::uint32_t slot = 0; slot < instances.insts.slots(); ++slot)
        if (instances.insts.isLive(slot))
            add(instances.masterOf(slot));
    Vias& vias = design.vias;
    for (std::uint32_t slot = 0; slot < vias.subs.slots(); ++slot)
        if (vias.subs.isLive(slot))
            add(vias.masterOf(slot));
    return masters;
}

} // namespace

void openMastersOf(oaDesign* design, std::uint32_t levels) {
    std::unordered_set<oaDesign*> met = {design};
    std::vector<oaDesign*> level = {design};
    for (; levels > 0 && !level.empty(); --levels) {
        std::vector<oaDesign*> next;
        for (const oaDesign* upper : level)
            for (oaDesign* master : mastersIn(designDatabaseOf(upper)))
                if (met.insert(master).second)
                    next.push_back(master);
        level = std::move(next);
    }
}

void Instances::dropUnusedMasters() {
    std::vector<bool> used(masters.slots());
    insts.forEach([&](std::uint32_t, const InstRecord& inst) { used[inst.master] = true; });
    masters.forEach([&](std::uint32_t slot, const MasterRecord& master) {
        if (used[slot])
            return;
        masterSlots_.erase({master.lib, master.cell, master.view});
        database_.forgetAttachments({kMasterTable, slot});
        masters.destroy(slot);
    });
}

bool Instances::isSound() {
    return names.isSound() && terms.isSound() && areVectorsSound();
}

} // namespace OpenAccess_4::impl
