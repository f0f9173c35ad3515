#pragma once

#include "base/src/chain_index.h"
#include "base/src/table.h"

#include <array>
#include <cstring>
#include <string_view>
#include <vector>

namespace OpenAccess_4 {
class oaProp;
}

namespace OpenAccess_4::impl {

/// The kinds of properties, in the order of their types from oacIntPropType on.
enum class PropKind : std::uint32_t {
    Int,
    IntRange,
    Float,
    FloatRange,
    String,
    App,
    Double,
    DoubleRange,
    Boolean,
    Hier,
    Time,
    TimeRange,
    Enum,
    Count
};

/// Values of up to three elements, as they lie in a property's record: a plain value is element 0,
/// a range is lower bound, value, upper bound. Unused bytes are zero.
class PropPayload {
public:
    template <class Value>
    Value get(std::size_t element = 0) const {
        Value value;
        std::memcpy(&value, bytes_.data() + element * sizeof(Value), sizeof(Value));
        return value;
    }
    template <class Value>
    void set(Value value, std::size_t element = 0) {
        static_assert(sizeof(Value) * 3 <= sizeof(bytes_));
        std::memcpy(bytes_.data() + element * sizeof(Value), &value, sizeof(Value));
    }

private:
    std::array<std::byte, 24> bytes_{};
};

struct PropRecord {
    ObjectRef owner;
    StringId name = 0;
    PropKind kind = PropKind::Int;
    PropPayload value; // texts: the StringId; app: type and bytes; enum: value and all enums

    oaTypeEnum type() const { return oaTypeEnum(oacIntPropType + std::uint32_t(kind)); }
    oaObject* construct(void* where) const;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.object(self.owner);
        visitor.string(self.name);
        visitor.enumerator(std::uint32_t(self.kind), std::uint32_t(PropKind::Count));
        const std::size_t texts = self.kind == PropKind::String                               ? 1
                                  : self.kind == PropKind::App || self.kind == PropKind::Enum ? 2
                                                                                              : 0;
        for (std::size_t element = 0; element < texts; ++element)
            describeText(self, visitor, element);
    }

private:
    template <class Visitor>
    static void describeText(const PropRecord& self, Visitor& visitor, std::size_t element) {
        visitor.string(self.value.get<StringId>(element));
    }
    template <class Visitor>
    static void describeText(PropRecord& self, Visitor& visitor, std::size_t element) {
        StringId text = self.value.get<StringId>(element);
        visitor.string(text);
        self.value.set(text, element);
    }
};

/// True for an object that files leave out, so that nothing stored may be attached to it.
bool isTransient(const Database& database, const ObjectRef& object);

/// The properties of one database.
class Properties {
public:
    explicit Properties(Database& database);

    /// @throws oaError  oacPropNameUsed, oacInvalidObjForProp
    oaProp* create(const ObjectRef& owner, const char* name, PropKind kind,
                   const PropPayload& value);
    oaProp* find(const ObjectRef& owner, std::string_view name);
    std::vector<oaObject*> of(const ObjectRef& owner);
    bool any(const ObjectRef& owner);

    void rename(std::uint32_t slot, const char* name);
    void remove(std::uint32_t slot);
    void removeAll(const ObjectRef& owner);
    /// @throws oaError  oacPropNameUsed; oacPropBelowItself: the owner is the property or below it
    void move(std::uint32_t slot, const ObjectRef& owner);

    /// False when a property is, over one or more owners, its own owner.
    bool isSound() const;

private:
    bool isBelow(ObjectRef object, std::uint32_t slot) const;
    std::uint32_t slotOf(const ObjectRef& owner, StringId name);
    void requireFree(const ObjectRef& owner, const char* name, StringId id);
    ChainIndex& byOwner();

    Database& database_;
    Table<PropRecord>& table_;
    ChainIndex index_;
    std::uint32_t indexed_ = 0; // slots that the index knows
};

} // namespace OpenAccess_4::impl
