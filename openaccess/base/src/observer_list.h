#pragma once

#include "oa/oaObserver.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <tuple>
#include <utility>
#include <vector>

namespace OpenAccess_4::impl {

/// The observers of one kind, in the order in which they are called. The constructor of the
/// observer class adds to it, its destructor removes:
///
///     oaVersionedObserver<oaLib>::oaVersionedObserver(...) : oaBaseObserver(...) {
///         ObserverList<oaVersionedObserver>::instance().add(*this);
///     }
///
/// Observers may be made, destroyed, enabled and disabled, and the list may notify, while it
/// notifies: one that is destroyed is not called any more, and one that is made is called from the
/// next notification on. An exception of an observer does not keep the news from the others; the
/// first one goes on to the caller when all have been told.
template <class Observer>
class ObserverList {
public:
    /// Never destroyed: observers that are static objects outlive everything else.
    static ObserverList& instance() {
        static ObserverList& list = *new ObserverList;
        return list;
    }

    bool isEmpty() const { return entries_.empty(); }

    void add(Observer& observer) {
        const Entry entry{{observer.getPriority(), ++lastSerial_}, &observer};
        entries_.insert(firstAfter(entry.place), entry);
    }

    void remove(Observer& observer) {
        std::erase_if(entries_, [&](const Entry& each) { return each.observer == &observer; });
    }

    /// Calls `call(observer)` for each observer that is enabled.
    template <class Call>
    void notify(Call&& call) {
        ask([&](Observer& observer) {
            call(observer);
            return true;
        });
    }

    /// Calls `call(observer)` for each observer that is enabled, until one answers false. Answers
    /// true when none did.
    template <class Call>
    bool ask(Call&& call) {
        const std::uint64_t newest = lastSerial_;
        std::exception_ptr failure;
        bool agreed = true;
        Place place{};
        for (auto next = firstAfter(place); agreed && next != entries_.end();
             next = firstAfter(place)) {
            place = next->place;
            if (place.serial > newest || !next->observer->isEnabled())
                continue;
            try {
                agreed = call(*next->observer);
            } catch (...) {
                if (!failure)
                    failure = std::current_exception();
            }
        }
        if (failure)
            std::rethrow_exception(failure);
        return agreed;
    }

private:
    struct Place {
        oaUInt4 priority = 0;
        std::uint64_t serial = 0; // of the first observer 1
    };

    struct Entry {
        Place place;
        Observer* observer;
    };

    // A place, unlike a position, stays true when observers come and go.
    auto firstAfter(const Place& place) {
        return std::upper_bound(entries_.begin(), entries_.end(), place,
                                [](const Place& left, const Entry& right) {
                                    return std::tie(left.priority, left.serial) <
                                           std::tie(right.place.priority, right.place.serial);
                                });
    }

    std::vector<Entry> entries_;
    std::uint64_t lastSerial_ = 0;
};

} // namespace OpenAccess_4::impl
