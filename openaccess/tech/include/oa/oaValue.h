#pragma once

#include "oa/oaObject.h"
#include "oaRange.h"
#include "oaString.h"

namespace OpenAccess_4 {

/// A value that a technology keeps.
class OA_API oaValue : public oaObject {
public:
    /// Makes an equal value in the same technology.
    oaValue* copy() const;
    /// Makes an equal value in another technology.
    /// @throws oaTechError  oacInvalidDatabaseForValue: `database` is no technology
    oaValue* copyTo(oaObject* database) const;

    /// True for values of one kind with the same content.
    oaBoolean isEqual(const oaValue* value) const;

    /// True for the value of a parameter.
    oaBoolean isOwned() const;
    /// The parameter that the value belongs to, or null.
    oaObject* getOwner(oaBoolean local = false) const;

    /// @throws oaTechError  oacCannotDestroyOwnedValue
    void destroy();

    OA_HANDLE(oaValue);
};

/// A value of a plain type.
#define OA_PLAIN_VALUE(Class, Type)                                                                \
    class OA_API Class : public oaValue {                                                          \
    public:                                                                                        \
        /** @throws oaTechError  oacInvalidDatabaseForValue: `database` is no technology */        \
        static Class* create(oaObject* database, Type value);                                      \
        Type get() const;                                                                          \
        void set(Type value);                                                                      \
        OA_HANDLE(Class);                                                                          \
    }

OA_PLAIN_VALUE(oaIntValue, oaInt4);
OA_PLAIN_VALUE(oaFltValue, oaFloat);
OA_PLAIN_VALUE(oaBooleanValue, oaBoolean);
OA_PLAIN_VALUE(oaUInt8Value, oaUInt8);
/// The number of a layer.
OA_PLAIN_VALUE(oaLayerValue, oaLayerNum);

#undef OA_PLAIN_VALUE

/// Two numbers.
class OA_API oaDualIntValue : public oaValue {
public:
    /// @throws oaTechError  oacInvalidDatabaseForValue: `database` is no technology
    static oaDualIntValue* create(oaObject* database, oaInt4 first, oaInt4 second);

    oaInt4 getFirst() const;
    oaInt4 getSecond() const;
    void setFirst(oaInt4 value);
    void setSecond(oaInt4 value);

    OA_HANDLE(oaDualIntValue);
};

/// A range of numbers.
class OA_API oaIntRangeValue : public oaValue {
public:
    /// @throws oaTechError  oacInvalidDatabaseForValue: `database` is no technology
    static oaIntRangeValue* create(oaObject* database, const oaIntRange& value);

    void get(oaIntRange& value) const;
    void set(const oaIntRange& value);

    OA_HANDLE(oaIntRangeValue);
};

/// A range of large numbers, areas among them.
class OA_API oaUInt8RangeValue : public oaValue {
public:
    /// @throws oaTechError  oacInvalidDatabaseForValue: `database` is no technology
    static oaUInt8RangeValue* create(oaObject* database, const oaUInt8Range& value);

    void get(oaUInt8Range& value) const;
    void set(const oaUInt8Range& value);

    OA_HANDLE(oaUInt8RangeValue);
};

/// A text.
class OA_API oaStringValue : public oaValue {
public:
    /// @throws oaTechError  oacInvalidDatabaseForValue: `database` is no technology
    static oaStringValue* create(oaObject* database, const oaString& value);

    void get(oaString& value) const;
    void set(const oaString& value);

    OA_HANDLE(oaStringValue);
};

} // namespace OpenAccess_4
