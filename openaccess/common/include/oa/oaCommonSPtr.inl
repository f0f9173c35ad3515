#pragma once

#include "oaCommonSPtr.h"

namespace oaCommon {

template <class T>
SRef<T>::SRef(T* object) : object_(object) {
    if (object_)
        object_->addRef();
}

template <class T>
SRef<T>::SRef(const SRef& other) : SRef(other.object_) {}

template <class T>
SRef<T>::SRef(SRef&& other) noexcept : object_(other.object_) {
    other.object_ = nullptr;
}

template <class T>
SRef<T>::~SRef() {
    if (object_)
        object_->release();
}

template <class T>
SRef<T>& SRef<T>::operator=(SRef other) noexcept {
    T* const previous = object_;
    object_ = other.object_;
    other.object_ = previous;
    return *this;
}

template <class T>
template <class Name, class>
SPtr<T>::SPtr(const Name& className)
    : SRef<T>(static_cast<T*>(internal::plugInInstance(className, T::getId())),
              typename SRef<T>::Owned()) {}

} // namespace oaCommon
