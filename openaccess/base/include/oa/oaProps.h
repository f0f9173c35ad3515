#pragma once

#include "oa/oaByteArray.h"
#include "oa/oaProp.h"
#include "oa/oaStringArray.h"

namespace OpenAccess_4 {

/// A property with one value of a plain type.
#define OA_VALUE_PROP(Class, Value)                                                                \
    class OA_API Class : public oaProp {                                                           \
    public:                                                                                        \
        static Class* create(oaObject* object, const oaString& name, Value value);                 \
        using oaProp::getValue;                                                                    \
        Value getValue() const;                                                                    \
        void setValue(Value value);                                                                \
        OA_HANDLE(Class);                                                                          \
    }

/// A property with a value and the bounds that it should keep to.
#define OA_RANGE_PROP(Class, Value)                                                                \
    class OA_API Class : public oaProp {                                                           \
    public:                                                                                        \
        static Class* create(oaObject* object, const oaString& name, Value lowerBound,             \
                             Value value, Value upperBound);                                       \
        using oaProp::getValue;                                                                    \
        Value getValue() const;                                                                    \
        Value getLowerBound() const;                                                               \
        Value getUpperBound() const;                                                               \
        void set(Value lowerBound, Value value, Value upperBound);                                 \
        void setValue(Value value);                                                                \
        OA_HANDLE(Class);                                                                          \
    }

OA_VALUE_PROP(oaIntProp, oaInt4);
OA_VALUE_PROP(oaFloatProp, oaFloat);
OA_VALUE_PROP(oaDoubleProp, oaDouble);
OA_VALUE_PROP(oaBooleanProp, oaBoolean);
OA_VALUE_PROP(oaTimeProp, oaTime);
OA_RANGE_PROP(oaIntRangeProp, oaInt4);
OA_RANGE_PROP(oaFloatRangeProp, oaFloat);
OA_RANGE_PROP(oaDoubleRangeProp, oaDouble);
OA_RANGE_PROP(oaTimeRangeProp, oaTime);

#undef OA_VALUE_PROP
#undef OA_RANGE_PROP

/// A text.
class OA_API oaStringProp : public oaProp {
public:
    static oaStringProp* create(oaObject* object, const oaString& name, const oaString& value);

    void getValue(oaString& value) const;
    void setValue(const oaString& value);

    OA_HANDLE(oaStringProp);
};

/// Bytes that an application understands, with the name of what they are.
class OA_API oaAppProp : public oaProp {
public:
    static oaAppProp* create(oaObject* object, const oaString& name, const oaString& appType,
                             oaUInt4 size, const oaByte* value);
    static oaAppProp* create(oaObject* object, const oaString& name, const oaString& appType,
                             const oaByteArray& value);

    using oaProp::getValue;
    void getAppType(oaString& appType) const;
    oaUInt4 getSize() const;
    /// Copies getSize() bytes.
    void getValue(oaByte* value) const;
    void getValue(oaByteArray& value) const;
    void setValue(oaUInt4 size, const oaByte* value);
    void setValue(const oaByteArray& value);

    OA_HANDLE(oaAppProp);
};

/// The texts that an oaEnumProp may take.
class OA_API oaEnumCollection {
public:
    explicit oaEnumCollection(oaStringArray enums);

    oaUInt4 getCount() const;
    oaBoolean isEmpty() const;

private:
    friend class oaEnumPropIter;
    oaStringArray enums_;
};

/// Walks through the texts that an oaEnumProp may take.
class OA_API oaEnumPropIter {
public:
    oaEnumPropIter(const oaEnumCollection& collection);

    /// Puts the next text into `value`; false at the end.
    oaBoolean getNext(oaString& value);
    void reset();

private:
    oaStringArray enums_;
    oaUInt4 next_ = 0;
};

/// One of a fixed list of texts.
class OA_API oaEnumProp : public oaProp {
public:
    /// @throws oaError  oacNotAnEnumOfProp: `value` is not one of `enums`
    static oaEnumProp* create(oaObject* object, const oaString& name, const oaString& value,
                              oaUInt4 numEnums, const oaString* enums);
    static oaEnumProp* create(oaObject* object, const oaString& name, const oaString& value,
                              const oaStringArray& enums);

    void getValue(oaString& value) const;
    /// @throws oaError  oacNotAnEnumOfProp
    void setValue(const oaString& value);
    oaEnumCollection getEnums() const;

    OA_HANDLE(oaEnumProp);
};

/// A property without a value, which only carries properties.
class OA_API oaHierProp : public oaProp {
public:
    static oaHierProp* create(oaObject* object, const oaString& name);

    OA_HANDLE(oaHierProp);
};

} // namespace OpenAccess_4
