#pragma once

#include "oaCommonPlugInBase.h"

namespace oaCommon {

template <class I>
long PlugInBase<I>::queryInterface(const Guid& id, void** iPtr) {
    if (id != IID_IBase && id != I::getId()) {
        *iPtr = nullptr;
        return IBase::cNoInterface;
    }
    *iPtr = static_cast<I*>(this);
    addRef();
    return IBase::cOK;
}

template <class I>
unsigned long PlugInBase<I>::addRef() {
    return IBase::s_refCountDisabled ? refCount_ : refCount_++;
}

template <class I>
unsigned long PlugInBase<I>::release() {
    if (IBase::s_refCountDisabled)
        return refCount_;
    if (--refCount_ == 0) {
        delete this;
        return 0;
    }
    return refCount_;
}

template <class I>
unsigned long PlugInBase<I>::getRefCount() {
    return 1;
}

} // namespace oaCommon
