#pragma once

#include "oa/oaObject.h"
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

#undef OA_PLAIN_VALUE

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
