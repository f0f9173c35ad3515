#pragma once

#include "base/src/chain_index.h"
#include "design/src/named_slots.h"

#include <vector>

namespace OpenAccess_4::impl {

/// Which net (pin, layer-purpose pair) a figure belongs to, for those figures that belong to one: a
/// side table, so that the others pay nothing.
template <class Record>
class FigOwners {
public:
    explicit FigOwners(Table<Record>& table) : table_(table) {}

    bool isEmpty() const { return table_.live() == 0; }

    /// The slot of the owner of a figure, or kNone.
    std::uint32_t ownerOf(const ObjectRef& fig) {
        const std::uint32_t slot = slotOf(fig);
        return slot == kNone ? kNone : table_[slot].owner;
    }
    void set(const ObjectRef& fig, std::uint32_t owner) {
        remove(fig);
        table_.add({fig, owner});
    }
    void remove(const ObjectRef& fig) {
        const std::uint32_t slot = slotOf(fig);
        if (slot != kNone)
            removeSlot(slot);
    }
    void removeOwner(std::uint32_t owner) {
        catchUp();
        while (byOwner_.first(owner) != kNone)
            removeSlot(byOwner_.first(owner));
    }
    bool owns(std::uint32_t owner) {
        catchUp();
        return byOwner_.first(owner) != kNone;
    }
    std::vector<ObjectRef> figsOf(std::uint32_t owner) {
        catchUp();
        std::vector<ObjectRef> figs;
        for (std::uint32_t slot = byOwner_.first(owner); slot != kNone; slot = byOwner_.next(slot))
            figs.push_back(table_[slot].fig);
        return figs;
    }
    /// True when no figure has two owners; to be asked before anything is changed.
    bool isSound() {
        catchUp();
        return byFig_.size() == table_.live();
    }

private:
    std::uint32_t slotOf(const ObjectRef& fig) {
        if (isEmpty())
            return kNone;
        catchUp();
        const SlotEntry* entry = byFig_.find(fig.key());
        return entry ? entry->slot : kNone;
    }
    void removeSlot(std::uint32_t slot) {
        byOwner_.remove(table_[slot].owner, slot);
        byFig_.erase(table_[slot].fig.key());
        table_.destroy(slot);
    }
    void catchUp() {
        for (; indexed_ < table_.slots(); ++indexed_) {
            if (!table_.isLive(indexed_))
                continue;
            byFig_[table_[indexed_].fig.key()] = {indexed_};
            byOwner_.append(table_[indexed_].owner, indexed_);
        }
    }

    Table<Record>& table_;
    FlatMap<SlotEntry> byFig_;
    ChainIndex byOwner_;
    std::uint32_t indexed_ = 0; // slots that the indices know
};

} // namespace OpenAccess_4::impl
