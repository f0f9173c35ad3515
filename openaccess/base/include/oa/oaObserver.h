#pragma once

#include "oaBaseTypes.h"
#include "oaExport.h"

namespace OpenAccess_4 {

class oaLibDefList;
class oaTech;

/// What all observers have in common. Those of one kind are called from the lowest priority to the
/// highest, and in the order in which they were made where priorities are equal.
///
/// Constructing a class that derives from this one registers it, destroying it ends that. Observers
/// may be made before the packages are initialised and live on until the process ends.
class OA_API oaBaseObserver {
public:
    explicit oaBaseObserver(oaUInt4 priority, oaBoolean enabled = true);
    virtual ~oaBaseObserver();
    oaBaseObserver(const oaBaseObserver&) = delete;
    oaBaseObserver& operator=(const oaBaseObserver&) = delete;

    /// An observer that is not enabled keeps its place and is not called.
    void enable(oaBoolean enabled);
    oaBoolean isEnabled() const { return enabled_; }
    oaUInt4 getPriority() const { return priority_; }

private:
    oaUInt4 priority_;
    oaBoolean enabled_;
};

/// The current version of the observers of `T`, which is the one that a client gets who asks for
/// none.
template <class T>
struct oaObserverVersion {
    static constexpr oaUInt4 value = 0;
};

template <>
struct oaObserverVersion<oaLibDefList> {
    static constexpr oaUInt4 value = 1;
};

template <>
struct oaObserverVersion<oaTech> {
    static constexpr oaUInt4 value = 2;
};

/// The observer of the objects of class `T`. Defined for the classes and versions that can be
/// observed, in the headers of those classes.
template <class T, oaUInt4 version = oaObserverVersion<T>::value>
class oaVersionedObserver;

} // namespace OpenAccess_4

/// Applications write oaObserver<oaLib>.
#define oaObserver oaVersionedObserver
