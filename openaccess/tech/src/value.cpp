#include "oa/oaValue.h"

#include "oa/oaTechException.h"
#include "tech/src/tech_database.h"

#include <cstring>

namespace OpenAccess_4 {

namespace impl {

oaTypeEnum ValueRecord::type() const {
    static constexpr std::array<oaTypeEnum, std::size_t(ValueKind::Count)> types = {
        oacIntValueType,        oacFltValueType,      oacBooleanValueType,
        oacStringValueType,     oacIntRangeValueType, oacUInt8ValueType,
        oacUInt8RangeValueType, oacLayerValueType,    oacDualIntValueType};
    return types[std::size_t(kind)];
}

oaObject* ValueRecord::construct(void* where) const {
    using Construct = oaObject* (*)(void*);
    static constexpr std::array<Construct, std::size_t(ValueKind::Count)> constructors = {
        Handles::construct<oaIntValue>,        Handles::construct<oaFltValue>,
        Handles::construct<oaBooleanValue>,    Handles::construct<oaStringValue>,
        Handles::construct<oaIntRangeValue>,   Handles::construct<oaUInt8Value>,
        Handles::construct<oaUInt8RangeValue>, Handles::construct<oaLayerValue>,
        Handles::construct<oaDualIntValue>};
    return constructors[std::size_t(kind)](where);
}

} // namespace impl

using namespace impl;

namespace {

/// The technology that `object` is.
TechDatabase& technology(const oaObject* object) {
    if (!object->isTech())
        throw oaTechError(oacInvalidDatabaseForValue,
                          static_cast<const oaChar*>(object->getType().getName()));
    return techDatabaseOf(object);
}

oaObject* addValue(TechDatabase& tech, const ValueRecord& value) {
    tech.edit();
    return tech.values.handle(tech.values.add(value));
}

template <class Value>
std::uint64_t toBits(Value value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(value));
    return bits;
}

template <class Value>
Value fromBits(const oaValue* value) {
    Value result;
    std::memcpy(&result, &recordOf<ValueRecord>(value).bits, sizeof(result));
    return result;
}

oaObject* createValue(oaObject* database, ValueKind kind, std::uint64_t bits) {
    return addValue(technology(database), {kind, 0, bits});
}

void setBits(const oaValue* value, std::uint64_t bits) {
    databaseOf(value).edit();
    recordOf<ValueRecord>(value).bits = bits;
}

/// The text that keeps a range: its type and bounds, byte for byte.
template <class T>
std::string bytesOf(const oaRange<T>& range) {
    const T bounds[] = {range.getLowerBound(), range.getUpperBound()};
    const std::uint32_t type = range.getType();
    std::string bytes(sizeof(type) + sizeof(bounds), '\0');
    std::memcpy(bytes.data(), &type, sizeof(type));
    std::memcpy(bytes.data() + sizeof(type), bounds, sizeof(bounds));
    return bytes;
}

/// The range that a text keeps; a file may hold any text in its place.
template <class T>
oaRange<T> rangeFrom(std::string_view bytes) {
    T bounds[2];
    std::uint32_t type = 0;
    if (bytes.size() != sizeof(type) + sizeof(bounds))
        return {};
    std::memcpy(&type, bytes.data(), sizeof(type));
    std::memcpy(bounds, bytes.data() + sizeof(type), sizeof(bounds));
    if (type > oacOpenRightRangeType)
        return {};
    return oaRange<T>(oaRangeTypeEnum(type), bounds[0], bounds[1]);
}

oaObject* createText(oaObject* database, ValueKind kind, std::string_view text) {
    TechDatabase& tech = technology(database);
    tech.edit();
    return addValue(tech, {kind, tech.strings.intern(text), 0});
}

void setText(const oaValue* value, std::string_view text) {
    Database& tech = databaseOf(value);
    tech.edit();
    recordOf<ValueRecord>(value).text = tech.strings.intern(text);
    tech.noteGarbage();
}

std::string_view textOf(const oaValue* value) {
    return databaseOf(value).strings.text(recordOf<ValueRecord>(value).text);
}

} // namespace

oaValue* oaValue::copy() const {
    return copyTo(getDatabase());
}

oaValue* oaValue::copyTo(oaObject* database) const {
    TechDatabase& tech = technology(database);
    ValueRecord copy = recordOf<ValueRecord>(this);
    tech.edit();
    copy.text = tech.strings.intern(std::string(databaseOf(this).strings.text(copy.text)));
    return static_cast<oaValue*>(addValue(tech, copy));
}

oaBoolean oaValue::isEqual(const oaValue* value) const {
    const ValueRecord& mine = recordOf<ValueRecord>(this);
    const ValueRecord& other = recordOf<ValueRecord>(value);
    if (mine.kind != other.kind)
        return false;
    if (mine.kind == ValueKind::Float)
        return fromBits<oaFloat>(this) == fromBits<oaFloat>(value);
    return mine.bits == other.bits &&
           databaseOf(this).strings.text(mine.text) == databaseOf(value).strings.text(other.text);
}

void oaValue::destroy() {
    TechDatabase& tech = techDatabaseOf(this);
    tech.requireEditable();
    const std::uint32_t slot = slotOf(this);
    if (tech.paramOf(slot) != kNone)
        throw oaTechError(oacCannotDestroyOwnedValue);
    tech.edit();
    tech.forgetAttachments({kValueTable, slot});
    tech.values.destroy(slot);
}

oaBoolean oaValue::isOwned() const {
    return techDatabaseOf(this).paramOf(slotOf(this)) != kNone;
}

oaObject* oaValue::getOwner(oaBoolean /*local*/) const {
    TechDatabase& tech = techDatabaseOf(this);
    const std::uint32_t param = tech.paramOf(slotOf(this));
    return param == kNone ? nullptr : tech.layerParams.handle(param);
}

oaIntValue* oaIntValue::create(oaObject* database, oaInt4 value) {
    return static_cast<oaIntValue*>(createValue(database, ValueKind::Int, toBits(value)));
}

oaInt4 oaIntValue::get() const {
    return fromBits<oaInt4>(this);
}

void oaIntValue::set(oaInt4 value) {
    setBits(this, toBits(value));
}

oaFltValue* oaFltValue::create(oaObject* database, oaFloat value) {
    return static_cast<oaFltValue*>(createValue(database, ValueKind::Float, toBits(value)));
}

oaFloat oaFltValue::get() const {
    return fromBits<oaFloat>(this);
}

void oaFltValue::set(oaFloat value) {
    setBits(this, toBits(value));
}

oaBooleanValue* oaBooleanValue::create(oaObject* database, oaBoolean value) {
    return static_cast<oaBooleanValue*>(
        createValue(database, ValueKind::Boolean, std::uint64_t(value != 0)));
}

oaBoolean oaBooleanValue::get() const {
    return recordOf<ValueRecord>(this).bits != 0;
}

void oaBooleanValue::set(oaBoolean value) {
    setBits(this, std::uint64_t(value != 0));
}

oaUInt8Value* oaUInt8Value::create(oaObject* database, oaUInt8 value) {
    return static_cast<oaUInt8Value*>(createValue(database, ValueKind::UInt8, value));
}

oaUInt8 oaUInt8Value::get() const {
    return recordOf<ValueRecord>(this).bits;
}

void oaUInt8Value::set(oaUInt8 value) {
    setBits(this, value);
}

oaLayerValue* oaLayerValue::create(oaObject* database, oaLayerNum value) {
    return static_cast<oaLayerValue*>(createValue(database, ValueKind::Layer, value));
}

oaLayerNum oaLayerValue::get() const {
    return fromBits<oaLayerNum>(this);
}

void oaLayerValue::set(oaLayerNum value) {
    setBits(this, value);
}

oaDualIntValue* oaDualIntValue::create(oaObject* database, oaInt4 first, oaInt4 second) {
    return static_cast<oaDualIntValue*>(
        createValue(database, ValueKind::DualInt, toBits(std::array{first, second})));
}

oaInt4 oaDualIntValue::getFirst() const {
    return fromBits<std::array<oaInt4, 2>>(this)[0];
}

oaInt4 oaDualIntValue::getSecond() const {
    return fromBits<std::array<oaInt4, 2>>(this)[1];
}

void oaDualIntValue::setFirst(oaInt4 value) {
    setBits(this, toBits(std::array{value, getSecond()}));
}

void oaDualIntValue::setSecond(oaInt4 value) {
    setBits(this, toBits(std::array{getFirst(), value}));
}

oaIntRangeValue* oaIntRangeValue::create(oaObject* database, const oaIntRange& value) {
    return static_cast<oaIntRangeValue*>(createText(database, ValueKind::IntRange, bytesOf(value)));
}

void oaIntRangeValue::get(oaIntRange& value) const {
    value = rangeFrom<oaInt4>(textOf(this));
}

void oaIntRangeValue::set(const oaIntRange& value) {
    setText(this, bytesOf(value));
}

oaUInt8RangeValue* oaUInt8RangeValue::create(oaObject* database, const oaUInt8Range& value) {
    return static_cast<oaUInt8RangeValue*>(
        createText(database, ValueKind::UInt8Range, bytesOf(value)));
}

void oaUInt8RangeValue::get(oaUInt8Range& value) const {
    value = rangeFrom<oaUInt8>(textOf(this));
}

void oaUInt8RangeValue::set(const oaUInt8Range& value) {
    setText(this, bytesOf(value));
}

oaStringValue* oaStringValue::create(oaObject* database, const oaString& value) {
    return static_cast<oaStringValue*>(
        createText(database, ValueKind::String, std::string_view(value)));
}

void oaStringValue::get(oaString& value) const {
    value = databaseOf(this).strings.chars(recordOf<ValueRecord>(this).text);
}

void oaStringValue::set(const oaString& value) {
    setText(this, std::string_view(value));
}

} // namespace OpenAccess_4
