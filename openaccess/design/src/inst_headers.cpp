#include "design/src/inst_headers.h"

#include "base/src/append_bytes.h"
#include "design/src/design_database.h"
#include "design/src/open_designs.h"
#include "oa/oaDesign.h"

#include <algorithm>

namespace OpenAccess_4::impl {

SubHeaders::SubHeaders(DesignDatabase& database)
    : table(database.addTable<SubHeaderRecord>(TableId{kSubHeaderTable, kTransientKind, 0})),
      database_(database) {}

std::string SubHeaders::keyOf(std::uint32_t inst) {
    Instances& instances = database_.instances;
    std::vector<std::uint32_t> params = instances.instParams.of(inst);
    // Sets that differ in order only are the same.
    std::stable_sort(params.begin(), params.end(), [&](std::uint32_t left, std::uint32_t right) {
        return instances.params[left].name < instances.params[right].name;
    });
    std::string key;
    appendBytes(key, instances.insts[inst].master);
    for (const std::uint32_t param : params)
        appendKey(key, instances.params[param]);
    return key;
}

std::uint32_t SubHeaders::of(std::uint32_t inst) {
    if (inst < subs_.size() && subs_[inst] != kNone)
        return subs_[inst];
    const std::uint32_t master = database_.instances.insts[inst].master;
    const auto [entry, isNew] = byParams_.try_emplace(keyOf(inst), kNone);
    if (isNew)
        entry->second = table.add({master, &entry->first, nullptr});
    if (inst >= subs_.size())
        subs_.resize(database_.instances.insts.slots(), kNone);
    if (master >= grouped_.size())
        grouped_.resize(database_.instances.masters.slots());
    subs_[inst] = entry->second;
    ++grouped_[master];
    insts_.append(entry->second, inst);
    return entry->second;
}

void SubHeaders::groupAll(std::uint32_t master) {
    OwnedSlots<InstRecord, InstMaster>& masterInsts = database_.instances.masterInsts;
    if (master < grouped_.size() && grouped_[master] == masterInsts.count(master))
        return;
    for (const std::uint32_t inst : masterInsts.of(master))
        of(inst);
}

std::vector<std::uint32_t> SubHeaders::instsOf(std::uint32_t sub) {
    groupAll(table[sub].master);
    return insts_.slots(sub);
}

std::vector<std::uint32_t> SubHeaders::ofMaster(std::uint32_t master) {
    groupAll(master);
    std::vector<std::uint32_t> subs;
    table.forEach([&](std::uint32_t slot, const SubHeaderRecord& record) {
        if (record.master == master)
            subs.push_back(slot);
    });
    return subs;
}

oaDesign* SubHeaders::bound(std::uint32_t sub) const {
    oaDesign* design = table[sub].bound;
    return design && design->isValid() ? design : nullptr;
}

void SubHeaders::bind(std::uint32_t sub, oaDesign* submaster) {
    oaDesign* former = std::exchange(table[sub].bound, submaster);
    if (submaster && ++uses_[submaster] == 1)
        noteBinder(submaster, database_.design());
    if (const auto use = uses_.find(former); use != uses_.end() && --use->second == 0)
        uses_.erase(use);
}

std::vector<oaDesign*> SubHeaders::boundDesigns() const {
    std::vector<oaDesign*> designs;
    for (const auto& [design, count] : uses_)
        if (design->isValid())
            designs.push_back(design);
    return designs;
}

void SubHeaders::unbind(std::uint32_t master) {
    table.forEach([&](std::uint32_t slot, const SubHeaderRecord& record) {
        if (record.master == master)
            bind(slot, nullptr);
    });
}

void SubHeaders::forget(std::uint32_t inst) {
    if (inst >= subs_.size() || subs_[inst] == kNone)
        return;
    const std::uint32_t sub = std::exchange(subs_[inst], kNone);
    --grouped_[table[sub].master];
    insts_.remove(sub, inst);
    if (insts_.count(sub) > 0)
        return;
    bind(sub, nullptr);
    byParams_.erase(std::string(*table[sub].params));
    table.destroy(sub);
}

} // namespace OpenAccess_4::impl
