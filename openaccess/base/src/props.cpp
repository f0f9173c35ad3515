#include "oa/oaProps.h"

#include "base/src/database.h"
#include "oa/oaBaseMsgIds.h"
#include "oa/oaException.h"

#include <cstring>
#include <string>
#include <string_view>

namespace OpenAccess_4 {

using namespace impl;

namespace {

oaProp* createProp(oaObject* object, const oaString& name, PropKind kind,
                   const PropPayload& value) {
    const Location owner = locationOf(object);
    return owner.database->properties.create(owner.ref, name, kind, value);
}

template <class Value>
PropPayload rangePayload(Value lowerBound, Value value, Value upperBound) {
    PropPayload payload;
    payload.set(lowerBound, 0);
    payload.set(value, 1);
    payload.set(upperBound, 2);
    return payload;
}

template <class Value>
void changeValue(oaProp* prop, Value value, std::size_t element = 0) {
    databaseOf(prop).edit();
    recordOf<PropRecord>(prop).value.set(value, element);
}

StringId internText(const oaObject* object, std::string_view text) {
    return databaseOf(object).strings.intern(text);
}

std::string_view valueText(const oaProp* prop, std::size_t element) {
    return databaseOf(prop).strings.text(recordOf<PropRecord>(prop).value.get<StringId>(element));
}

void changeText(oaProp* prop, std::string_view text, std::size_t element) {
    Database& database = databaseOf(prop);
    database.edit();
    recordOf<PropRecord>(prop).value.set(database.strings.intern(text), element);
    database.noteGarbage();
}

} // namespace

#define OA_VALUE_PROP(Class, Value, kind)                                                          \
    Class* Class::create(oaObject* object, const oaString& name, Value value) {                    \
        PropPayload payload;                                                                       \
        payload.set(value);                                                                        \
        return static_cast<Class*>(createProp(object, name, kind, payload));                       \
    }                                                                                              \
    Value Class::getValue() const {                                                                \
        return recordOf<PropRecord>(this).value.get<Value>();                                      \
    }                                                                                              \
    void Class::setValue(Value value) {                                                            \
        changeValue(this, value);                                                                  \
    }

#define OA_RANGE_PROP(Class, Value, kind)                                                          \
    Class* Class::create(oaObject* object, const oaString& name, Value lowerBound, Value value,    \
                         Value upperBound) {                                                       \
        const PropPayload payload = rangePayload(lowerBound, value, upperBound);                   \
        return static_cast<Class*>(createProp(object, name, kind, payload));                       \
    }                                                                                              \
    Value Class::getLowerBound() const {                                                           \
        return recordOf<PropRecord>(this).value.get<Value>(0);                                     \
    }                                                                                              \
    Value Class::getValue() const {                                                                \
        return recordOf<PropRecord>(this).value.get<Value>(1);                                     \
    }                                                                                              \
    Value Class::getUpperBound() const {                                                           \
        return recordOf<PropRecord>(this).value.get<Value>(2);                                     \
    }                                                                                              \
    void Class::setValue(Value value) {                                                            \
        changeValue(this, value, 1);                                                               \
    }                                                                                              \
    void Class::set(Value lowerBound, Value value, Value upperBound) {                             \
        databaseOf(this).edit();                                                                   \
        recordOf<PropRecord>(this).value = rangePayload(lowerBound, value, upperBound);            \
    }

OA_VALUE_PROP(oaIntProp, oaInt4, PropKind::Int)
OA_VALUE_PROP(oaFloatProp, oaFloat, PropKind::Float)
OA_VALUE_PROP(oaDoubleProp, oaDouble, PropKind::Double)
OA_VALUE_PROP(oaBooleanProp, oaBoolean, PropKind::Boolean)
OA_VALUE_PROP(oaTimeProp, oaTime, PropKind::Time)
OA_RANGE_PROP(oaIntRangeProp, oaInt4, PropKind::IntRange)
OA_RANGE_PROP(oaFloatRangeProp, oaFloat, PropKind::FloatRange)
OA_RANGE_PROP(oaDoubleRangeProp, oaDouble, PropKind::DoubleRange)
OA_RANGE_PROP(oaTimeRangeProp, oaTime, PropKind::TimeRange)

#undef OA_VALUE_PROP
#undef OA_RANGE_PROP

oaStringProp* oaStringProp::create(oaObject* object, const oaString& name, const oaString& value) {
    PropPayload payload;
    payload.set(internText(object, static_cast<const oaChar*>(value)));
    return static_cast<oaStringProp*>(createProp(object, name, PropKind::String, payload));
}

void oaStringProp::getValue(oaString& value) const {
    value = valueText(this, 0).data();
}

void oaStringProp::setValue(const oaString& value) {
    changeText(this, static_cast<const oaChar*>(value), 0);
}

oaAppProp* oaAppProp::create(oaObject* object, const oaString& name, const oaString& appType,
                             oaUInt4 size, const oaByte* value) {
    PropPayload payload;
    payload.set(internText(object, static_cast<const oaChar*>(appType)), 0);
    payload.set(internText(object, {reinterpret_cast<const char*>(value), size}), 1);
    return static_cast<oaAppProp*>(createProp(object, name, PropKind::App, payload));
}

oaAppProp* oaAppProp::create(oaObject* object, const oaString& name, const oaString& appType,
                             const oaByteArray& value) {
    return create(object, name, appType, value.getNumElements(), value.getElements());
}

void oaAppProp::getAppType(oaString& appType) const {
    appType = valueText(this, 0).data();
}

oaUInt4 oaAppProp::getSize() const {
    return oaUInt4(valueText(this, 1).size());
}

void oaAppProp::getValue(oaByte* value) const {
    const std::string_view bytes = valueText(this, 1);
    std::memcpy(value, bytes.data(), bytes.size());
}

void oaAppProp::getValue(oaByteArray& value) const {
    const std::string_view bytes = valueText(this, 1);
    value.set(reinterpret_cast<const oaByte*>(bytes.data()), oaUInt4(bytes.size()));
}

void oaAppProp::setValue(oaUInt4 size, const oaByte* value) {
    changeText(this, {reinterpret_cast<const char*>(value), size}, 1);
}

void oaAppProp::setValue(const oaByteArray& value) {
    setValue(value.getNumElements(), value.getElements());
}

namespace {

// The texts of an enumeration lie in one text of the pool, each with a NUL behind it.
std::string joined(oaUInt4 count, const oaString* enums) {
    std::string text;
    for (oaUInt4 i = 0; i < count; ++i)
        text.append(static_cast<const oaChar*>(enums[i])).push_back('\0');
    return text;
}

oaStringArray split(std::string_view text) {
    oaStringArray enums;
    while (!text.empty()) {
        const std::size_t end = text.find('\0');
        enums.append(oaString(std::string(text.substr(0, end)).c_str()));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return enums;
}

void requireEnum(const oaStringArray& enums, const oaString& value) {
    for (oaUInt4 i = 0; i < enums.getNumElements(); ++i)
        if (enums[i] == value)
            return;
    throw oaError(oacNotAnEnumOfProp, static_cast<const oaChar*>(value));
}

} // namespace

oaEnumProp* oaEnumProp::create(oaObject* object, const oaString& name, const oaString& value,
                               oaUInt4 numEnums, const oaString* enums) {
    const std::string texts = joined(numEnums, enums);
    requireEnum(split(texts), value);
    PropPayload payload;
    payload.set(internText(object, static_cast<const oaChar*>(value)), 0);
    payload.set(internText(object, texts), 1);
    return static_cast<oaEnumProp*>(createProp(object, name, PropKind::Enum, payload));
}

oaEnumProp* oaEnumProp::create(oaObject* object, const oaString& name, const oaString& value,
                               const oaStringArray& enums) {
    return create(object, name, value, enums.getNumElements(), enums.getElements());
}

void oaEnumProp::getValue(oaString& value) const {
    value = valueText(this, 0).data();
}

void oaEnumProp::setValue(const oaString& value) {
    requireEnum(split(valueText(this, 1)), value);
    changeText(this, static_cast<const oaChar*>(value), 0);
}

oaEnumCollection oaEnumProp::getEnums() const {
    return oaEnumCollection(split(valueText(this, 1)));
}

oaEnumCollection::oaEnumCollection(oaStringArray enums) : enums_(std::move(enums)) {}

oaUInt4 oaEnumCollection::getCount() const {
    return enums_.getNumElements();
}

oaBoolean oaEnumCollection::isEmpty() const {
    return getCount() == 0;
}

oaEnumPropIter::oaEnumPropIter(const oaEnumCollection& collection) : enums_(collection.enums_) {}

oaBoolean oaEnumPropIter::getNext(oaString& value) {
    if (next_ == enums_.getNumElements())
        return false;
    value = enums_[next_++];
    return true;
}

void oaEnumPropIter::reset() {
    next_ = 0;
}

oaHierProp* oaHierProp::create(oaObject* object, const oaString& name) {
    return static_cast<oaHierProp*>(createProp(object, name, PropKind::Hier, {}));
}

} // namespace OpenAccess_4
