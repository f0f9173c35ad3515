#pragma once

#include "oa/oaSession.h"
#include "oa/oaString.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace OpenAccess_4 {

class oaAppDef;

namespace impl {

enum class AppValueKind : oaUInt4;

/// What the typed definitions below ask of the session. Plain values travel as their bits; texts
/// and bytes as a pointer and a size.
class OA_API AppDefs {
public:
    struct Request {
        AppValueKind kind;
        const oaChar* objectClass;
        const oaChar* name;
    };
    using Make = oaObject* (*)(void*);

    static oaAppDef* find(const Request& request, Make make);
    static oaAppDef* get(const Request& request, oaUInt8 defaultBits, oaBoolean persist, Make make);
    static oaAppDef* get(const Request& request, const oaByte* defaultBytes, oaUInt4 size,
                         oaBoolean persist, Make make);

    static oaUInt8 bits(const oaAppDef* def, const oaObject* object);
    static void setBits(const oaAppDef* def, oaObject* object, oaUInt8 bits);
    static oaUInt8 defaultBits(const oaAppDef* def);

    static const oaByte* bytes(const oaAppDef* def, const oaObject* object, oaUInt4& size);
    static void setBytes(const oaAppDef* def, oaObject* object, const oaByte* bytes, oaUInt4 size);
    static const oaByte* defaultBytes(const oaAppDef* def, oaUInt4& size);
};

template <class Value>
oaUInt8 bitsOf(Value value) {
    oaUInt8 bits = 0;
    std::memcpy(&bits, &value, sizeof(value));
    return bits;
}

template <class Value>
Value fromBits(oaUInt8 bits) {
    Value value;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

} // namespace impl

/// Definition of a value that an application keeps on objects of one class. The definition lasts
/// for the session; values of a persistent one are saved with the database of their object.
class OA_API oaAppDef : public oaSessionObject {
public:
    void getName(oaString& name) const;
    oaBoolean isPersistent() const;

    /// Takes the object's value away, so that it has the default again.
    void destroy(oaObject* object);

    /// True when an object of that database has a value of its own.
    oaBoolean isUsedIn(const oaObject* database) const;

    /// Takes the values of all objects of a database away.
    void remove(oaObject* database);

    OA_HANDLE(oaAppDef);
};

namespace impl {

/// The definitions of plain values: one template serves all of them.
template <class Definition, class T, class Value, oaUInt4 kind>
class PlainAppDef : public oaAppDef {
public:
    /// The definition of that name, or null.
    static Definition* find(const oaString& name) {
        return static_cast<Definition*>(
            AppDefs::find(request(name), &Handles::construct<Definition>));
    }

    /// Finds or makes the definition; the default and the persistence of one that exists stay.
    static Definition* get(const oaString& name, Value defaultValue = Value(),
                           oaBoolean persist = true) {
        return static_cast<Definition*>(AppDefs::get(request(name), bitsOf(defaultValue), persist,
                                                     &Handles::construct<Definition>));
    }

    /// The object's value; the default when it has none of its own.
    Value get(const T* object) const { return fromBits<Value>(AppDefs::bits(this, object)); }
    void set(T* object, Value value) { AppDefs::setBits(this, object, bitsOf(value)); }
    Value getDefault() const { return fromBits<Value>(AppDefs::defaultBits(this)); }

protected:
    PlainAppDef() = default;

private:
    static AppDefs::Request request(const oaString& name) {
        return {AppValueKind(kind), Handles::className<T>(), name};
    }
};

} // namespace impl

#define OA_PLAIN_APP_DEF(Class, Value, kind)                                                       \
    template <class T>                                                                             \
    class Class : public impl::PlainAppDef<Class<T>, T, Value, kind> {                             \
        Class() = default;                                                                         \
        friend class impl::Handles;                                                                \
    }

OA_PLAIN_APP_DEF(oaIntAppDef, oaInt4, 0);
OA_PLAIN_APP_DEF(oaFloatAppDef, oaFloat, 1);
OA_PLAIN_APP_DEF(oaTimeAppDef, oaTime, 5);
OA_PLAIN_APP_DEF(oaDoubleAppDef, oaDouble, 6);
OA_PLAIN_APP_DEF(oaBooleanAppDef, oaBoolean, 7);

#undef OA_PLAIN_APP_DEF

/// An application's pointer on objects of class T. It leads into the memory of the process: the
/// value never persists, and nothing is done with what it points to.
template <class T>
class oaVoidPointerAppDef : public oaAppDef {
public:
    /// The definition of that name, or null.
    static oaVoidPointerAppDef* find(const oaString& name) {
        return static_cast<oaVoidPointerAppDef*>(
            impl::AppDefs::find(request(name), &impl::Handles::construct<oaVoidPointerAppDef>));
    }
    /// Finds or makes the definition.
    static oaVoidPointerAppDef* get(const oaString& name) {
        return static_cast<oaVoidPointerAppDef*>(impl::AppDefs::get(
            request(name), oaUInt8(0), false, &impl::Handles::construct<oaVoidPointerAppDef>));
    }

    /// The object's pointer; null when it has none.
    void* get(const T* object) const {
        return impl::fromBits<void*>(impl::AppDefs::bits(this, object));
    }
    void set(T* object, void* value) { impl::AppDefs::setBits(this, object, impl::bitsOf(value)); }

private:
    oaVoidPointerAppDef() = default;
    friend class impl::Handles;
    static impl::AppDefs::Request request(const oaString& name) {
        return {impl::AppValueKind(8), impl::Handles::className<T>(), name};
    }
};

/// An application-defined text on objects of class T.
template <class T>
class oaStringAppDef : public oaAppDef {
public:
    static oaStringAppDef* find(const oaString& name) {
        return static_cast<oaStringAppDef*>(
            impl::AppDefs::find(request(name), &impl::Handles::construct<oaStringAppDef>));
    }
    static oaStringAppDef* get(const oaString& name, const oaString& defaultValue = "",
                               oaBoolean persist = true) {
        return static_cast<oaStringAppDef*>(impl::AppDefs::get(
            request(name),
            reinterpret_cast<const oaByte*>(static_cast<const oaChar*>(defaultValue)),
            defaultValue.getLength(), persist, &impl::Handles::construct<oaStringAppDef>));
    }

    void get(const T* object, oaString& value) const {
        oaUInt4 size = 0;
        const oaByte* bytes = impl::AppDefs::bytes(this, object, size);
        value = oaString(reinterpret_cast<const oaChar*>(bytes), size);
    }
    void set(T* object, const oaString& value) {
        impl::AppDefs::setBytes(this, object,
                                reinterpret_cast<const oaByte*>(static_cast<const oaChar*>(value)),
                                value.getLength());
    }
    void getDefault(oaString& value) const {
        oaUInt4 size = 0;
        const oaByte* bytes = impl::AppDefs::defaultBytes(this, size);
        value = oaString(reinterpret_cast<const oaChar*>(bytes), size);
    }

private:
    oaStringAppDef() = default;
    friend class impl::Handles;
    static impl::AppDefs::Request request(const oaString& name) {
        return {impl::AppValueKind(2), impl::Handles::className<T>(), name};
    }
};

/// Application-defined bytes of one size on objects of class T.
template <class T>
class oaDataAppDef : public oaAppDef {
public:
    static oaDataAppDef* find(const oaString& name) {
        return static_cast<oaDataAppDef*>(
            impl::AppDefs::find(request(name), &impl::Handles::construct<oaDataAppDef>));
    }
    static oaDataAppDef* get(const oaString& name, oaUInt4 size, const oaByte* defaultValue,
                             oaBoolean persist = true) {
        return static_cast<oaDataAppDef*>(impl::AppDefs::get(
            request(name), defaultValue, size, persist, &impl::Handles::construct<oaDataAppDef>));
    }

    oaUInt4 getSize() const {
        oaUInt4 size = 0;
        impl::AppDefs::defaultBytes(this, size);
        return size;
    }
    /// Copies getSize() bytes.
    void get(const T* object, oaByte* value) const {
        oaUInt4 size = 0;
        const oaByte* bytes = impl::AppDefs::bytes(this, object, size);
        std::copy_n(bytes, size, value);
    }
    void set(T* object, const oaByte* value) {
        impl::AppDefs::setBytes(this, object, value, getSize());
    }

private:
    oaDataAppDef() = default;
    friend class impl::Handles;
    static impl::AppDefs::Request request(const oaString& name) {
        return {impl::AppValueKind(3), impl::Handles::className<T>(), name};
    }
};

/// Application-defined bytes, of any size for each object, on objects of class T.
template <class T>
class oaVarDataAppDef : public oaAppDef {
public:
    static oaVarDataAppDef* find(const oaString& name) {
        return static_cast<oaVarDataAppDef*>(
            impl::AppDefs::find(request(name), &impl::Handles::construct<oaVarDataAppDef>));
    }
    static oaVarDataAppDef* get(const oaString& name, oaBoolean persist = true) {
        return static_cast<oaVarDataAppDef*>(impl::AppDefs::get(
            request(name), nullptr, 0, persist, &impl::Handles::construct<oaVarDataAppDef>));
    }

    /// The number of bytes of the object's value; 0 when it has none.
    oaUInt4 getSize(const T* object) const {
        oaUInt4 size = 0;
        impl::AppDefs::bytes(this, object, size);
        return size;
    }
    /// Copies getSize(object) bytes.
    void get(const T* object, oaByte* value) const {
        oaUInt4 size = 0;
        const oaByte* bytes = impl::AppDefs::bytes(this, object, size);
        std::copy_n(bytes, size, value); // null is fine for no bytes
    }
    void set(T* object, oaUInt4 size, const oaByte* value) {
        impl::AppDefs::setBytes(this, object, value, size);
    }

private:
    oaVarDataAppDef() = default;
    friend class impl::Handles;
    static impl::AppDefs::Request request(const oaString& name) {
        return {impl::AppValueKind(4), impl::Handles::className<T>(), name};
    }
};

} // namespace OpenAccess_4
