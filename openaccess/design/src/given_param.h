#pragma once

#include "base/src/append_bytes.h"
#include "base/src/table.h"
#include "oa/oaParam.h"

#include <cstdint>
#include <string>

namespace OpenAccess_4::impl {

/// A parameter that an object in the table `ownerTable` was given.
template <std::uint32_t ownerTable>
struct GivenParamRecord {
    std::uint32_t owner = 0;
    StringId name = 0;
    std::uint32_t type = oacIntParamType;
    StringId text = 0;    // the value of texts and bytes
    StringId appType = 0; // of bytes
    std::uint32_t reserved = 0;
    std::uint64_t bits = 0; // the other values

    using Handle = oaObject;
    static constexpr oaTypeEnum kType = oacUnknownType;

    template <class Self, class Visitor>
    static void describe(Self& self, Visitor& visitor) {
        visitor.slot(ownerTable, self.owner);
        visitor.string(self.name);
        visitor.enumerator(self.type, oacTimeParamType + 1);
        visitor.string(self.text);
        visitor.string(self.appType);
        visitor.require(self.reserved == 0);
    }
};

/// Appends what is the same for equal parameters of one database.
template <std::uint32_t ownerTable>
void appendKey(std::string& key, const GivenParamRecord<ownerTable>& param) {
    appendBytes(key, param.name);
    appendBytes(key, param.type);
    appendBytes(key, param.text);
    appendBytes(key, param.appType);
    appendBytes(key, param.bits);
}

} // namespace OpenAccess_4::impl
