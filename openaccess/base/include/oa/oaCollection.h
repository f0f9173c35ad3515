#pragma once

#include "oa/oaBaseTypes.h"
#include "oa/oaExport.h"

#include <memory>

namespace OpenAccess_4 {

class oaObject;

namespace impl {

/// An ordered set of objects that iterators walk through.
class OA_API Source {
public:
    /// Objects that lie side by side in memory. Some of them may be destroyed.
    struct Run {
        oaObject* begin = nullptr;
        oaObject* end = nullptr;
    };

    Source() = default;
    Source(const Source&) = delete;
    Source& operator=(const Source&) = delete;
    virtual ~Source();

    /// The run at `position`, which is moved behind it; false at the end. A walk starts at 0.
    virtual bool nextRun(oaUInt8& position, Run& run) const = 0;
    virtual oaUInt4 count() const = 0;
};

using SourcePtr = std::shared_ptr<const Source>;

} // namespace impl

/// An ordered set of objects, as the database gives it: the order is the database's own.
class OA_API oaBaseCollection {
public:
    explicit oaBaseCollection(impl::SourcePtr source);

    oaUInt4 getCount() const;
    oaBoolean includes(const oaObject* object) const;
    oaBoolean isEmpty() const;

private:
    friend class oaBaseIter;
    impl::SourcePtr source_;
};

/// The objects of kind T that an object of kind O holds.
template <class T, class O>
class oaCollection : public oaBaseCollection {
public:
    using oaBaseCollection::oaBaseCollection;

    oaBoolean includes(const T* object) const { return oaBaseCollection::includes(object); }
};

/// Walks through a collection. An object that the walk has handed out may be destroyed on the way;
/// objects that are made on the way may or may not be met.
class OA_API oaBaseIter {
public:
    explicit oaBaseIter(const oaBaseCollection& collection);

    /// The next object, null at the end.
    oaObject* getNext();

    /// Starts again at the first object.
    void reset();

private:
    bool findRun();

    impl::SourcePtr source_;
    impl::Source::Run run_;
    oaUInt8 position_ = 0;
};

/// Walks through a collection of objects of kind T.
template <class T>
class oaIter : public oaBaseIter {
public:
    template <class O>
    oaIter(const oaCollection<T, O>& collection) : oaBaseIter(collection) {}

    T* getNext() { return static_cast<T*>(oaBaseIter::getNext()); }
};

} // namespace OpenAccess_4
