#pragma once

#include "oaString.h"
#include "oaTechEnums.h"
#include "oaTechObject.h"

namespace OpenAccess_4 {

/// The number of the reserved purpose "drawing".
inline constexpr oaPurposeNum oavPurposeNumberDrawing = 0xFFFFFFFFu;

/// What shapes of a layer are for. Its name and its number are its own in the technology.
///
/// Every technology has one reserved purpose for each oaPurposeType; its number is 0xFFFFFFFF minus
/// the value of the type. Reserved purposes cannot be changed. The numbers from 0xFFFF0000 on are
/// kept for them.
class OA_API oaPurpose : public oaTechObject {
public:
    /// @throws oaTechError  oacPurposeNumberIsReserved, oacPurposeNumberExists,
    ///                      oacPurposeNameExists, oacCannotModifyReadModeTech
    static oaPurpose* create(oaTech* tech, const oaString& name, oaPurposeNum number);

    /// The purpose of that name or number, or null. Those of the technologies that `tech` refers
    /// to are looked at behind its own, unless `local` is set.
    static oaPurpose* find(const oaTech* tech, const oaString& name, oaBoolean local = false);
    static oaPurpose* find(const oaTech* tech, oaPurposeNum number, oaBoolean local = false);

    /// The reserved purpose of a type.
    static oaPurpose* get(oaTech* tech, oaPurposeType type);

    void getName(oaString& name) const;
    /// @throws oaTechError  oacPurposeNameExists, oacPurposeNumberIsReserved
    void setName(const oaString& name);

    oaPurposeNum getNumber() const;
    /// @throws oaTechError  oacPurposeNumberExists, oacPurposeNumberIsReserved
    void setNumber(oaPurposeNum number);

    /// The type of a reserved purpose; oacNoPurposeType for any other.
    oaPurposeType getPurposeType() const;
    oaBoolean isReserved() const;

    /// @throws oaTechError  oacPurposeNumberIsReserved
    void destroy();

    OA_HANDLE(oaPurpose);
};

} // namespace OpenAccess_4
