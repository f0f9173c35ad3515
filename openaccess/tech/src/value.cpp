#include "oa/oaValue.h"

#include "oa/oaTechException.h"
#include "tech/src/tech_database.h"

#include <cstring>

namespace OpenAccess_4 {

namespace impl {

oaTypeEnum ValueRecord::type() const {
    static constexpr std::array<oaTypeEnum, std::size_t(ValueKind::Count)> types = {
        oacIntValueType, oacFltValueType, oacBooleanValueType, oacStringValueType};
    return types[std::size_t(kind)];
}

oaObject* ValueRecord::construct(void* where) const {
    switch (kind) {
    case ValueKind::Int:
        return Handles::construct<oaIntValue>(where);
    case ValueKind::Float:
        return Handles::construct<oaFltValue>(where);
    case ValueKind::Boolean:
        return Handles::construct<oaBooleanValue>(where);
    default:
        return Handles::construct<oaStringValue>(where);
    }
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
    tech.edit();
    const std::uint32_t slot = slotOf(this);
    tech.forgetAttachments({kValueTable, slot});
    tech.values.destroy(slot);
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

oaStringValue* oaStringValue::create(oaObject* database, const oaString& value) {
    TechDatabase& tech = technology(database);
    tech.edit();
    const StringId text = tech.strings.intern(std::string_view(value));
    return static_cast<oaStringValue*>(addValue(tech, {ValueKind::String, text, 0}));
}

void oaStringValue::get(oaString& value) const {
    value = databaseOf(this).strings.chars(recordOf<ValueRecord>(this).text);
}

void oaStringValue::set(const oaString& value) {
    Database& tech = databaseOf(this);
    tech.edit();
    recordOf<ValueRecord>(this).text = tech.strings.intern(std::string_view(value));
    tech.noteGarbage();
}

} // namespace OpenAccess_4
