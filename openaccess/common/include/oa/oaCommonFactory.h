#pragma once

#include "oaCommonIFactory.h"

#include <cstring>

/// What each plug-in module defines, and the database calls when it looks for a class there:
///
///     long getClassObject(const char* classID, const oaCommon::Guid& interfaceID, void** ptr) {
///         return oaCommon::FactoryBase::getClassObject(classID, interfaceID, ptr);
///     }
extern "C" OA_PLUGIN_API long getClassObject(const char* classID, const oaCommon::Guid& interfaceID,
                                             void** ptr);

namespace oaCommon {

/// A factory and its place among the factories of its module. Each module - the program, a library,
/// a plug-in - sees its own only.
class OA_MODULE_LOCAL FactoryBase : public IFactory {
public:
    /// The factory of the class `classID` in this module. Stores its interface `interfaceID` in
    /// `*ptr`; a module that lacks the class stores null and answers cFail, one that lacks the
    /// interface cNoInterface.
    static long getClassObject(const char* classID, const Guid& interfaceID, void** ptr) {
        for (FactoryBase* each = first_; each; each = each->next_) {
            if (std::strcmp(each->classID_, classID) == 0)
                return each->queryInterface(interfaceID, ptr);
        }
        *ptr = nullptr;
        return cFail;
    }

    FactoryBase(const FactoryBase&) = delete;
    FactoryBase& operator=(const FactoryBase&) = delete;

    long queryInterface(const Guid& id, void** iPtr) override {
        const bool isKnown = id == IID_IBase || id == IFactory::getId();
        *iPtr = isKnown ? static_cast<IFactory*>(this) : nullptr;
        return isKnown ? cOK : cNoInterface;
    }
    /// Factories are static objects, which nobody deletes: they are not counted.
    unsigned long addRef() override { return 1; }
    unsigned long release() override { return 1; }
    unsigned long getRefCount() override { return 1; }

protected:
    /// `classID` is a text that outlives the factory.
    explicit FactoryBase(const char* classID) : classID_(classID), next_(first_) { first_ = this; }
    ~FactoryBase() override {
        FactoryBase** place = &first_;
        while (*place && *place != this)
            place = &(*place)->next_;
        if (*place)
            *place = next_;
    }

private:
    inline static FactoryBase* first_ = nullptr;

    const char* classID_;
    FactoryBase* next_;
};

/// Makes the objects of a class `T` that has a constructor without arguments, under the name
/// `classID`. Usually a static object; several may make the same class under different names.
template <class T>
class OA_MODULE_LOCAL Factory : public FactoryBase {
public:
    explicit Factory(const char* classID) : FactoryBase(classID) {}

    /// What the constructor of `T` throws goes on to the caller.
    long createInstance(IBase* reserved, const Guid& interfaceID, void** ptr) override {
        *ptr = nullptr;
        if (reserved)
            return cFail;
        T* const instance = new T;
        instance->addRef(); // so that the release deletes an object without the interface
        const long status = instance->queryInterface(interfaceID, ptr);
        instance->release();
        return status;
    }
};

} // namespace oaCommon
