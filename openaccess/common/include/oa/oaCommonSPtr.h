#pragma once

#include "oaCommonIBase.h"

#include <type_traits>

namespace oaCommon {

namespace internal {

/// The interface `interfaceID` of a new object of the plug-in `className`, with one reference.
/// @throws oaPlugInError
OA_API void* plugInInstance(const char* className, const Guid& interfaceID);

} // namespace internal

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

protected:
    struct Owned {};
    /// Takes over a reference that somebody else has added.
    SRef(T* object, Owned) : object_(object) {}

private:
    T* object_;
};

/// A reference that is used like a pointer.
template <class T>
class SPtr : public SRef<T> {
public:
    SPtr() = default;
    SPtr(T* object) : SRef<T>(object) {}

    /// Makes an object of the plug-in `className`, a text. Its description is `className`.plg in
    /// one of the directories that OA_PLUGIN_PATH names at this moment, or in data/plugins of the
    /// OpenAccess installation.
    /// @throws oaPlugInError  there is no such plug-in, it cannot be loaded, or its objects do not
    ///                        have the interface `T`; the text says which and where
    template <class Name,
              class = std::enable_if_t<std::is_convertible_v<const Name&, const char*> &&
                                       !std::is_convertible_v<const Name&, T*>>>
    explicit SPtr(const Name& className);

    T* operator->() const { return this->getRef(); }
    T& operator*() const { return *this->getRef(); }
};

} // namespace oaCommon

#include "oaCommonSPtr.inl"
