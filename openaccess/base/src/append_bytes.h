#pragma once

#include <string>
#include <type_traits>

namespace OpenAccess_4::impl {

/// Appends a value as it lies in memory: to keys, and to texts that databases keep.
template <class Value>
void appendBytes(std::string& bytes, const Value& value) {
    static_assert(std::has_unique_object_representations_v<Value> ||
                  std::is_floating_point_v<Value>);
    bytes.append(reinterpret_cast<const char*>(&value), sizeof(value));
}

} // namespace OpenAccess_4::impl
