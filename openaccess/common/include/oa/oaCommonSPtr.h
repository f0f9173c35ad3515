#pragma once

#include "oaCommonIBase.h"

namespace oaCommon {

/// Holds a reference to a counted object: adds one when it takes a pointer, releases it when it
/// lets go. May be empty. A moved-from holder is empty.
template <class T>
class SRef {
public:
    SRef() : object_(nullptr) {}
    SRef(T* object);
    SRef(const SRef& other);
    SRef(SRef&& other) noexcept;
    ~SRef();

    SRef& operator=(SRef other) noexcept;

    /// The object itself, null when empty; the count is not changed.
    T* getRef() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    bool operator!() const { return object_ == nullptr; }

    friend bool operator==(const SRef& left, const SRef& right) {
        return left.object_ == right.object_;
    }
    friend bool operator!=(const SRef& left, const SRef& right) {
        return left.object_ != right.object_;
    }

private:
    T* object_;
};

/// A reference that is used like a pointer.
template <class T>
class SPtr : public SRef<T> {
public:
    SPtr() = default;
    SPtr(T* object) : SRef<T>(object) {}

    T* operator->() const { return this->getRef(); }
    T& operator*() const { return *this->getRef(); }
};

} // namespace oaCommon

#include "oaCommonSPtr.inl"
