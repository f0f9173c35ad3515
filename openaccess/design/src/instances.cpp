#include "design/src/instances.h"

#include "base/src/geometry.h"
#include "design/src/design_database.h"
#include "design/src/open_designs.h"
#include "oa/oaInst.h"
#include "oa/oaTransform.h"

#include <utility>

namespace OpenAccess_4::impl {

namespace {

/// Sets a flag for a scope.
class Measuring {
public:
    explicit Measuring(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    Measuring(const Measuring&) = delete;
    Measuring& operator=(const Measuring&) = delete;
    ~Measuring() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};

} // namespace

oaObject* InstRecord::construct(void* where) const {
    return isArray ? Handles::construct<oaArrayInst>(where)
                   : Handles::construct<oaScalarInst>(where);
}

Instances::Instances(DesignDatabase& database)
    : masters(database.addTable<MasterRecord>(kMasterTable)),
      insts(database.addTable<InstRecord>(kInstTable)),
      params(database.addTable<InstParamRecord>(kInstParamTable)),
      names(database, insts),
      instParams(params),
      database_(database) {}

std::uint32_t Instances::master(const DesignNames& design) {
    const std::array<StringId, 3> key = {database_.strings.intern(design.lib),
                                         database_.strings.intern(design.cell),
                                         database_.strings.intern(design.view)};
    for (; indexed_ < masters.slots(); ++indexed_) {
        if (!masters.isLive(indexed_))
            continue;
        const MasterRecord& master = masters[indexed_];
        masterSlots_.emplace(std::array{master.lib, master.cell, master.view}, indexed_);
    }
    const auto found = masterSlots_.find(key);
    return found == masterSlots_.end() ? masters.add({key[0], key[1], key[2]}) : found->second;
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
    bound_[master] = design;
}

std::vector<oaDesign*> Instances::boundMasters() const {
    std::vector<oaDesign*> designs;
    for (std::uint32_t master = 0; master < bound_.size(); ++master)
        if (oaDesign* design = boundMaster(master))
            designs.push_back(design);
    return designs;
}

bool Instances::isBoundTo(const oaDesign* design) const {
    for (std::uint32_t master = 0; master < bound_.size(); ++master) {
        if (bound_[master] != design)
            continue;
        for (std::uint32_t slot = 0; slot < insts.slots(); ++slot)
            if (insts.isLive(slot) && insts[slot].master == master)
                return true;
    }
    return false;
}

void Instances::destroy(std::uint32_t slot) {
    clearParams(slot);
    database_.forgetAttachments({kInstTable, slot});
    names.remove(slot);
    insts.destroy(slot);
}

oaBox Instances::extent() {
    oaBox box = emptyBox();
    insts.forEach([&](std::uint32_t slot, const InstRecord&) { enlarge(box, boxOf(slot)); });
    return box;
}

oaBox Instances::boxOfOne(std::uint32_t slot) {
    const InstRecord inst = insts[slot];
    const oaDesign* master = bind(inst.master);
    const Measuring guard(database_.measuring);
    oaBox box = master ? designDatabaseOf(master).extent() : emptyBox();
    if (!box.isInverted())
        box.transform(oaTransform(inst.x, inst.y, oaOrientEnum(inst.orient)));
    return box;
}

oaBox Instances::boxOf(std::uint32_t slot) {
    const oaBox box = boxOfOne(slot);
    const InstRecord& inst = insts[slot];
    if (box.isInverted() || !inst.isArray)
        return box;
    const double dX = double(inst.dX) * (inst.cols - 1);
    const double dY = double(inst.dY) * (inst.rows - 1);
    return {nearestCoord(box.left() + std::min(dX, 0.0)),
            nearestCoord(box.bottom() + std::min(dY, 0.0)),
            nearestCoord(box.right() + std::max(dX, 0.0)),
            nearestCoord(box.top() + std::max(dY, 0.0))};
}

void Instances::dropUnusedMasters() {
    std::vector<bool> used(masters.slots());
    insts.forEach([&](std::uint32_t, const InstRecord& inst) { used[inst.master] = true; });
    masters.forEach([&](std::uint32_t slot, const MasterRecord& master) {
        if (used[slot])
            return;
        masterSlots_.erase({master.lib, master.cell, master.view});
        masters.destroy(slot);
    });
}

bool Instances::isSound() {
    return names.isSound();
}

} // namespace OpenAccess_4::impl
