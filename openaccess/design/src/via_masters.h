#pragma once

#include "oa/oaViaDef.h"

#include <string>

namespace OpenAccess_4 {
class oaDesign;
}

namespace OpenAccess_4::impl {

struct OpenDesignRecord;

/// What the master of a standard via follows from.
struct ViaMasterOrigin {
    oaViaParam params; // with the values of the definition for those that were not given
    std::string key;   // what the master is found by
};

/// The master of the standard vias of a definition that were given these parameters, made when
/// there is none yet; null when they cannot be drawn. It is purged with the last design that is
/// bound to it, unless the application has opened it as well.
oaDesign* stdViaMasterOf(const oaStdViaDef* def, const oaViaParam& given);

/// To be called before the design of such a master goes.
void forgetViaMaster(const OpenDesignRecord& master);

/// @throws oaDesignError  oacCannotModifyViaMaster
void requireNoViaMaster(const oaDesign* design);

} // namespace OpenAccess_4::impl
