#pragma once

#include "oaCommonIBase.h"

namespace oaCommon {

/// Implements the members of IBase for a class with the single interface `I`:
/// `class MyPcell : public PlugInBase<IPcell>`.
///
/// The object deletes itself when release() brings the count to 0, so it lives on the heap.
template <class I>
class PlugInBase : public I {
public:
    explicit PlugInBase(unsigned int refCount = 0) : refCount_(refCount) {}

    /// Knows IID_IBase and I::getId().
    long queryInterface(const Guid& id, void** iPtr) override;
    /// Answers the count as it was before.
    unsigned long addRef() override;
    /// Answers the new count.
    unsigned long release() override;
    /// Always answers 1: the count is nobody's business but the holders'.
    unsigned long getRefCount() override;

private:
    unsigned int refCount_;
};

} // namespace oaCommon

#include "oaCommonPlugInBase.inl"
