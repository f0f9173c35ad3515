#pragma once

#include "base/src/flat_map.h"
#include "base/src/refs.h"

#include <vector>

namespace OpenAccess_4::impl {

/// Ordered lists of slots of one table, each list under the key of what its members belong to:
/// the properties of an object, the terminals of a net. Derived from the records, never stored.
class ChainIndex {
public:
    void append(std::uint64_t key, std::uint32_t slot) {
        if (slot >= links_.size())
            links_.resize(slot + 1);
        Chain& chain = chains_[key];
        links_[slot] = {chain.last, kNone};
        if (chain.last == kNone)
            chain.first = slot;
        else
            links_[chain.last].next = slot;
        chain.last = slot;
        ++chain.count;
    }

    void remove(std::uint64_t key, std::uint32_t slot) {
        Chain* chain = chains_.find(key);
        if (!chain)
            return;
        const Link link = links_[slot];
        (link.previous == kNone ? chain->first : links_[link.previous].next) = link.next;
        (link.next == kNone ? chain->last : links_[link.next].previous) = link.previous;
        if (--chain->count == 0)
            chains_.erase(key);
    }

    std::uint32_t first(std::uint64_t key) const {
        const Chain* chain = chains_.find(key);
        return chain ? chain->first : kNone;
    }
    std::uint32_t next(std::uint32_t slot) const { return links_[slot].next; }
    std::uint32_t count(std::uint64_t key) const {
        const Chain* chain = chains_.find(key);
        return chain ? chain->count : 0;
    }

    /// The slots under `key`, in the order in which they were added.
    std::vector<std::uint32_t> slots(std::uint64_t key) const {
        std::vector<std::uint32_t> result;
        result.reserve(count(key));
        for (std::uint32_t slot = first(key); slot != kNone; slot = next(slot))
            result.push_back(slot);
        return result;
    }

    void clear() {
        chains_.clear();
        links_.clear();
    }

private:
    struct Chain {
        std::uint32_t first = kNone;
        std::uint32_t last = kNone;
        std::uint32_t count = 0;
    };
    struct Link {
        std::uint32_t previous = kNone;
        std::uint32_t next = kNone;
    };

    FlatMap<Chain> chains_;
    std::vector<Link> links_;
};

} // namespace OpenAccess_4::impl
