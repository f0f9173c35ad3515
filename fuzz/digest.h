#pragma once

#include "oa/oaDesignDB.h"

#include <cstdint>
#include <type_traits>

namespace oa = OpenAccess_4;

namespace fuzz {

/// Takes in the answers to many questions, in their order.
class Digest {
public:
    template <class Number>
    requires std::is_arithmetic_v<Number> || std::is_enum_v<Number>
    void add(Number number) {
        const auto* bytes = reinterpret_cast<const unsigned char*>(&number);
        for (std::size_t i = 0; i < sizeof(number); ++i)
            value_ = (value_ ^ bytes[i]) * 1099511628211u;
    }
    template <class Enum>
    void add(const oa::impl::NamedEnum<Enum>& value) {
        add(static_cast<Enum>(value));
    }
    void add(const oa::oaString& text) {
        for (oa::oaUInt4 i = 0; i < text.getLength(); ++i)
            add(text[i]);
        add(text.getLength());
    }
    void add(const oa::oaPoint& point) {
        add(point.x());
        add(point.y());
    }
    void add(const oa::oaBox& box) {
        add(box.lowerLeft());
        add(box.upperRight());
    }
    void add(const oa::oaPointArray& points) {
        for (oa::oaUInt4 i = 0; i < points.getNumElements(); ++i)
            add(points[i]);
    }

    std::uint64_t value() const { return value_; }

private:
    std::uint64_t value_ = 14695981039346656037u;
};

/// Kind, validity, properties (with theirs, some levels deep) and application-defined values.
void visitObject(const oa::oaObject* object, Digest& digest);

/// The name of the object in the native name space.
template <class Object>
void visitName(const Object* object, Digest& digest) {
    oa::oaString name;
    object->getName(oa::oaNativeNS(), name);
    digest.add(name);
}

} // namespace fuzz
